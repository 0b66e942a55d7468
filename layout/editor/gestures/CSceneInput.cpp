// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CSceneInput.h"

#include "layout/editor/gestures/CItemLookup.h"
#include "layout/editor/items/CGraphicsItemBase.h"
#include "layout/editor/menus/CCabinetMenu.h"
#include "layout/editor/menus/CCanvasMenu.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"

#include <QCoreApplication>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QMenu>
#include <QPointer>

CSceneInput::CSceneInput(CCabinetGraphicsScene &scene)
    : m_scene(scene)
    , m_backend(scene.backend())
    , m_gestures(scene, m_backend.batches(), m_backend.content(), m_backend.selection(), m_backend.recorder())
    , m_select(scene, m_backend.batches(), m_backend.selection(), *this, m_gestures)
    , m_pen(m_gestures)
    , m_exchange(m_backend.operations(), CExchangeMode::Receiver)
    , m_directExchange(m_backend.operations(), CExchangeMode::Anywhere)
    , m_highlight(m_backend.highlights())
    , m_append(m_backend.placing(), [&scene] { scene.leaveOperation(); })
{
    m_backend.setInput(this);
}

CSceneInput::~CSceneInput()
{
    m_gestures.cancel();
    m_backend.setInput(nullptr);
}

void CSceneInput::cancel()
{
    m_gestures.cancel();
    m_backend.placing().cancelPress();
}

bool CSceneInput::isSingleSelection() const
{
    return m_backend.selection().count() == 1;
}

bool CSceneInput::offersHandles() const
{
    return isSingleSelection() && m_backend.toolModes().isEmpty();
}

int CSceneInput::handleAt(const QPointF &scenePos) const
{
    if (!offersHandles())
        return CGraphicsItemBase::NoHandle;
    return (*m_backend.selection().items().begin())->handleAt(scenePos);
}

void CSceneInput::beginMove(const QPointF &scenePos, CGraphicsItemBase *joining)
{
    if (m_backend.toolModes().isEmpty())
        m_gestures.beginMove(scenePos, joining);
}

void CSceneInput::beginScale(CGraphicsItemBase &item, int handle, const QPointF &scenePos)
{
    if (m_backend.toolModes().isEmpty() && item.canResize())
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
    if (m_backend.placing().isAppending())
        return m_append;
    if (m_backend.toolModes().contains(ToolMode::Highlighting))
        return m_highlight;
    if (m_backend.toolModes().contains(ToolMode::ManualWiring))
        return m_pen;
    if (m_backend.toolModes().contains(ToolMode::HeadToTailExchange))
        return m_exchange;
    if (m_backend.toolModes().contains(ToolMode::DirectExchange))
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
    if (event.buttons() == event.button() && !m_backend.placing().isAppending())
        m_gestures.beginPress();
    return mouseMode().press(event);
}

bool CSceneInput::doubleClick(QGraphicsSceneMouseEvent &event)
{
    if (event.button() == Qt::LeftButton && mouseMode().edits() &&
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
    if (m_backend.placing().isAppending()) {
        m_scene.leaveOperation(); // here, because the press comes first and must not prevent the menu
        event.accept();
        return true;
    }
    if (!mouseMode().opensMenus() || CItemLookup::isOnItem(m_scene, event.scenePos()))
        return false;
    m_gestures.cancel();
    const QPointer<QMenu> menu = new QMenu(event.widget());
    CCanvasMenu(*menu, m_backend.targets(), m_commands, event.widget()).fill(event.scenePos());
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
    CCabinetMenu(*menu, m_backend.targets(), m_commands, item, widget).fill();
    menu->exec(screenPos);
    delete menu;
}
