// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CSceneInput.h"

#include "layout/editor/CCabinetGraphicsScene.h"
#include "layout/editor/items/CGraphicsItemBase.h"
#include "layout/editor/menus/CCabinetMenu.h"
#include "layout/editor/menus/CCanvasMenu.h"

#include <QCoreApplication>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QMenu>
#include <QPointer>

#include <algorithm>

bool CSceneInput::isOn(const QPointF &scenePos, int kind) const
{
    const QList<QGraphicsItem *> under = m_scene.items(scenePos, Qt::IntersectsItemBoundingRect);
    return std::any_of(under.begin(), under.end(),
                       [kind](const QGraphicsItem *item) { return item->type() == kind; });
}

bool CSceneInput::isOnItem(const QPointF &scenePos) const
{
    return isOn(scenePos, CabinetItemKind) || isOn(scenePos, GroupItemKind);
}

bool CSceneInput::press(QGraphicsSceneMouseEvent &event)
{
    m_scene.cancelGesture();
    if (m_scene.isAppending()) {
        if (event.button() == Qt::LeftButton)
            m_placing.press(event);
        event.accept();
        return true;
    }
    if (event.buttons() == event.button())
        m_gestures.beginPress();
    if (isOnItem(event.scenePos()) || event.button() != Qt::LeftButton || m_scene.isToolInUse())
        return false;
    m_gestures.beginBand(event.scenePos(), event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier));
    event.accept();
    return true;
}

bool CSceneInput::move(const QGraphicsSceneMouseEvent &event)
{
    if (m_scene.isAppending())
        m_placing.move(event);
    else if (m_gestures.hasBand())
        m_gestures.continueBand(event.scenePos());
    else
        return false;
    return true;
}

bool CSceneInput::release(const QGraphicsSceneMouseEvent &event)
{
    if (m_scene.isAppending()) {
        if (event.button() == Qt::LeftButton && m_placing.release(event))
            Q_EMIT m_scene.notifyExitCurrentOperate();
    } else if (m_gestures.hasBand()) {
        m_gestures.endBand();
    } else {
        return false;
    }
    return true;
}

bool CSceneInput::doubleClick(QGraphicsSceneMouseEvent &event)
{
    if (event.button() == Qt::LeftButton && !m_scene.isToolInUse() && !m_scene.isAppending() &&
        isOn(event.scenePos(), CabinetItemKind)) {
        m_gestures.beginPress();
        return false;
    }
    // Everything else that takes clicks takes quick ones as well.
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    press.setWidget(event.widget());
    press.setScenePos(event.scenePos());
    press.setScreenPos(event.screenPos());
    press.setLastScenePos(event.lastScenePos());
    press.setLastScreenPos(event.lastScreenPos());
    press.setButton(event.button());
    press.setButtons(event.buttons());
    press.setModifiers(event.modifiers());
    QCoreApplication::sendEvent(&m_scene, &press);
    event.setAccepted(press.isAccepted());
    return true;
}

bool CSceneInput::openMenu(QGraphicsSceneContextMenuEvent &event)
{
    if (m_scene.isAppending()) {
        m_scene.leaveOperation(); // here, as the press comes first and must not make way for a menu
        event.accept();
        return true;
    }
    if (m_scene.isToolInUse() || isOnItem(event.scenePos()))
        return false;
    m_scene.cancelGesture();
    const QPointer<QMenu> menu = new QMenu(event.widget());
    CCanvasMenu::fill(*menu, m_scene, event.scenePos(), event.widget());
    menu->exec(event.screenPos());
    delete menu;
    event.accept();
    return true;
}

void CSceneInput::openCabinetMenu(const CGraphicsItemBase &item, QWidget *widget, const QPoint &screenPos)
{
    if (m_scene.isToolInUse() || m_scene.isAppending())
        return;
    m_scene.cancelGesture();
    const QPointer<QMenu> menu = new QMenu(widget);
    CCabinetMenu(*menu, m_scene, item, widget).fill();
    menu->exec(screenPos);
    delete menu;
}
