// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CLayoutReader.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"

#include <algorithm>

namespace {

using Group = CabinetLayout::CabinetPort::CabinetGroup;

/// The cabinets and groups directly below @p parent, in the order of their records.
QVector<CGraphicsItemBase *> membersOf(const QGraphicsItem &parent)
{
    QVector<CGraphicsItemBase *> members;
    const QList<QGraphicsItem *> children = parent.childItems();
    members.reserve(children.size());
    for (QGraphicsItem *child : children) {
        if (child->type() == CabinetItemKind || child->type() == GroupItemKind)
            members << static_cast<CGraphicsItemBase *>(child);
    }
    const auto earlier = [](const CGraphicsItemBase *a, const CGraphicsItemBase *b) {
        return a->ordinal() < b->ordinal();
    };
    if (!std::is_sorted(members.begin(), members.end(), earlier))
        std::sort(members.begin(), members.end(), earlier);
    return members;
}

Group readMembers(const QGraphicsItem &parent);

Group readGroup(const CGraphicsItemBase &item)
{
    Group group = readMembers(item);
    group.uuid = item.uuid();
    group.name = item.name();
    return group;
}

Group readMembers(const QGraphicsItem &parent)
{
    Group group;
    const QVector<CGraphicsItemBase *> members = membersOf(parent);
    group.cabinets.reserve(members.size());
    for (const CGraphicsItemBase *member : members) {
        if (member->type() == CabinetItemKind)
            group.cabinets << member->cabinet();
        else
            group.groups << readGroup(*member);
    }
    return group;
}

} // namespace

CabinetLayout::CabinetPort CLayoutReader::read(const CGraphicsPortItem &port)
{
    CabinetLayout::CabinetPort record = port.state();
    Group loose = readMembers(port);
    record.groups = loose.groups;
    loose.groups.clear();
    if (!loose.cabinets.isEmpty())
        record.groups.prepend(loose);
    return record;
}

CabinetLayout::CabinetPort::CabinetGroup CLayoutReader::read(const CGraphicsGroupItem &group)
{
    return readGroup(group);
}
