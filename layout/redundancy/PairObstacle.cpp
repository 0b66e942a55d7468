// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/PairObstacle.h"

#include "layout/api/access/CHostAccess.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

using Host = ILayoutInterfaceHandler;
using Port = CabinetLayout::CabinetPort;

/// The number of the last port that holds cabinets or is paired.
int lastPortInUse(const CabinetLayout &layout)
{
    int last = 0;
    for (const Port &port : layout.ports) {
        if (port.cabinetCount() > 0 || port.redundancy != Port::NoRedundancy)
            last = std::max(last, port.index + 1);
    }
    return last;
}

} // namespace

QString PairObstacle::of(const ProcessorTree::ProcessorNode &primary,
                         const ProcessorTree::ProcessorNode &redundancy)
{
    const int ports = CHostAccess::call<&Host::maximumPortCount>(redundancy.uuid);
    const int needed = lastPortInUse(CHostAccess::call<&Host::layoutData>(primary.uuid).layout);
    if (ports <= 0 || needed <= ports) // 0: not known
        return {};
    return QCoreApplication::translate("PairObstacle", "%1 has %2 output ports, but %3 uses port %4.")
        .arg(redundancy.displayText())
        .arg(ports)
        .arg(primary.displayText())
        .arg(needed);
}
