// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CRecordOrder.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"

namespace {

using Ordinals = CRecordOrder::Ordinals;

QVector<CGraphicsItemBase *> itemsOf(const CGraphicsPortItem &port)
{
    QVector<CGraphicsItemBase *> items;
    for (CGraphicsCabinetItem *cabinet : port.cabinets(nullptr))
        items << cabinet;
    for (CGraphicsGroupItem *group : port.groups(false))
        items << group;
    return items;
}

/// Whether the ordinals of the items below @p parent, taken in the order of their records, ascend.
bool ascend(const QGraphicsItem &parent, const Ordinals &ordinals)
{
    qint64 lastCabinet = -1;
    qint64 lastGroup = -1;
    const QList<QGraphicsItem *> children = parent.childItems();
    for (const QGraphicsItem *child : children) {
        if (child->type() != CabinetItemKind && child->type() != GroupItemKind)
            continue;
        qint64 &last = child->type() == CabinetItemKind ? lastCabinet : lastGroup;
        const qint64 known = ordinals.value(static_cast<const CGraphicsItemBase *>(child)->uuid(), -1);
        if (known <= last || (child->type() == GroupItemKind && !ascend(*child, ordinals)))
            return false;
        last = known;
    }
    return true;
}

} // namespace

CRecordOrder::Ordinals CRecordOrder::of(const QVector<CGraphicsPortItem *> &ports)
{
    Ordinals ordinals;
    for (const CGraphicsPortItem *port : ports) {
        for (const CGraphicsItemBase *item : itemsOf(*port))
            ordinals.insert(item->uuid(), item->ordinal());
    }
    return ordinals;
}

void CRecordOrder::apply(const Ordinals &ordinals, const QVector<CGraphicsPortItem *> &ports)
{
    for (const CGraphicsPortItem *port : ports) {
        if (!ascend(*port, ordinals))
            continue;
        for (CGraphicsItemBase *item : itemsOf(*port))
            item->setOrdinal(ordinals.value(item->uuid()));
    }
}

void CRecordOrder::remember(const QUuid &processor, const QVector<CGraphicsPortItem *> &ports)
{
    if (!processor.isNull())
        m_ordinals[processor] = of(ports);
}

void CRecordOrder::restore(const QUuid &processor, const QVector<CGraphicsPortItem *> &ports)
{
    apply(m_ordinals.take(processor), ports);
}
