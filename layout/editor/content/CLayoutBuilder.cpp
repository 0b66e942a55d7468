// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CLayoutBuilder.h"

#include "layout/editor/content/ILayoutEntry.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IItemIndex.h"
#include "layout/geometry/CCabinetRect.h"

#include <QLoggingCategory>

#include <algorithm>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(sceneLog, "orvo.layout.scene")

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

CLayoutBuilder::~CLayoutBuilder()
{
    if (m_mended > 0)
        qCWarning(sceneLog, "%d cabinets have sizes of nothing, which were mended.", m_mended);
}

CabinetLayout::CabinetPort CLayoutBuilder::withoutEmptyGroups(const CabinetLayout::CabinetPort &record)
{
    if (!hasEmptyGroup(record.groups))
        return record;
    CabinetLayout::CabinetPort shown = record;
    dropEmptyGroups(shown.groups);
    return shown;
}

QVector<CGraphicsItemBase *> CLayoutBuilder::fill(CGraphicsPortItem &port, const Port &record)
{
    m_ranked.clear();
    Items items;
    for (const Group &group : record.groups) {
        if (group.isLoose())
            addMembers(port, group, port, items);
        else
            items << addGroup(port, group, port);
    }
    wire(port);
    return items;
}

CGraphicsGroupItem *CLayoutBuilder::addGroup(CGraphicsPortItem &port, const Group &record,
                                             QGraphicsItem &parent)
{
    const QRectF bounds = CCabinetRect::fromRecord(record.boundingRect());
    auto *group = new CGraphicsGroupItem(record.uuid, bounds, &parent);
    group->setName(record.name);
    enter(*group);
    Items members;
    addMembers(port, record, m_entry.membersParent(*group, port), members);
    m_entry.enterGroup(*group, members);
    return group;
}

void CLayoutBuilder::addMembers(CGraphicsPortItem &port, const Group &record, QGraphicsItem &parent,
                                Items &members)
{
    for (const auto &cabinetRecord : record.cabinets) {
        auto cabinet = cabinetRecord;
        cabinet.group = QUuid(); // set when it joins a group
        mend(cabinet);
        auto *item = new CGraphicsCabinetItem(std::move(cabinet), &parent);
        enter(*item);
        m_entry.enterCabinet(*item);
        members << item;
        if (cabinetRecord.rank >= 0)
            m_ranked << qMakePair(cabinetRecord.rank, item);
    }
    for (const Group &child : record.groups)
        members << addGroup(port, child, parent);
}

void CLayoutBuilder::enter(CGraphicsItemBase &item)
{
    item.setOrdinal(m_ordinal++);
    m_items.enterNew(item);
}

void CLayoutBuilder::mend(Port::Cabinet &cabinet)
{
    const QRect rect = CCabinetRect::mended(cabinet.rect);
    const bool wrongOriginal = cabinet.original && cabinet.original->size.isEmpty();
    if (rect != cabinet.rect || wrongOriginal)
        ++m_mended;
    cabinet.rect = rect;
    if (wrongOriginal)
        cabinet.original.reset(); // its receivers are then scaled from what they are now
}

void CLayoutBuilder::wire(CGraphicsPortItem &port)
{
    std::stable_sort(m_ranked.begin(), m_ranked.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    QVector<CGraphicsCabinetItem *> cabinets;
    cabinets.reserve(m_ranked.size());
    for (const auto &ranked : qAsConst(m_ranked))
        cabinets << ranked.second;
    m_entry.wire(port, cabinets);
}
