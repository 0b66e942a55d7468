// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsCabinetItem.h"

#include "layout/drawing/CLayoutPicture.h"
#include "layout/drawing/CPortLabel.h"
#include "layout/drawing/CReceiverBorders.h"
#include "layout/editor/items/CGraphicsConnectionItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditorScene.h"
#include "layout/editor/items/IMouseMode.h"
#include "layout/geometry/CCabinetRect.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

#include <utility>

CGraphicsCabinetItem::CGraphicsCabinetItem(QGraphicsItem *parent)
    : CGraphicsItemBase(QUuid(), nullptr)
{
    setParentItem(parent); // only now, because the parent checks the type of its new child
}

CGraphicsCabinetItem::CGraphicsCabinetItem(Cabinet cabinetRecord, QGraphicsItem *parent)
    : CGraphicsItemBase(cabinetRecord.uuid, parent, cabinetRecord.rect.topLeft())
{
    const QUuid identity = uuid();
    record() = std::move(cabinetRecord);
    record().uuid = identity;
    record().rank = NoPosition;
    record().calibrationIndex = -1; // the highlight belonged to the previous item
    record().mappingIndex = -1;     // the host knows the places in the saved mapping
    setSize(record().rect.size());
    setParentItem(parent);
}

void CGraphicsCabinetItem::setCabinet(const Cabinet &cabinetRecord)
{
    const Cabinet previous = cabinet();
    record() = cabinetRecord;
    record().uuid = previous.uuid;
    record().port = previous.port;
    record().group = previous.group;
    record().mappingIndex = -1;
    record().calibrationIndex = previous.calibrationIndex;
    record().rank = m_chainPosition;
    setSize(cabinetRecord.rect.size());
    placeAt(cabinetRecord.rect.topLeft());
    record().rect = cabinetRecord.rect;
    forgetInnerLines();
    update();
    if (IEditorScene *editing = editor())
        editing->notes().noteCabinetMoved(*this);
}

void CGraphicsCabinetItem::setAreas(const Cabinet &cabinetRecord)
{
    record().rects = cabinetRecord.rects;
    record().blanks = cabinetRecord.blanks;
    record().original = cabinetRecord.original;
    forgetInnerLines();
    update();
}

const QVector<QLineF> &CGraphicsCabinetItem::innerLines() const
{
    std::optional<QVector<QLineF>> &lines = details().innerLines;
    if (!lines)
        lines = CReceiverBorders::lines(cabinet().rects, rect().size().toSize());
    return *lines;
}

void CGraphicsCabinetItem::forgetInnerLines()
{
    if (m_details)
        m_details->innerLines.reset();
}

CGraphicsCabinetItem::SDetails &CGraphicsCabinetItem::details() const
{
    if (!m_details)
        m_details = std::make_unique<SDetails>();
    return *m_details;
}

void CGraphicsCabinetItem::setPort(int port)
{
    CGraphicsItemBase::setPort(port);
    record().port = port;
}

bool CGraphicsCabinetItem::canResize() const
{
    const CGraphicsPortItem *item = portItem();
    return !(item && item->isClosed()) && !isGrouped() && isSelected();
}

void CGraphicsCabinetItem::followGeometry()
{
    record().rect = CCabinetRect::toRecord(placement());
    if (IEditorScene *editing = editor())
        editing->notes().noteCabinetMoved(*this);
}

void CGraphicsCabinetItem::setChainPosition(int position)
{
    if (m_chainPosition == position)
        return;
    m_chainPosition = position;
    record().rank = position;
    update();
}

void CGraphicsCabinetItem::setRectFlag(int index, bool on)
{
    QList<bool> &flags = details().rectFlags;
    while (flags.size() <= index)
        flags << false;
    flags[index] = on;
}

void CGraphicsCabinetItem::clearRectFlags()
{
    if (m_details)
        m_details->rectFlags.clear();
}

void CGraphicsCabinetItem::setRectAnchored(bool anchored)
{
    m_rectAnchored = anchored;
    routeWires();
}

QPointF CGraphicsCabinetItem::entryPoint() const
{
    return m_rectAnchored ? SWireAnchors::of(cabinet(), placement()).entry : placement().center();
}

QPointF CGraphicsCabinetItem::exitPoint() const
{
    return m_rectAnchored ? SWireAnchors::of(cabinet(), placement()).exit : placement().center();
}

