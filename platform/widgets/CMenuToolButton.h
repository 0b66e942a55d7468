// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QToolButton>
#include <QVariant>

class QMenu;

/// A button with a drop-down menu of variants of one operation. A click runs the default variant, the first
/// one; the Down and F4 keys open the menu.
class CMenuToolButton final : public QToolButton
{
    Q_OBJECT

public:
    /// The button always shows @p caption, whichever variant is the default.
    explicit CMenuToolButton(const QString &caption, QWidget *parent = nullptr);

    /// Adds a variant with @p value as its data; the button owns the action.
    QAction *addAction(const QString &text, const QVariant &value);

    /// Blocks the default variant, which must exist: a click then does nothing, but the others can still be
    /// chosen. @p reason is shown as a tool tip; an empty one unblocks it.
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
