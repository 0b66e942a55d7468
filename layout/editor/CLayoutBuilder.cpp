// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CLayoutBuilder.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/geometry/CCabinetRect.h"

#include <algorithm>

namespace {

QRect unitedGroupRect(const CabinetLayout::CabinetPort::CabinetGroup &group)
{
    QRect united;
    for (const auto &cabinet : group.cabinets)
        united |= cabinet.rect;
    for (const auto &child : group.groups)
        united |= unitedGroupRect(child);
    return united;
}

} // namespace

CGraphicsPortItem *CLayoutBuilder::build(const CabinetLayout::CabinetPort &record, const IPortStates &states)
{
    m_ranked.clear();
    auto *port = new CGraphicsPortItem(record, states);
    for (const Group &group : record.groups) {
        if (group.isLoose())
            buildMembers(group, *port);
        else
            buildGroup(group, *port);
    }
    wire(*port);
    port->updateBounds();
    return port;
}

void CLayoutBuilder::buildGroup(const Group &record, QGraphicsItem &parent)
{
    const QUuid uuid = m_index.contains(record.uuid) ? QUuid() : record.uuid;
    auto *group = new CGraphicsGroupItem(uuid, CCabinetRect::fromRecord(unitedGroupRect(record)), &parent);
    group->setName(record.name);
    enter(*group);
    buildMembers(record, *group);
}

void CLayoutBuilder::buildMembers(const Group &record, QGraphicsItem &parent)
{
    for (const auto &cabinetRecord : record.cabinets) {
        auto cabinet = cabinetRecord;
        if (m_index.contains(cabinet.uuid))
            cabinet.uuid = QUuid();
        cabinet.group =
            parent.type() == GroupItemKind ? static_cast<CGraphicsItemBase &>(parent).uuid() : QUuid();
        auto *item = new CGraphicsCabinetItem(cabinet, &parent);
        enter(*item);
        if (cabinet.rank >= 0)
            m_ranked << qMakePair(cabinet.rank, item);
    }
    for (const Group &group : record.groups)
        buildGroup(group, parent);
}

void CLayoutBuilder::enter(CGraphicsItemBase &item)
{
    const QUuid uuid = item.uuid();
    m_index.insert(uuid, &item);
    item.setOrdinal(m_ordinal++);
    if (!m_selected.isEmpty() && m_selected.contains(uuid))
        m_toSelect << &item;
}

void CLayoutBuilder::wire(CGraphicsPortItem &port)
{
    std::stable_sort(m_ranked.begin(), m_ranked.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    for (const auto &ranked : qAsConst(m_ranked))
        port.chain().append(*ranked.second);
}
