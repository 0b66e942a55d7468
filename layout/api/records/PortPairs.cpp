// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/PortPairs.h"

#include <algorithm>

namespace {

using PairPort = PortPairs::Port;

bool cabinetsAgree(const PairPort::Cabinet &a, const PairPort::Cabinet &b)
{
    return a.rect == b.rect && a.type == b.type && a.rects == b.rects && a.blanks == b.blanks;
}

bool areRoles(PairPort::Redundancy a, PairPort::Redundancy b)
{
    return (a == PairPort::Primary && b == PairPort::Redundant) ||
           (a == PairPort::Redundant && b == PairPort::Primary);
}

} // namespace

QVector<PairPort::Cabinet> PortPairs::mirrorOf(const Port &primary)
{
    QVector<Port::Cabinet> mirror;
    const QVector<Port::Cabinet> cabinets = primary.getAllCabinets();
    for (Port::Cabinet cabinet : cabinets) {
        if (cabinet.rank < 0)
            continue;
        cabinet.port = primary.index;
        cabinet.group = QUuid();
        cabinet.mappingIndex = cabinet.calibrationIndex = -1;
        cabinet.receivers.clear(); // these belong to the primary's connection
        mirror << cabinet;
    }
    std::stable_sort(mirror.begin(), mirror.end(),
                     [](const Port::Cabinet &a, const Port::Cabinet &b) { return a.rank < b.rank; });
    return mirror;
}

bool PortPairs::agree(const QVector<Port::Cabinet> &a, const QVector<Port::Cabinet> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), cabinetsAgree);
}

bool PortPairs::cabinetsMatch(const Port &redundancy, const Port &primary)
{
    return agree(redundancy.mirrored, mirrorOf(primary));
}

SPortKey PortPairs::partnerKey(const CabinetLayout &layout, const Port &port)
{
    if (port.redundancy == Port::NoRedundancy)
        return {};
    return {port.redundancyProcessor.isNull() ? layout.processor : port.redundancyProcessor,
            port.redundancyPort};
}

std::optional<PairPort> PortPairs::partner(const CabinetLayout &layout, const Port &port,
                                           const LayoutOf &layoutOf)
{
    const SPortKey key = partnerKey(layout, port);
    if (key.port < 0)
        return std::nullopt;
    const bool own = key.processor == layout.processor;
    const CabinetLayout other = own ? layout : layoutOf(key.processor);
    const Port *found = other.port(key.port);
    if (!found || !areRoles(found->redundancy, port.redundancy))
        return std::nullopt;
    const SPortKey back{found->redundancyProcessor.isNull() ? key.processor : found->redundancyProcessor,
                        found->redundancyPort};
    return back == SPortKey{layout.processor, port.index} ? std::optional<Port>(*found) : std::nullopt;
}

void PortPairs::setPair(Port &port, const QUuid &own, Port::Redundancy role, const SPortKey &other)
{
    const bool paired = role != Port::NoRedundancy;
    port.redundancy = role;
    port.redundancyPort = paired ? other.port : -1;
    port.redundancyProcessor = paired && other.processor != own ? other.processor : QUuid();
    if (role != Port::Redundant)
        port.mirrored.clear();
}

CabinetLayout PortPairs::withPairsOf(CabinetLayout layout, const CabinetLayout &known)
{
    for (Port &port : layout.ports) {
        const Port *own = known.port(port.index);
        if (!own)
            continue;
        port.redundancy = own->redundancy;
        port.redundancyPort = own->redundancyPort;
        port.redundancyProcessor = own->redundancyProcessor;
        port.mirrored = own->mirrored;
    }
    return layout;
}

QVector<int> PortPairs::giveMirrors(CabinetLayout &layout, const LayoutOf &layoutOf)
{
    QVector<int> given;
    const CabinetLayout before = layout;
    for (const Port &port : before.ports) {
        if (port.redundancy != Port::Redundant)
            continue;
        const std::optional<Port> primary = partner(before, port, layoutOf);
        if (!primary || cabinetsMatch(port, *primary))
            continue;
        const auto found = std::find_if(layout.ports.begin(), layout.ports.end(),
                                        [&port](const Port &other) { return other.index == port.index; });
        found->mirrored = mirrorOf(*primary);
        given << port.index;
    }
    return given;
}

void PortPairs::dissolve(Port &port)
{
    Port::CabinetGroup loose;
    loose.cabinets = port.getAllCabinets();
    if (loose.cabinets.isEmpty())
        return;
    for (Port::Cabinet &cabinet : loose.cabinets) {
        cabinet.rank = -1;
        cabinet.group = QUuid();
    }
    port.groups = {loose};
}
