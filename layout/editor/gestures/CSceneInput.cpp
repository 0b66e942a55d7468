// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CSceneInput.h"

#include "layout/editor/gestures/CItemLookup.h"
#include "layout/editor/gestures/CSceneGestures.h"
#include "layout/editor/items/CGraphicsItemBase.h"
#include "layout/editor/menus/CCabinetMenu.h"
#include "layout/editor/menus/CCanvasMenu.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"

#include <QCoreApplication>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QMenu>
#include <QPointer>

CSceneInput::CSceneInput(CCabinetGraphicsScene &scene, CSceneGestures &gestures, CScenePlacing &placing)
    : m_scene(scene)
    , m_gestures(gestures)
    , m_select(scene, gestures)
    , m_pen(gestures)
    , m_exchange(scene, CExchangeMode::Receiver)
    , m_directExchange(scene, CExchangeMode::Anywhere)
    , m_highlight(scene)
    , m_append(scene, placing)
{
}

IMouseMode &CSceneInput::mode()
{
    if (m_scene.isAppending())
        return m_append;
    if (m_scene.isToolModeSet(IEditorScene::Highlighting))
        return m_highlight;
    if (m_scene.isToolModeSet(IEditorScene::ManualWiring))
        return m_pen;
    if (m_scene.isToolModeSet(IEditorScene::HeadToTailExchange))
        return m_exchange;
    if (m_scene.isToolModeSet(IEditorScene::DirectExchange))
        return m_directExchange;
    return m_select;
}

bool CSceneInput::press(QGraphicsSceneMouseEvent &event)
{
    // Another button puts back what the first one has begun, and does nothing else.
    m_interrupted = event.buttons() != event.button() && (m_gestures.hasBand() || m_gestures.isDragging());
    m_scene.cancelGesture();
    if (m_interrupted) {
        event.accept();
        return true;
    }
    if (event.buttons() == event.button() && !m_scene.isAppending())
        m_gestures.beginPress();
    return mode().press(event);
}

bool CSceneInput::doubleClick(QGraphicsSceneMouseEvent &event)
{
    if (event.button() == Qt::LeftButton && mode().edits() &&
        CItemLookup::isOnCabinet(m_scene, event.scenePos())) {
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
    if (m_interrupted) {
        event.accept();
        return true;
    }
    if (m_scene.isAppending()) {
        m_scene.leaveOperation(); // here, as the press comes first and must not make way for a menu
        event.accept();
        return true;
    }
    if (!mode().edits() || CItemLookup::isOnItem(m_scene, event.scenePos()))
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
    if (!mode().edits())
        return;
    m_scene.cancelGesture();
    const QPointer<QMenu> menu = new QMenu(widget);
    CCabinetMenu(*menu, m_scene, item, widget).fill();
    menu->exec(screenPos);
    delete menu;
}
