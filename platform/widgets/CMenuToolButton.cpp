// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CMenuToolButton.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>

CMenuToolButton::CMenuToolButton(const QString &caption, QWidget *parent)
    : QToolButton(parent)
    , m_caption(caption)
    , m_menu(new QMenu(this))
{
    setText(caption);
    setFocusPolicy(Qt::StrongFocus);
    setPopupMode(QToolButton::MenuButtonPopup);
    setMenu(m_menu);
    // The menu also reports an action that was triggered by a click on the button.
    connect(m_menu, &QMenu::triggered, this, &CMenuToolButton::notifyActionTriggered);
}

QAction *CMenuToolButton::addAction(const QString &text, const QVariant &value)
{
    QAction *action = m_menu->addAction(text);
    action->setIconText(m_caption); // the button shows this, the menu the text
    action->setToolTip(text);
    action->setData(value);
    if (!defaultAction()) {
        setDefaultAction(action);
        m_menu->setDefaultAction(action);
    }
    return action;
}

void CMenuToolButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Down || event->key() == Qt::Key_F4)
        showMenu();
    else
        QToolButton::keyPressEvent(event);
}

void CMenuToolButton::changeEvent(QEvent *event)
{
    QToolButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        m_menu->close(); // what the drop-down offers is no longer to be had
}
