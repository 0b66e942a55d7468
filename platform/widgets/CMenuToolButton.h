// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QToolButton>
#include <QVariant>

class QMenu;

/// A button with a drop-down of variants of one operation: a click runs the default variant, choosing another
/// runs that and makes it the default. Down or F4 opens the drop-down from the keyboard.
class CMenuToolButton final : public QToolButton
{
    Q_OBJECT

public:
    /// @p caption is what the button shows, whichever variant is the default.
    explicit CMenuToolButton(const QString &caption, QWidget *parent = nullptr);

    /// Adds a variant that carries @p value as its data; a click on the button itself always means the first
    /// one. The button owns it.
    QAction *addAction(const QString &text, const QVariant &value);

Q_SIGNALS:
    /// @p action, one of those added, is to run.
    void notifyActionTriggered(QAction *action);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QString m_caption;
    QMenu *m_menu = nullptr;
};
