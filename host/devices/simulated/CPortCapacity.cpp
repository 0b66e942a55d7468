// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/CPortCapacity.h"

#include "layout/api/records/PortPairs.h"

#include <algorithm>
#include <limits>

namespace {

using PortGroup = CabinetLayout::CabinetPort::CabinetGroup;

qint64 pixelSum(const PortGroup &group)
{
    qint64 sum = 0;
    for (const CabinetLayout::CabinetPort::Cabinet &cabinet : group.cabinets)
        sum += qint64(cabinet.rect.width()) * cabinet.rect.height();
    for (const PortGroup &inner : group.groups)
        sum += pixelSum(inner);
    return sum;
}

} // namespace

qint64 CPortCapacity::capacity(const SReceiverGeneration &generation, const SSignal &signal)
{
    const qint64 bits = generation.wireBits.value(signal.colorDepth);
    if (bits <= 0 || signal.frameRate <= 0)
        return 0;
    const qint64 pixels = generation.netBitsPerSecond / (signal.frameRate * bits);
    return signal.threeD ? std::min(pixels, ThreeDPixels) : pixels;
}

qint64 CPortCapacity::charged(const SReceiverGeneration &generation, const CabinetLayout::CabinetPort &port)
{
    if (generation.chargesBoundingRect) {
        const QRect bounds = CabinetLayout{QUuid(), {port}}.boundingRect();
        return qint64(bounds.width()) * bounds.height();
    }
    qint64 sum = 0;
    for (const PortGroup &group : port.groups)
        sum += pixelSum(group);
    return sum;
}

int CPortCapacity::percent(qint64 used, qint64 capacity)
{
    if (used <= 0)
        return 0;
    if (capacity <= 0)
        return 101;
    const qint64 rounded = (used * 100 + capacity - 1) / capacity;
    return static_cast<int>(std::min<qint64>(rounded, std::numeric_limits<int>::max()));
}

SPortLoad CPortCapacity::load(const SProcessorKind &kind, const SSignal &signal, qint64 used, qint64 total)
{
    SPortLoad load;
    load.pixels = used;
    load.frameRate = signal.frameRate;
    load.bitsPerPixel = kind.generation.wireBits.value(signal.colorDepth);
    load.bitsPerSecond = kind.generation.netBitsPerSecond;
    load.capacity = capacity(kind.generation, signal);
    load.totalPixels = total;
    load.pixelLimit = kind.pixelLimit;
    load.percent = percent(used, load.capacity);
    if (signal.threeD && load.capacity == ThreeDPixels)
        load.limit = SPortLoad::ThreeD;
    const int ofProcessor = used > 0 && total > kind.pixelLimit ? percent(total, kind.pixelLimit) : 0;
    if (ofProcessor > load.percent) {
        load.percent = ofProcessor;
        load.limit = SPortLoad::ProcessorPixels;
    }
    return load;
}

CabinetLayout::CabinetPort CPortCapacity::carried(const CabinetLayout::CabinetPort &port)
{
    if (port.redundancy != CabinetLayout::CabinetPort::Redundant)
        return port;
    CabinetLayout::CabinetPort mirror = port;
    mirror.groups = {PortGroup()};
    mirror.groups.first().cabinets = port.mirrored;
    return mirror;
}

qint64 CPortCapacity::added(const CabinetLayout::CabinetPort &port, const QUuid &processor, qint64 used)
{
    const bool here = port.redundancyProcessor.isNull() || port.redundancyProcessor == processor;
    return port.redundancy == CabinetLayout::CabinetPort::Redundant && here ? 0 : used;
}

QMap<int, SPortLoad> CPortCapacity::loads(const SProcessorKind &kind, const SSignal &signal,
                                          const CabinetLayout &layout, int portCount)
{
    using Port = CabinetLayout::CabinetPort;
    QMap<int, qint64> used;
    qint64 total = 0;
    for (const Port &port : layout.ports) {
        const auto primary = PortPairs::partner(layout, port, [](const QUuid &) { return CabinetLayout(); });
        const bool follows = port.redundancy == Port::Redundant && primary;
        used[port.index] = charged(kind.generation, follows ? *primary : carried(port));
        if (port.redundancy != Port::Redundant)
            total += used.value(port.index);
    }
    QMap<int, SPortLoad> loads;
    const int highest = layout.ports.isEmpty() ? 0 : layout.ports.last().index + 1;
    for (int index = 0; index < std::max(portCount, highest); ++index) {
        const Port *port = layout.port(index);
        const qint64 own = port && port->redundancy == Port::Redundant
                               ? added(*port, layout.processor, used.value(index))
                               : 0; // the total has the others
        loads[index] = load(kind, signal, used.value(index), total + own);
    }
    return loads;
}
