// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QObject>
#include <QStringList>

/// Answers the next file dialog as a user does; an empty name cancels it. Records its title, proposal and
/// filters.
class CFileDialogAnswerer final : public QObject
{
public:
    explicit CFileDialogAnswerer(const QString &file)
        : m_file(file)
    {
        startTimer(1);
    }
    QString title;
    QString proposal;
    QStringList filters;

protected:
    void timerEvent(QTimerEvent *) override
    {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog || !title.isEmpty())
            return;
        title = dialog->windowTitle();
        auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        proposal = name->text();
        filters = dialog->nameFilters();
        name->setText(m_file);
        if (m_file.isEmpty())
            dialog->reject();
        else
            QMetaObject::invokeMethod(dialog, "accept");
    }

private:
    const QString m_file;
};
