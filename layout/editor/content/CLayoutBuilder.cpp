// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CLayoutBuilder.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditorScene.h"
#include "layout/geometry/CCabinetRect.h"

#include <algorithm>

namespace {

using GroupRecord = CabinetLayout::CabinetPort::CabinetGroup;

bool hasEmptyGroup(const QVector<GroupRecord> &groups)
{
    return std::any_of(groups.begin(), groups.end(), [](const GroupRecord &group) {
        return (group.cabinets.isEmpty() && group.cabinetCount() == 0) || hasEmptyGroup(group.groups);
    });
}

void dropEmptyGroups(QVector<GroupRecord> &groups)
{
    for (GroupRecord &group : groups)
        dropEmptyGroups(group.groups);
    groups.erase(std::remove_if(groups.begin(), groups.end(),
                                [](const GroupRecord &group) {
                                    return group.cabinets.isEmpty() && group.groups.isEmpty();
                                }),
                 groups.end());
}

} // namespace

CabinetLayout::CabinetPort CLayoutBuilder::withoutEmptyGroups(const CabinetLayout::CabinetPort &record)
{
    if (!hasEmptyGroup(record.groups))
        return record;
    CabinetLayout::CabinetPort shown = record;
    dropEmptyGroups(shown.groups);
    return shown;
}

CGraphicsPortItem *CLayoutBuilder::build(const CabinetLayout::CabinetPort &record)
{
    m_ranked.clear();
    auto *port = new CGraphicsPortItem(record, m_states, m_scene);
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
    const QRectF bounds = CCabinetRect::fromRecord(record.boundingRect());
    auto *group = new CGraphicsGroupItem(freeIdentity(record.uuid), bounds, &parent);
    group->setName(record.name);
    enter(*group);
    buildMembers(record, *group);
}

void CLayoutBuilder::buildMembers(const Group &record, QGraphicsItem &parent)
{
    const QUuid group =
        parent.type() == GroupItemKind ? static_cast<CGraphicsItemBase &>(parent).uuid() : QUuid();
    for (const auto &cabinetRecord : record.cabinets) {
        auto cabinet = cabinetRecord;
        cabinet.uuid = freeIdentity(cabinet.uuid);
        cabinet.group = group;
        auto *item = new CGraphicsCabinetItem(cabinet, &parent);
        enter(*item);
        if (cabinet.rank >= 0)
            m_ranked << qMakePair(cabinet.rank, item);
    }
    for (const Group &child : record.groups)
        buildGroup(child, parent);
}

QUuid CLayoutBuilder::freeIdentity(const QUuid &uuid) const
{
    QUuid free = uuid;
    while (free.isNull() || m_scene.editedItem(free))
        free = QUuid::createUuid();
    return free;
}

void CLayoutBuilder::enter(CGraphicsItemBase &item)
{
    item.setOrdinal(m_ordinal++);
    m_scene.enterEdited(item);
}

void CLayoutBuilder::wire(CGraphicsPortItem &port)
{
    std::stable_sort(m_ranked.begin(), m_ranked.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    for (const auto &ranked : qAsConst(m_ranked))
        port.chain().append(*ranked.second);
}
