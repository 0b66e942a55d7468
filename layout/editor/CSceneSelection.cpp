// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CSceneSelection.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"

#include <algorithm>
#include <tuple>

namespace {

/// By port and ordinal, which are read once: items lie all over the memory.
template <typename Item>
void sortByRecords(QVector<Item *> &items)
{
    QVector<std::tuple<int, qint64, Item *>> keyed;
    keyed.reserve(items.size());
    for (Item *item : qAsConst(items))
        keyed.append(std::make_tuple(item->port(), item->ordinal(), item));
    std::sort(keyed.begin(), keyed.end(), [](const auto &a, const auto &b) {
        return std::tie(std::get<0>(a), std::get<1>(a)) < std::tie(std::get<0>(b), std::get<1>(b));
    });
    std::transform(keyed.cbegin(), keyed.cend(), items.begin(),
                   [](const auto &entry) { return std::get<2>(entry); });
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
    sortByRecords(items);
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
        if (item->type() == CabinetItemKind) {
            cabinets << static_cast<CGraphicsCabinetItem *>(item);
        } else {
            cabinets += item->concernedCabinets();
            anyGroup = true;
        }
    }
    sortByRecords(cabinets);
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
    QSet<int> seen;
    for (const CGraphicsItemBase *item : m_items) {
        if (seen.contains(item->port()))
            continue;
        if (CGraphicsPortItem *port = item->portItem()) {
            seen.insert(item->port());
            ports.insert(port);
        }
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
    const QVector<CGraphicsCabinetItem *> all = cabinets();
    records.reserve(all.size());
    for (const CGraphicsCabinetItem *cabinet : all)
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
