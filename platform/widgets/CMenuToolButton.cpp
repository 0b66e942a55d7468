// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CMenuToolButton.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QStyleOptionToolButton>
#include <QStylePainter>

CMenuToolButton::CMenuToolButton(const QString &caption, QWidget *parent)
    : QToolButton(parent)
    , m_menu(new QMenu(this))
{
    setText(caption);
    setFocusPolicy(Qt::TabFocus); // a click leaves the keys where they are
    setPopupMode(QToolButton::MenuButtonPopup);
    setMenu(m_menu);
    m_menu->setToolTipsVisible(true);
    // The menu also reports an action that was triggered by a click on the button.
    connect(m_menu, &QMenu::triggered, this, &CMenuToolButton::notifyActionTriggered);
}

QAction *CMenuToolButton::addAction(const QString &text, const QVariant &value)
{
    QAction *action = m_menu->addAction(text);
    action->setData(value);
    if (!m_menu->defaultAction()) {
        // Not the button's own default action: that one would disable the drop-down with it.
        m_menu->setDefaultAction(action);
        setToolTip(text);
        connect(this, &QToolButton::clicked, action, [action] {
            if (action->isEnabled())
                action->trigger();
        });
    }
    return action;
}

void CMenuToolButton::setDefaultBlocked(const QString &reason)
{
    QAction &action = *m_menu->defaultAction();
    action.setEnabled(reason.isEmpty());
    action.setToolTip(reason.isEmpty() ? action.text() : reason);
    setToolTip(action.toolTip());
    update();
}

void CMenuToolButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    const QAction *action = m_menu->defaultAction();
    if (!isEnabled() || !action || action->isEnabled())
        return;
    const QRect arrow =
        style()->subControlRect(QStyle::CC_ToolButton, &option, QStyle::SC_ToolButtonMenu, this);
    painter.setClipRegion(QRegion(rect()) - arrow);
    option.state &= ~(QStyle::State_Enabled | QStyle::State_MouseOver | QStyle::State_Sunken);
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
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
        m_menu->close(); // its entries are no longer available
}
