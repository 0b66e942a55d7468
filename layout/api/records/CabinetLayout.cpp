// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/CabinetLayout.h"

#include <algorithm>
#include <tuple>

namespace {

using Port = CabinetLayout::CabinetPort;

auto tied(const Port::Cabinet &c)
{
    return std::tie(c.uuid, c.port, c.rect, c.rank, c.type, c.directionFixed, c.custom, c.rects,
                    c.mappingIndex, c.calibrationIndex, c.group, c.receivers, c.blanks);
}

bool sameOriginal(const Port::Cabinet &a, const Port::Cabinet &b)
{
    if (a.original == b.original)
        return true;
    return a.original && b.original && a.original->size == b.original->size &&
           a.original->rects == b.original->rects && a.original->blanks == b.original->blanks;
}

auto tied(const Port::CabinetGroup &g)
{
    return std::tie(g.uuid, g.name, g.cabinets, g.groups);
}

auto tied(const Port &p)
{
    return std::tie(p.index, p.groups, p.color, p.locked, p.redundancy, p.redundancyPort,
                    p.redundancyProcessor, p.mirrored, p.load);
}

void appendAll(const Port::CabinetGroup &group, QVector<Port::Cabinet> &cabinets)
{
    cabinets += group.cabinets;
    for (const Port::CabinetGroup &child : group.groups)
        appendAll(child, cabinets);
}

} // namespace

bool operator==(const Port::Cabinet &a, const Port::Cabinet &b)
{
    return tied(a) == tied(b) && sameOriginal(a, b);
}

bool operator==(const Port::CabinetGroup &a, const Port::CabinetGroup &b)
{
    return tied(a) == tied(b);
}

bool operator==(const CabinetLayout::CabinetPort &a, const CabinetLayout::CabinetPort &b)
{
    return tied(a) == tied(b);
}

bool operator==(const CabinetLayout &a, const CabinetLayout &b)
{
    return a.processor == b.processor && a.ports == b.ports;
}

QVector<Port::Cabinet> CabinetLayout::CabinetPort::CabinetGroup::allCabinets() const
{
    if (groups.isEmpty())
        return cabinets;
    QVector<Cabinet> all;
    all.reserve(cabinetCount());
    appendAll(*this, all);
    return all;
}

int CabinetLayout::CabinetPort::CabinetGroup::cabinetCount() const
{
    int count = cabinets.size();
    for (const CabinetGroup &child : groups)
        count += child.cabinetCount();
    return count;
}

QRect CabinetLayout::CabinetPort::CabinetGroup::boundingRect() const
{
    QRect rect;
    for (const Cabinet &cabinet : cabinets)
        rect |= cabinet.rect;
    for (const CabinetGroup &child : groups)
        rect |= child.boundingRect();
    return rect;
}

QVector<Port::Cabinet> CabinetLayout::CabinetPort::getAllCabinets() const
{
    if (groups.size() == 1)
        return groups.first().allCabinets();
    QVector<Cabinet> all;
    all.reserve(cabinetCount());
    for (const CabinetGroup &group : groups)
        appendAll(group, all);
    return all;
}

int CabinetLayout::CabinetPort::cabinetCount() const
{
    int count = 0;
    for (const CabinetGroup &group : groups)
        count += group.cabinetCount();
    return count;
}

QVector<Port::Cabinet> CabinetLayout::CabinetPort::looseCabinets() const
{
    QVector<Cabinet> loose;
    for (const CabinetGroup &group : groups) {
        if (group.isLoose())
            loose += group.cabinets;
    }
    return loose;
}

int CabinetLayout::cabinetCount() const
{
    int count = 0;
    for (const CabinetPort &port : ports)
        count += port.cabinetCount();
    return count;
}

const Port *CabinetLayout::port(int index) const
{
    const auto found =
        std::find_if(ports.begin(), ports.end(), [index](const CabinetPort &p) { return p.index == index; });
    return found == ports.end() ? nullptr : &*found;
}

QRect CabinetLayout::boundingRect() const
{
    QRect rect;
    for (const CabinetPort &port : ports) {
        for (const CabinetPort::CabinetGroup &group : port.groups)
            rect |= group.boundingRect();
    }
    return rect;
}
