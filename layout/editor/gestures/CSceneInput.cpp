// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CSceneInput.h"

#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/gestures/CItemLookup.h"
#include "layout/editor/items/CGraphicsItemBase.h"
#include "layout/editor/menus/CCabinetMenu.h"
#include "layout/editor/menus/CCanvasMenu.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/scene/SInputTargets.h"
#include "platform/graphics/CGraphicsScene.h"

#include <QCoreApplication>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QMenu>
#include <QPointer>

CSceneInput::CSceneInput(CGraphicsScene &scene, const SInputTargets &targets, std::function<void()> leave)
    : m_scene(scene)
    , m_edit(targets.edit)
    , m_toolModes(targets.toolModes)
    , m_leave(std::move(leave))
    , m_gestures(scene, targets.editing, m_edit.content, m_edit.selection, targets.recorder)
    , m_select(scene, targets.editing, m_edit.selection, *this, m_gestures)
    , m_pen(m_gestures)
    , m_exchange(m_edit.operations, CExchangeMode::Receiver)
    , m_directExchange(m_edit.operations, CExchangeMode::Anywhere)
    , m_highlight(targets.highlights)
    , m_append(m_edit.placing, [this] { m_leave(); })
{
}

CSceneInput::~CSceneInput()
{
    m_gestures.cancel();
}

void CSceneInput::cancel()
{
    m_gestures.cancel();
    m_edit.placing.cancelPress();
}

bool CSceneInput::isSingleSelection() const
{
    return m_edit.selection.count() == 1;
}

bool CSceneInput::offersHandles() const
{
    return isSingleSelection() && m_toolModes.isEmpty();
}

int CSceneInput::handleAt(const QPointF &scenePos) const
{
    if (!offersHandles())
        return CGraphicsItemBase::NoHandle;
    return (*m_edit.selection.items().begin())->handleAt(scenePos);
}

void CSceneInput::beginMove(const QPointF &scenePos, CGraphicsItemBase *joining)
{
    if (m_toolModes.isEmpty())
        m_gestures.beginMove(scenePos, joining);
}

void CSceneInput::beginScale(CGraphicsItemBase &item, int handle, const QPointF &scenePos)
{
    if (m_toolModes.isEmpty() && item.canResize())
        m_gestures.beginScale(item, handle, scenePos);
}

void CSceneInput::paint(QPainter &painter) const
{
    if (offersHandles())
        m_gestures.paintHandles(painter);
    m_gestures.paint(painter);
}

IMouseMode &CSceneInput::mouseMode()
{
    if (m_edit.placing.isAppending())
        return m_append;
    if (m_toolModes.contains(ToolMode::Highlighting))
        return m_highlight;
    if (m_toolModes.contains(ToolMode::ManualWiring))
        return m_pen;
    if (m_toolModes.contains(ToolMode::HeadToTailExchange))
        return m_exchange;
    if (m_toolModes.contains(ToolMode::DirectExchange))
        return m_directExchange;
    return m_select;
}

bool CSceneInput::press(QGraphicsSceneMouseEvent &event)
{
    // Pressing another button cancels what the first one began, and does nothing else.
    m_interrupted = event.buttons() != event.button() && (m_gestures.hasBand() || m_gestures.isDragging());
    m_gestures.cancel();
    if (m_interrupted) {
        event.accept();
        return true;
    }
    if (event.buttons() == event.button() && !m_edit.placing.isAppending())
        m_gestures.beginPress();
    return mouseMode().press(event);
}

bool CSceneInput::doubleClick(QGraphicsSceneMouseEvent &event)
{
    const bool toggles = event.modifiers() & Qt::ControlModifier; // then each click counts by itself
    if (event.button() == Qt::LeftButton && mouseMode().edits() && !toggles &&
        CItemLookup::isOnCabinet(m_scene, event.scenePos()) &&
        !m_select.isOnCabinetHandle(event.scenePos())) {
        m_gestures.beginPress();
        return false;
    }
    if (!mouseMode().takesQuickClicks()) {
        event.accept();
        return true;
    }
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
    if (m_edit.placing.isAppending()) {
        m_leave(); // here, because the press comes first and must not prevent the menu
        event.accept();
        return true;
    }
    if (!mouseMode().opensMenus() || CItemLookup::isOnItem(m_scene, event.scenePos()))
        return false;
    m_gestures.cancel();
    const QPointer<QMenu> menu = new QMenu(event.widget());
    CCanvasMenu(*menu, m_edit, m_commands, event.widget()).fill(event.scenePos());
    menu->exec(event.screenPos());
    delete menu;
    event.accept();
    return true;
}

void CSceneInput::openCabinetMenu(CGraphicsItemBase &item, QWidget *widget, const QPoint &screenPos)
{
    if (!mouseMode().opensMenus())
        return;
    m_gestures.cancel();
    const QPointer<QMenu> menu = new QMenu(widget);
    CCabinetMenu(*menu, m_edit, m_commands, item, widget).fill();
    menu->exec(screenPos);
    delete menu;
}
