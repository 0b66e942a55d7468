// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsCabinetItem.h"

#include "layout/drawing/CLayoutPainter.h"
#include "layout/drawing/CLayoutPicture.h"
#include "layout/editor/items/CGraphicsConnectionItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/geometry/CCabinetRect.h"
#include "platform/common/Utils.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>

CGraphicsCabinetItem::CGraphicsCabinetItem(QGraphicsItem *parent)
    : CGraphicsItemBase(QUuid(), nullptr)
{
    record().uuid = uuid();
    setParentItem(parent); // only now: the parent asks what kind of child it gets
}

CGraphicsCabinetItem::CGraphicsCabinetItem(const Cabinet &cabinetRecord, QGraphicsItem *parent)
    : CGraphicsItemBase(cabinetRecord.uuid, nullptr)
{
    record() = cabinetRecord;
    record().uuid = uuid();
    record().rank = NoPosition;
    setRect(QRectF(QPointF(0, 0), CCabinetRect::fromRecord(cabinetRecord.rect).size()));
    const QPointF corner = cabinetRecord.rect.topLeft();
    setPos(parent ? parent->mapFromScene(corner) : corner);
    updateInnerLines();
    setParentItem(parent);
}

void CGraphicsCabinetItem::setCabinet(const Cabinet &cabinetRecord)
{
    record() = cabinetRecord;
    record().uuid = uuid();
    record().rank = m_chainPosition;
    placeByRecord();
    updateInnerLines();
    routeWires();
    update();
}

void CGraphicsCabinetItem::placeByRecord()
{
    const QRectF placement = CCabinetRect::fromRecord(cabinet().rect);
    setRect(QRectF(QPointF(0, 0), placement.size()));
    setPos(parentItem() ? parentItem()->mapFromScene(placement.topLeft()) : placement.topLeft());
}

void CGraphicsCabinetItem::updateInnerLines()
{
    const QVector<QRect> &rects = cabinet().rects;
    m_innerLines = rects.size() < 2 ? QVector<QLineF>() : Utils::calculateAdjacentLines(rects);
}

void CGraphicsCabinetItem::setPort(int port)
{
    CGraphicsItemBase::setPort(port);
    record().port = port;
}

void CGraphicsCabinetItem::setChainPosition(int position)
{
    m_chainPosition = position;
    record().rank = position;
}

QPointF CGraphicsCabinetItem::entryPoint() const
{
    return SWireAnchors::of(cabinet(), mapRectToScene(rect())).entry;
}

QPointF CGraphicsCabinetItem::exitPoint() const
{
    return SWireAnchors::of(cabinet(), mapRectToScene(rect())).exit;
}

void CGraphicsCabinetItem::setHighlighted(bool highlighted)
{
    if (m_highlighted == highlighted)
        return;
    m_highlighted = highlighted;
    update();
}

void CGraphicsCabinetItem::routeWires()
{
    if (m_incoming)
        m_incoming->route();
    if (m_outgoing)
        m_outgoing->route();
}

QVariant CGraphicsCabinetItem::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemPositionHasChanged && scene()) {
        record().rect = CCabinetRect::toRecord(mapRectToScene(rect()));
        routeWires();
    }
    return CGraphicsItemBase::itemChange(change, value);
}

void CGraphicsCabinetItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *)
{
    SCabinetLook look;
    look.rect = rect();
    look.innerLines = m_innerLines;
    look.fill = brush().color();
    if (isInChain())
        look.number = QString::number(m_chainPosition + 1);
    look.selected = isSelectedWithGroups();
    look.highlighted = m_highlighted;
    if (const CGraphicsPortItem *port = portItem()) {
        look.locked = port->isShownLocked();
        look.redundant = port->isShownRedundant();
    }
    const QTransform transform = painter->worldTransform();
    CLayoutPainter::paintCabinet(*painter, look, option->levelOfDetailFromTransform(transform));
}
