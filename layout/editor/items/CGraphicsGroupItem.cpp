// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsGroupItem.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditorScene.h"
#include "layout/geometry/CCoverage.h"

#include <QBrush>
#include <QCursor>
#include <QEvent>
#include <QGraphicsScene>

#include <algorithm>

namespace {

bool isMemberKind(const QGraphicsItem &item)
{
    return item.type() == CabinetItemKind || item.type() == GroupItemKind;
}

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

void deselectMembers(const CGraphicsGroupItem &group)
{
    for (CGraphicsItemBase *member : group.members()) {
        member->setSelected(false);
        if (member->type() == GroupItemKind)
            deselectMembers(static_cast<const CGraphicsGroupItem &>(*member));
    }
}

void moveToParent(CGraphicsItemBase &member, QGraphicsItem &parent)
{
    const CItemChangeBlocker blocker(member);
    const QPointF place = member.scenePos();
    member.setParentItem(&parent);
    member.setPos(parent.mapFromScene(place));
}

} // namespace

CGraphicsGroupItem::CGraphicsGroupItem(const QUuid &uuid, const QRectF &sceneRect, QGraphicsItem *parent)
    : CGraphicsItemBase(uuid, parent, sceneRect.topLeft())
{
    setSize(sceneRect.size());
    setParentItem(parent);
}

QVector<CGraphicsCabinetItem *> CGraphicsGroupItem::cabinets() const
{
    QVector<CGraphicsCabinetItem *> cabinets;
    collectCabinets(*this, cabinets);
    return cabinets;
}

QVector<CGraphicsItemBase *> CGraphicsGroupItem::members() const
{
    QVector<CGraphicsItemBase *> members;
    const QList<QGraphicsItem *> children = childItems();
    for (QGraphicsItem *child : children) {
        if (isMemberKind(*child))
            members << static_cast<CGraphicsItemBase *>(child);
    }
    return members;
}

void CGraphicsGroupItem::gather(const QVector<CGraphicsItemBase *> &members)
{
    for (CGraphicsItemBase *member : members) {
        member->setSelected(false); // also if the group is already selected
        moveToParent(*member, *this);
    }
    recomputeBounds(false);
}

void CGraphicsGroupItem::dissolve(QGraphicsItem &newParent)
{
    const QVector<CGraphicsItemBase *> released = members();
    for (CGraphicsItemBase *member : released) {
        moveToParent(*member, newParent);
        member->setSelected(true);
    }
}

void CGraphicsGroupItem::fitToMembers()
{
    QRectF united;
    const QVector<CGraphicsItemBase *> inside = members();
    for (const CGraphicsItemBase *member : inside)
        united |= member->mapRectToScene(member->rect());
    m_hoverState = Unknown;
    if (united == mapRectToScene(rect()))
        return;

    const QPointF corner = parentItem() ? parentItem()->mapFromScene(united.topLeft()) : united.topLeft();
    const QPointF shift = corner - pos();
    const CItemChangeBlocker blocker(*this);
    setPos(corner);
    setSize(united.size());
    if (shift.isNull())
        return;
    for (CGraphicsItemBase *member : inside) {
        const CItemChangeBlocker memberBlocker(*member);
        member->setPos(member->pos() - shift);
    }
}

void CGraphicsGroupItem::recomputeBounds(bool repaint)
{
    fitToMembers();
    if (repaint)
        update();
    if (CGraphicsGroupItem *around = groupItem())
        around->recomputeBounds(repaint);
}

bool CGraphicsGroupItem::canResize() const
{
    const CGraphicsPortItem *item = portItem();
    if (item && item->isClosed())
        return false;
    if (m_hoverState == Unknown)
        m_hoverState = tilesItsRectangle() ? Resizable : NotResizable;
    return m_hoverState == Resizable;
}

bool CGraphicsGroupItem::tilesItsRectangle() const
{
    const QVector<CGraphicsCabinetItem *> all = cabinets();
    if (all.isEmpty())
        return false;
    QVector<QRectF> rects;
    for (const CGraphicsCabinetItem *cabinetItem : all) {
        if (cabinetItem->cabinet().type != all.first()->cabinet().type)
            return false;
        rects << cabinetItem->mapRectToScene(cabinetItem->rect());
    }
    return CCoverage::covers(rects, mapRectToScene(rect()));
}

void CGraphicsGroupItem::followGeometry()
{
    const QVector<CGraphicsCabinetItem *> all = cabinets();
    for (CGraphicsCabinetItem *cabinetItem : all)
        cabinetItem->followGeometry();
}

QVariant CGraphicsGroupItem::itemChange(GraphicsItemChange change, const QVariant &value)
{
    switch (change) {
    case ItemChildAddedChange:
        adopt(*value.value<QGraphicsItem *>(), true);
        break;
    case ItemChildRemovedChange:
        adopt(*value.value<QGraphicsItem *>(), false);
        break;
    case ItemSelectedChange:
        m_hoverState = Unknown;
        if (value.toBool() && groupItem()) {
            selectOutermost(true);
            return false;
        }
        break;
    case ItemSelectedHasChanged:
        if (value.toBool()) {
            // Members are never selected together with their group, so that they are never edited twice.
            deselectMembers(*this);
        }
        break;
    case ItemPositionHasChanged:
        if (scene() && !isChangeBlocked())
            followGeometry();
        break;
    default:
        break;
    }
    return CGraphicsItemBase::itemChange(change, value);
}

void CGraphicsGroupItem::adopt(QGraphicsItem &child, bool added)
{
    m_hoverState = Unknown;
    if (!isMemberKind(child))
        return;
    auto &member = static_cast<CGraphicsItemBase &>(child);
    if (member.type() == CabinetItemKind)
        static_cast<CGraphicsCabinetItem &>(member).setGroup(added ? uuid() : QUuid());
    if (added) {
        member.setPort(port());
        member.setBrush(brush());
    }
}

bool CGraphicsGroupItem::sceneEventFilter(QGraphicsItem *, QEvent *event)
{
    if (event->type() != QEvent::GraphicsSceneHoverEnter || !hasCursor() ||
        cursor().shape() == Qt::ArrowCursor)
        return false;
    unsetCursor();
    return true;
}

/// Nothing: its members, which are drawn later, would cover it. The scene draws the frame.
void CGraphicsGroupItem::paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) {}
