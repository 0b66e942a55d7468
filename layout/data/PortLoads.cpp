// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/PortLoads.h"

#include <cmath>

namespace {

using Port = CabinetLayout::CabinetPort;

/// The other port of the pair on the same processor, or null.
const Port *partner(const CabinetLayout &layout, const Port &port)
{
    const bool elsewhere = !port.redundancyProcessor.isNull() && port.redundancyProcessor != layout.processor;
    return elsewhere || port.redundancyPort == port.index ? nullptr : layout.port(port.redundancyPort);
}

} // namespace

int PortLoads::processorLoad(const QVector<Port> &ports)
{
    if (ports.isEmpty())
        return 0;
    double sum = 0;
    for (const Port &port : ports)
        sum += static_cast<double>(port.load);
    const double mean = sum / ports.size();
    const double whole = std::floor(mean);
    constexpr double Dropped = 0.001;
    return static_cast<int>(whole) + (mean - whole > Dropped ? 1 : 0);
}

const Port *PortLoads::loadBearer(const CabinetLayout &layout, int port)
{
    const Port *own = layout.port(port);
    if (!own || own->redundancy != Port::Redundant)
        return own;
    const Port *primary = partner(layout, *own);
    return primary ? primary : own;
}

int PortLoads::loadFollower(const CabinetLayout &layout, int port)
{
    const Port *own = layout.port(port);
    const Port *other = own && own->redundancy == Port::Primary ? partner(layout, *own) : nullptr;
    return other ? other->index : -1;
}