void CGraphicsCabinetItem::setHighlighted(bool highlighted)
{
    if (m_highlighted == highlighted)
        return;
    m_highlighted = highlighted;
    record().calibrationIndex = highlighted ? 0 : -1;
    update();
    if (IEditorScene *editing = editor())
        editing->notes().noteHighlighted(*this, highlighted);
    if (CGraphicsPortItem *item = portItem())
        item->noteChanged();
}

CabinetFault CGraphicsCabinetItem::fault() const
{
    const CGraphicsPortItem *item = portItem();
    if (!item || item->isShownRedundant())
        return CabinetFault::None;
    if (hasFaults())
        return m_details->overlaps.isEmpty() ? CabinetFault::Outside : CabinetFault::Overlapping;
    return isInChain() ? CabinetFault::None : CabinetFault::Unwired;
}

bool CGraphicsCabinetItem::hasFaults() const
{
    return m_details && !(m_details->overlaps.isEmpty() && m_details->outside.isEmpty());
}

void CGraphicsCabinetItem::setFaults(const QVector<QRectF> &overlaps, const QVector<QRectF> &outside)
{
    const bool any = !overlaps.isEmpty() || !outside.isEmpty();
    if (!any && !hasFaults())
        return;
    SDetails &known = details();
    if (known.overlaps == overlaps && known.outside == outside)
        return;
    known.overlaps = overlaps;
    known.outside = outside;
    update();
    if (CGraphicsPortItem *item = portItem())
        item->noteLookChanged();
}

void CGraphicsCabinetItem::routeWires()
{
    if (m_incoming)
        m_incoming->route();
    if (m_outgoing)
        m_outgoing->route();
}

int CGraphicsCabinetItem::cellAt(const QPointF &position) const
{
    const QPoint rounded(qRound(position.x()), qRound(position.y()));
    const QVector<QRect> &rects = cabinet().rects;
    for (int i = 0; i < rects.size(); ++i) {
        if (rects.at(i).contains(rounded))
            return i;
    }
    return NoCell;
}

bool CGraphicsCabinetItem::pickCell(const QPointF &position)
{
    const int cell = cellAt(position);
    if (cell == NoCell)
        return false;
    m_selectedCell = cell;
    update();
    return true;
}

void CGraphicsCabinetItem::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    IItemMouse *mouse = itemMouse();
    if (!mouse)
        return;
    const CEditBatch batch(editor()->editing());
    if (event->button() != Qt::LeftButton || !mouse->mouseMode().pressCabinet(*this, *event))
        CGraphicsItemBase::mousePressEvent(event);
}

void CGraphicsCabinetItem::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    IItemMouse *mouse = itemMouse();
    if (!mouse || !mouse->mouseMode().edits() || event->button() != Qt::LeftButton)
        return;
    const CEditBatch batch(editor()->editing());
    scene()->clearSelection();
    setSelected(true);
    CGraphicsItemBase::mousePressEvent(event); // a quick click may be followed by a drag
}

QVariant CGraphicsCabinetItem::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemPositionChange)
        return value; // any position will do
    if (change == ItemSelectedChange && value.toBool() && isGrouped()) {
        // A rubber band selects whole groups.
        const IItemMouse *mouse = itemMouse();
        if (mouse && mouse->hasRubberBand() && !isChangeBlocked()) {
            selectOutermost(true);
            return false;
        }
    } else if (change == ItemPositionHasChanged && scene() && !isChangeBlocked()) {
        followGeometry();
    }
    return CGraphicsItemBase::itemChange(change, value);
}

void CGraphicsCabinetItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *)
{
    const qreal scale = option->levelOfDetailFromTransform(painter->worldTransform());
    SCabinetLook look;
    look.rect = rect();
    look.fill = brush().color();
    look.selected = isSelectedWithGroups();
    look.highlighted = m_highlighted;
    look.wired = isInChain();
    look.fault = fault();
    if (CReceiverBorders::canBeToldApart(cabinet().rects.size(),
                                         rect().width() * rect().height() * scale * scale))
        look.innerLines = innerLines();
    if (hasFaults()) {
        look.overlaps = m_details->overlaps;
        look.outside = m_details->outside;
    }
    if (const CGraphicsPortItem *item = portItem()) {
        look.locked = item->isShownLocked();
        look.redundant = item->isShownRedundant();
        look.custom = item->marksCustomCabinets() && cabinet().isCustomDefined();
        if (!look.wired && !look.redundant)
            look.number = CPortLabel::text(item->port());
        else if (m_chainRole == Head)
            look.label = CPortLabel::text(item->port());
    }
    if (look.wired)
        look.number = QString::number(m_chainPosition + 1);
    CLayoutPainter::paintCabinet(*painter, look, scale);
}
