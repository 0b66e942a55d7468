// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsPortItem.h"

#include "layout/data/IPortStates.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"

#include <QBrush>

namespace {

void collectPortCabinets(const QGraphicsItem &parent, QVector<CGraphicsCabinetItem *> &cabinets)
{
    const QList<QGraphicsItem *> children = parent.childItems();
    for (QGraphicsItem *child : children) {
        if (child->type() == CabinetItemKind)
            cabinets << static_cast<CGraphicsCabinetItem *>(child);
        else if (child->type() == GroupItemKind)
            cabinets << static_cast<CGraphicsGroupItem *>(child)->cabinets();
    }
}

} // namespace

CGraphicsPortItem::CGraphicsPortItem(const Port &record, const IPortStates &states)
    : m_states(states)
    , m_state(record)
    , m_chain(*this)
{
    m_state.groups.clear();
    m_color = record.color.isValid() ? record.color : m_states.portColor(record.index);
    // Lookups pass over a port that they do not touch; its bounds are kept tight for that.
    setFlags(ItemHasNoContents | ItemContainsChildrenInShape);
    setData(IdentityRole, record.index);
}

QVector<CGraphicsCabinetItem *> CGraphicsPortItem::cabinets(const CGraphicsGroupItem *group) const
{
    QVector<CGraphicsCabinetItem *> cabinets;
    collectPortCabinets(group ? static_cast<const QGraphicsItem &>(*group) : *this, cabinets);
    return cabinets;
}

bool CGraphicsPortItem::isLocked() const
{
    return m_states.isPortLocked(port());
}

void CGraphicsPortItem::setShownLocked(bool locked)
{
    m_state.locked = locked;
    update();
}

void CGraphicsPortItem::setColor(const QColor &color)
{
    m_color = color;
    m_state.color = color;
    colorChildren(*this);
}

void CGraphicsPortItem::refreshState()
{
    m_state.locked = m_states.isPortLocked(port());
    m_state.redundancy = m_states.portRedundancy(port());
    const QColor color = m_states.portColor(port());
    if (color != m_color) {
        m_color = color;
        colorChildren(*this);
    }
}

void CGraphicsPortItem::colorChildren(const QGraphicsItem &parent)
{
    const QList<QGraphicsItem *> children = parent.childItems();
    for (QGraphicsItem *child : children) {
        if (child->type() != CabinetItemKind && child->type() != GroupItemKind)
            continue;
        static_cast<CGraphicsItemBase *>(child)->setBrush(QBrush(m_color));
        colorChildren(*child);
    }
}

void CGraphicsPortItem::updateBounds()
{
    const QRectF bounds = childrenBoundingRect();
    if (bounds == m_bounds)
        return;
    prepareGeometryChange();
    m_bounds = bounds;
}

QVariant CGraphicsPortItem::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemChildAddedChange)
        adopt(*value.value<QGraphicsItem *>());
    return QGraphicsObject::itemChange(change, value);
}

void CGraphicsPortItem::adopt(QGraphicsItem &child)
{
    if (child.type() == ConnectionItemKind) {
        child.setZValue(ConnectionHeight);
    } else if (child.type() == CabinetItemKind || child.type() == GroupItemKind) {
        auto &item = static_cast<CGraphicsItemBase &>(child);
        item.setPort(port());
        item.setBrush(QBrush(m_color));
    }
}
