// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"
#include "layout/api/records/ProcessorTree.h"

/// Small layouts for tests of the editor, in the form in which the editor returns layouts.
namespace SmallWorlds {

using Port = CabinetLayout::CabinetPort;
using Cabinet = Port::Cabinet;
using Group = Port::CabinetGroup;

constexpr int Side = 128; ///< of a cabinet, in pixels

/// A cabinet in a 32-column grid; each port has its own rows.
inline Cabinet cabinet(int port, int place, int rank)
{
    constexpr int columns = 32;
    Cabinet cabinet;
    cabinet.uuid = QUuid::createUuid();
    cabinet.port = port;
    cabinet.rank = rank;
    cabinet.rect = QRect((place % columns) * Side, (port * columns + place / columns) * Side, Side, Side);
    return cabinet;
}

/// Ungrouped, unwired cabinets.
inline Group loose(int port, int count)
{
    Group group;
    for (int i = 0; i < count; ++i)
        group.cabinets << cabinet(port, i, -1);
    return group;
}

inline Port port(int index, const QVector<Group> &groups)
{
    Port port;
    port.index = index;
    port.groups = groups;
    return port;
}

inline Port wiredPort(int index, int count)
{
    Group group = loose(index, count);
    for (int i = 0; i < count; ++i)
        group.cabinets[i].rank = i;
    return port(index, {group});
}

/// Six cabinets, three of them wired against the order of the records.
inline Port partlyWiredPort(int index)
{
    Group group = loose(index, 6);
    group.cabinets[5].rank = 0;
    group.cabinets[3].rank = 1;
    group.cabinets[0].rank = 2;
    return port(index, {group});
}

inline Group groupOf(QVector<Cabinet> cabinets, const QVector<Group> &groups = {})
{
    Group group;
    group.uuid = QUuid::createUuid();
    for (Cabinet &member : cabinets)
        member.group = group.uuid;
    group.cabinets = cabinets;
    group.groups = groups;
    return group;
}

/// A loose cabinet, and a group that contains a cabinet and a group of two.
inline Port nestedPort(int index)
{
    const Group inner = groupOf({cabinet(index, 2, 0), cabinet(index, 3, 1)});
    Group outer = groupOf({cabinet(index, 40, 2)}, {inner});
    outer.name = QStringLiteral("outer");
    return port(index, {loose(index, 1), outer});
}

/// Wired cabinets in groups of @p size, each pair of groups in a group of its own.
inline Port groupedPort(int index, int count, int size)
{
    const QVector<Cabinet> cabinets = wiredPort(index, count).groups.first().cabinets;
    QVector<Group> outers;
    for (int begin = 0; begin < count; begin += size) {
        if (begin / size % 2 == 0)
            outers << groupOf({});
        outers.last().groups << groupOf(cabinets.mid(begin, size));
    }
    return port(index, outers);
}

/// Two wired cabinets of a type with two receivers each.
inline Port receiverPort(int index)
{
    Port result = wiredPort(index, 2);
    for (Cabinet &cabinet : result.groups[0].cabinets) {
        cabinet.type = SMD5::ofContent("two receivers");
        cabinet.rects = {QRect(0, 0, Side / 2, Side), QRect(Side / 2, 0, Side / 2, Side)};
    }
    return result;
}

inline LayoutData data(const QVector<Port> &ports)
{
    LayoutData data;
    data.processor = QUuid::createUuid();
    data.canvas = QSize(3840, 2160);
    data.layout.processor = data.processor;
    data.layout.ports = ports;
    data.bounds = data.layout.boundingRect();
    return data;
}

inline ProcessorTree::ProcessorNode node(const LayoutData &data)
{
    ProcessorTree::ProcessorNode node;
    node.uuid = data.processor;
    node.name = QStringLiteral("Test");
    return node;
}

} // namespace SmallWorlds
