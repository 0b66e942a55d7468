// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CProjectVersions.h"
#include "platform/widgets/CDialog.h"

class CVersionReader;
class QImage;
class QPushButton;
class QTreeWidget;

/// Lets the user choose an earlier version of a project, and remove those that are no longer wanted.
class CVersionsDialog final : public CDialog
{
    Q_OBJECT

public:
    CVersionsDialog(const QVector<CProjectVersions::SVersion> &versions, QWidget *parent);

    QString chosen() const; ///< the file of the version; empty: none

private:
    void buildUi();
    void connectSignals();
    void updateButtons();
    void onRead(int place, const QImage &picture, const QString &text);
    void onRemove();

    const QVector<CProjectVersions::SVersion> m_versions;
    QTreeWidget *m_list = nullptr;
    QPushButton *m_remove = nullptr;
    CVersionReader *m_reader = nullptr;
};
