// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/PortLoads.h"

#include "layout/api/records/LoadSum.h"

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
    QVector<int> loads;
    loads.reserve(ports.size());
    for (const Port &port : ports)
        loads << static_cast<int>(port.load);
    return LoadSum::mean(loads);
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
