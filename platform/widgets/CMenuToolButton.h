// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QToolButton>
#include <QVariant>

class QMenu;

/// A button with a drop-down of variants of one operation: a click runs the default variant, the first one.
/// Down or F4 opens the drop-down from the keyboard.
class CMenuToolButton final : public QToolButton
{
    Q_OBJECT

public:
    /// @p caption is what the button shows, whichever variant is the default.
    explicit CMenuToolButton(const QString &caption, QWidget *parent = nullptr);

    /// Adds a variant that carries @p value as its data; a click on the button itself always means the first
    /// one. The button owns it.
    QAction *addAction(const QString &text, const QVariant &value);

    /// Blocks the default variant, which must exist: a click then does nothing, the others can
    /// still be chosen. @p reason is shown as tool tip; an empty one lifts the block.
    void setDefaultBlocked(const QString &reason);

Q_SIGNALS:
    /// The user chose @p action, one of those added.
    void notifyActionTriggered(QAction *action);

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QMenu *m_menu = nullptr;
};
