// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Wall.h"

#include "host/projects/CWallBuilder.h"
#include "layout/drawing/CPortColors.h"

namespace {

using Port = CabinetLayout::CabinetPort;
using Group = Port::CabinetGroup;

constexpr int GroupSize = 128; ///< cabinets
constexpr int LockedEvery = 8; ///< ports

Group groupOf(const QVector<Port::Cabinet> &cabinets)
{
    Group group;
    group.uuid = QUuid::createUuid();
    group.cabinets = cabinets;
    for (Port::Cabinet &cabinet : group.cabinets)
        cabinet.group = group.uuid;
    return group;
}

/// Follows the chain, so that a group's cabinets lie together.
QVector<Group> nestedGroups(const QVector<Port::Cabinet> &cabinets)
{
    QVector<Group> groups;
    for (int first = 0; first < cabinets.size(); first += 2 * GroupSize) {
        Group pair = groupOf({});
        pair.groups = {groupOf(cabinets.mid(first, GroupSize)),
                       groupOf(cabinets.mid(first + GroupSize, GroupSize))};
        groups << pair;
    }
    return groups;
}

/// Cabinets of 128 pixels need a larger canvas than can be made here.
void resize(Port &port, int side)
{
    for (Group &group : port.groups) {
        for (Port::Cabinet &cabinet : group.cabinets)
            cabinet.rect = QRect(cabinet.rect.topLeft() / Wall::SmallSide * side, QSize(side, side));
    }
}

} // namespace

LayoutData Wall::data(int ports, bool grouped, int side)
{
    LayoutData data;
    data.layout = CWallBuilder::build(CWallBuilder::plan(CWallBuilder::Full)).value();
    data.processor = data.layout.processor;
    data.layout.ports.resize(ports);
    for (Port &port : data.layout.ports) {
        port.color = CPortColors::fill(port.index);
        port.locked = port.index % LockedEvery == 0;
        resize(port, side);
        if (grouped)
            port.groups = nestedGroups(port.getAllCabinets());
    }
    data.bounds = data.layout.boundingRect();
    data.canvas = data.bounds.size();
    return data;
}

LayoutData Wall::inGroups(int ports, int size)
{
    LayoutData wall = data(ports);
    for (Port &port : wall.layout.ports) {
        const QVector<Port::Cabinet> cabinets = port.getAllCabinets();
        port.groups.clear();
        for (int first = 0; first < cabinets.size(); first += size)
            port.groups << groupOf(cabinets.mid(first, size));
    }
    return wall;
}

ProcessorTree::ProcessorNode Wall::processor(const LayoutData &data)
{
    ProcessorTree::ProcessorNode node;
    node.uuid = data.processor;
    return node;
}

QColor CNoPortStates::portColor(int port) const
{
    return CPortColors::fill(port);
}
