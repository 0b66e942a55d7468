// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsItemBase.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditorScene.h"
#include "layout/editor/items/IMouseMode.h"
#include "layout/editor/items/ViewScale.h"
#include "layout/geometry/CResizeHandles.h"

#include <QCursor>
#include <QGraphicsScene>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QPainterPath>
#include <QPen>

namespace {

/// Where the coordinates of its children begin, in scene coordinates.
QPointF originOf(const QGraphicsItem *parent)
{
    QPointF origin;
    for (; parent; parent = parent->parentItem())
        origin += parent->pos();
    return origin;
}

} // namespace

CGraphicsItemBase::CGraphicsItemBase(const QUuid &uuid, const QGraphicsItem *parent,
                                     const QPointF &scenePlace)
    : QGraphicsRectItem(nullptr)
{
    setPen(QPen(Qt::NoPen)); // with a pen each lookup would stroke a path
    setUuid(uuid.isNull() ? QUuid::createUuid() : uuid);
    setAcceptHoverEvents(true);
    setPos(scenePlace - originOf(parent)); // before the flags, which make it costly
    // Nothing relies on scene-position changes: items of a scene have not got this flag, see itemChange().
    setFlags(ItemIsMovable | ItemIsSelectable | ItemSendsGeometryChanges |
             (parent ? GraphicsItemFlags() : ItemSendsScenePositionChanges));
}

void CGraphicsItemBase::setUuid(const QUuid &uuid)
{
    m_cabinet.uuid = uuid;
    setData(IdentityRole, uuid);
}

CGraphicsPortItem *CGraphicsItemBase::portItem() const
{
    QGraphicsItem *ancestor = parentItem();
    while (ancestor && ancestor->type() != PortItemKind)
        ancestor = ancestor->parentItem();
    return static_cast<CGraphicsPortItem *>(ancestor);
}

CGraphicsGroupItem *CGraphicsItemBase::groupItem() const
{
    QGraphicsItem *parent = parentItem(); // an item is a direct child of its group
    return parent && parent->type() == GroupItemKind ? static_cast<CGraphicsGroupItem *>(parent) : nullptr;
}

IEditorScene *CGraphicsItemBase::editor() const
{
    const CGraphicsPortItem *item = portItem();
    return item ? &item->editor() : nullptr;
}

IItemMouse *CGraphicsItemBase::itemMouse() const
{
    IEditorScene *editing = editor();
    return editing ? editing->mouse() : nullptr;
}

bool CGraphicsItemBase::isGrouped() const
{
    return type() != GroupItemKind && groupItem();
}

CGraphicsItemBase &CGraphicsItemBase::outermost()
{
    CGraphicsItemBase *item = this;
    while (CGraphicsGroupItem *group = item->groupItem())
        item = group;
    return *item;
}

bool CGraphicsItemBase::isSelectedWithGroups() const
{
    if (isSelected())
        return true;
    const CGraphicsGroupItem *group = groupItem();
    return group && group->isSelectedWithGroups();
}

QPointF CGraphicsItemBase::scenePlace() const
{
    return originOf(parentItem()) + pos();
}

void CGraphicsItemBase::placeAt(const QPointF &scenePlace)
{
    setPos(scenePlace - originOf(parentItem()));
}

void CGraphicsItemBase::setSize(const QSizeF &size)
{
    setRect(QRectF(QPointF(0, 0), size));
    m_grown.reset();
    m_hoveredHandle = NoHandle;
    m_handles.clear();
}

QPainterPath CGraphicsItemBase::shape() const
{
    QPainterPath path;
    path.addRect(boundingRect());
    return path;
}

void CGraphicsItemBase::updateHandles()
{
    m_handles.clear();
    const IItemMouse *mouse = itemMouse();
    if (!scene() || !isSelected() || !mouse || !mouse->offersHandles() || !canResize())
        return;
    m_handles = CResizeHandles::handles(rect(), CResizeHandles::ScreenSide / viewScale(*scene()));
}

int CGraphicsItemBase::handleAt(const QPointF &scenePos)
{
    updateHandles();
    const QPointF position = mapFromScene(scenePos);
    for (auto handle = m_handles.begin(); handle != m_handles.end(); ++handle) {
        if (handle.value().contains(position))
            return handle.key();
    }
    return NoHandle;
}

