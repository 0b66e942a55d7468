// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsItemBase.h"

#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"

#include <QPainterPath>
#include <QPen>

namespace {

QGraphicsItem *ancestorOfKind(const QGraphicsItem &item, int kind)
{
    QGraphicsItem *ancestor = item.parentItem();
    while (ancestor && ancestor->type() != kind)
        ancestor = ancestor->parentItem();
    return ancestor;
}

} // namespace

CGraphicsItemBase::CGraphicsItemBase(const QUuid &uuid, QGraphicsItem *parent)
    : QGraphicsRectItem(parent)
{
    setPen(QPen(Qt::NoPen)); // with a pen each lookup would stroke a path
    setUuid(uuid.isNull() ? QUuid::createUuid() : uuid);
    setAcceptHoverEvents(true);
    setFlags(ItemIsMovable | ItemIsSelectable | ItemSendsGeometryChanges | ItemSendsScenePositionChanges);
}

CGraphicsPortItem *CGraphicsItemBase::portItem() const
{
    return static_cast<CGraphicsPortItem *>(ancestorOfKind(*this, PortItemKind));
}

CGraphicsGroupItem *CGraphicsItemBase::groupItem() const
{
    return static_cast<CGraphicsGroupItem *>(ancestorOfKind(*this, GroupItemKind));
}

bool CGraphicsItemBase::isGrouped() const
{
    return type() != GroupItemKind && groupItem();
}

bool CGraphicsItemBase::isSelectedWithGroups() const
{
    if (isSelected())
        return true;
    const CGraphicsGroupItem *group = groupItem();
    return group && group->isSelectedWithGroups();
}

void CGraphicsItemBase::selectOutermost(bool selected)
{
    CGraphicsItemBase *outermost = this;
    while (CGraphicsGroupItem *group = outermost->groupItem())
        outermost = group;
    outermost->setSelected(selected);
}

QPainterPath CGraphicsItemBase::shape() const
{
    QPainterPath path;
    path.addRect(boundingRect());
    return path;
}

QVariant CGraphicsItemBase::itemChange(GraphicsItemChange change, const QVariant &value)
{
    // Nothing relies on scene-position changes, and each move of a parent would walk all items that want
    // them.
    if (change == ItemSceneHasChanged && scene())
        setFlag(ItemSendsScenePositionChanges, false);
    return QGraphicsRectItem::itemChange(change, value);
}
