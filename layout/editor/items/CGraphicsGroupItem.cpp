// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsGroupItem.h"

#include "layout/drawing/CLayoutPainter.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"

#include <QBrush>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

namespace {

void collectCabinets(const QGraphicsItem &group, QVector<CGraphicsCabinetItem *> &cabinets)
{
    const QList<QGraphicsItem *> children = group.childItems();
    for (QGraphicsItem *child : children) {
        if (child->type() == CabinetItemKind)
            cabinets << static_cast<CGraphicsCabinetItem *>(child);
        else if (child->type() == GroupItemKind)
            collectCabinets(*child, cabinets);
    }
}

} // namespace

CGraphicsGroupItem::CGraphicsGroupItem(const QUuid &uuid, const QRectF &sceneRect, QGraphicsItem *parent)
    : CGraphicsItemBase(uuid, nullptr)
{
    setRect(QRectF(QPointF(0, 0), sceneRect.size()));
    setPos(parent ? parent->mapFromScene(sceneRect.topLeft()) : sceneRect.topLeft());
    setParentItem(parent);
}

QVector<CGraphicsCabinetItem *> CGraphicsGroupItem::cabinets() const
{
    QVector<CGraphicsCabinetItem *> cabinets;
    collectCabinets(*this, cabinets);
    return cabinets;
}

QVariant CGraphicsGroupItem::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemChildAddedChange || change == ItemChildRemovedChange) {
        auto *child = value.value<QGraphicsItem *>();
        const bool added = change == ItemChildAddedChange;
        if (child->type() == CabinetItemKind)
            static_cast<CGraphicsCabinetItem *>(child)->setGroup(added ? uuid() : QUuid());
        if (added && (child->type() == CabinetItemKind || child->type() == GroupItemKind)) {
            auto *member = static_cast<CGraphicsItemBase *>(child);
            member->setPort(port());
            member->setBrush(brush());
        }
    }
    return CGraphicsItemBase::itemChange(change, value);
}

void CGraphicsGroupItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *)
{
    const QTransform transform = painter->worldTransform();
    CLayoutPainter::paintGroup(*painter, rect(), isSelectedWithGroups(),
                               option->levelOfDetailFromTransform(transform));
}
