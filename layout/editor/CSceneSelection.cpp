// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CSceneSelection.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"

#include <algorithm>

namespace {

bool standsBefore(const CGraphicsItemBase *a, const CGraphicsItemBase *b)
{
    return a->port() != b->port() ? a->port() < b->port() : a->ordinal() < b->ordinal();
}

} // namespace

void CSceneSelection::note(CGraphicsItemBase &item, bool selected)
{
    if (selected)
        m_items.insert(&item);
    else
        m_items.remove(&item);
}

QVector<CGraphicsItemBase *> CSceneSelection::sorted() const
{
    QVector<CGraphicsItemBase *> items(m_items.begin(), m_items.end());
    std::sort(items.begin(), items.end(), standsBefore);
    return items;
}

QVector<CGraphicsGroupItem *> CSceneSelection::groups() const
{
    QVector<CGraphicsGroupItem *> groups;
    for (CGraphicsItemBase *item : sorted()) {
        if (item->type() == GroupItemKind)
            groups << static_cast<CGraphicsGroupItem *>(item);
    }
    return groups;
}

QVector<CGraphicsCabinetItem *> CSceneSelection::cabinets() const
{
    QVector<CGraphicsCabinetItem *> cabinets;
    cabinets.reserve(m_items.size());
    bool anyGroup = false;
    for (CGraphicsItemBase *item : m_items) {
        cabinets += item->concernedCabinets();
        anyGroup = anyGroup || item->type() == GroupItemKind;
    }
    std::sort(cabinets.begin(), cabinets.end(), standsBefore);
    if (anyGroup)
        cabinets.erase(std::unique(cabinets.begin(), cabinets.end()), cabinets.end());
    return cabinets;
}

QVector<QVector<CGraphicsCabinetItem *>> CSceneSelection::cabinetsByPort() const
{
    const QVector<CGraphicsCabinetItem *> all = cabinets(); // those of a port stand together
    QVector<QVector<CGraphicsCabinetItem *>> byPort;
    for (CGraphicsCabinetItem *cabinet : all) {
        if (byPort.isEmpty() || byPort.last().first()->port() != cabinet->port())
            byPort << QVector<CGraphicsCabinetItem *>();
        byPort.last() << cabinet;
    }
    return byPort;
}

QSet<CGraphicsPortItem *> CSceneSelection::portItems() const
{
    QSet<CGraphicsPortItem *> ports;
    for (const CGraphicsItemBase *item : m_items) {
        if (CGraphicsPortItem *port = item->portItem())
            ports.insert(port);
    }
    return ports;
}

QList<int> CSceneSelection::ports() const
{
    QList<int> indices;
    for (const CGraphicsPortItem *port : portItems())
        indices << port->port();
    std::sort(indices.begin(), indices.end());
    return indices;
}

QList<QUuid> CSceneSelection::uuids() const
{
    QList<QUuid> uuids;
    uuids.reserve(m_items.size());
    for (const CGraphicsItemBase *item : m_items)
        uuids << item->uuid();
    return uuids;
}

QList<CabinetLayout::CabinetPort::Cabinet> CSceneSelection::records() const
{
    QList<CabinetLayout::CabinetPort::Cabinet> records;
    for (const CGraphicsCabinetItem *cabinet : cabinets())
        records << cabinet->cabinet();
    return records;
}

bool CSceneSelection::canGroup() const
{
    if (m_items.size() < 2)
        return false;
    const QGraphicsItem *parent = (*m_items.begin())->parentItem();
    if (!parent || parent->type() != PortItemKind || touchesLockedPort())
        return false;
    return std::all_of(m_items.begin(), m_items.end(),
                       [parent](const CGraphicsItemBase *item) { return item->parentItem() == parent; });
}

bool CSceneSelection::canBreakGroup() const
{
    const auto isGroup = [](const CGraphicsItemBase *item) { return item->type() == GroupItemKind; };
    return std::any_of(m_items.begin(), m_items.end(), isGroup) && !touchesLockedPort();
}

bool CSceneSelection::touchesLockedPort() const
{
    const QSet<CGraphicsPortItem *> ports = portItems();
    return std::any_of(ports.begin(), ports.end(),
                       [](const CGraphicsPortItem *port) { return port->isLocked(); });
}