void CGraphicsItemBase::setHoveredHandle(int handle)
{
    const QRectF bounds = handle == NoHandle ? rect() : rect().united(m_handles.value(handle));
    m_hoveredHandle = handle;
    if (bounds == boundingRect())
        return;
    prepareGeometryChange();
    m_grown = bounds == rect() ? nullptr : std::make_unique<QRectF>(bounds);
    if (CGraphicsPortItem *item = portItem())
        item->updateBounds(); // a port is searched only within its bounds
}

bool CGraphicsItemBase::sceneEvent(QEvent *event)
{
    // Group and port filter the events of their children. They are called here, because every removal from
    // the scene would walk over installed filters.
    if (CGraphicsGroupItem *group = groupItem()) {
        if (group->sceneEventFilter(this, event))
            return true;
    }
    if (CGraphicsPortItem *item = portItem()) {
        if (item->sceneEventFilter(this, event))
            return true;
    }
    return QGraphicsRectItem::sceneEvent(event);
}

void CGraphicsItemBase::hoverMoveEvent(QGraphicsSceneHoverEvent *event)
{
    const IItemMouse *mouse = itemMouse();
    // Also a handle of another item that covers this one.
    const int handle = mouse ? mouse->handleAt(event->scenePos()) : NoHandle;
    if (handle == NoHandle)
        unsetCursor();
    else
        setCursor(CResizeHandles::cursor(handle));
}

void CGraphicsItemBase::hoverLeaveEvent(QGraphicsSceneHoverEvent *)
{
    unsetCursor();
}

/// The first step of a press: selects. Returns whether a click of this kind toggles on release.
bool CGraphicsItemBase::selectByPress(const QGraphicsSceneMouseEvent &event)
{
    const bool ctrl = event.modifiers() & Qt::ControlModifier;
    if (!(flags() & ItemIsSelectable))
        return false;
    if (!isSelectedWithGroups()) {
        if (ctrl && event.button() != Qt::RightButton)
            return true;
        scene()->clearSelection();
    }
    if (!ctrl && !isSelectedWithGroups())
        selectOutermost(true);
    return ctrl;
}

void CGraphicsItemBase::resetHighlights()
{
    const CGraphicsPortItem *item = portItem();
    if (!item || !item->resetsHighlightOnEdit())
        return;
    for (CGraphicsCabinetItem *concerned : concernedCabinets()) {
        if (concerned->cabinet().type.isNull())
            concerned->setHighlighted(false);
    }
}

void CGraphicsItemBase::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    IItemMouse *mouse = itemMouse();
    if (!mouse || (event->button() == Qt::LeftButton && !mouse->mouseMode().selects()))
        return;
    const CEditBatch batch(editor()->editing());
    const bool toggles = selectByPress(*event);
    if (event->button() == Qt::LeftButton)
        mouse->beginMove(event->scenePos(), toggles && !isSelectedWithGroups() ? this : nullptr);
}

void CGraphicsItemBase::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    const CGraphicsPortItem *item = portItem();
    IItemMouse *mouse = itemMouse();
    if (!item || item->isRedundant() || !mouse)
        return; // a redundancy port follows its primary
    mouse->openCabinetMenu(*this, event->widget(), event->screenPos());
    event->accept();
}

void CGraphicsItemBase::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (IItemMouse *mouse = itemMouse())
        mouse->continueDrag(event->scenePos(), event->modifiers());
}

void CGraphicsItemBase::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    IItemMouse *mouse = itemMouse();
    if (!mouse || event->button() != Qt::LeftButton || mouse->endDrag(event->scenePos()) ||
        !mouse->mouseMode().selects())
        return;
    const CEditBatch batch(editor()->editing());
    CGraphicsItemBase &clicked = isSelected() ? *this : outermost();
    if (event->modifiers() & Qt::ControlModifier) {
        clicked.setSelected(!isSelectedWithGroups());
        return;
    }
    // A click on one of several selected items deselects all others.
    if (!clicked.isSelected() || mouse->isSingleSelection())
        return;
    scene()->clearSelection();
    clicked.setSelected(true);
}

QVariant CGraphicsItemBase::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemSceneHasChanged && scene()) {
        // Nothing relies on scene-position changes, and each move of a parent would walk all items that
        // request them.
        setFlag(ItemSendsScenePositionChanges, false);
    } else if (change == ItemSelectedHasChanged) {
        if (IEditorScene *editing = editor())
            editing->notes().noteSelected(*this, isSelected());
        if (m_hoveredHandle != NoHandle)
            setHoveredHandle(NoHandle);
        m_handles.clear();
    }
    return QGraphicsRectItem::itemChange(change, value);
}
