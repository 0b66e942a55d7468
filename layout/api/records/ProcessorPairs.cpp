// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/ProcessorPairs.h"

#include <QCoreApplication>

#include <algorithm>

using Port = CabinetLayout::CabinetPort;

int ProcessorPairs::portsHeld(const CabinetLayout &layout)
{
    int held = 0;
    for (const Port &port : layout.ports) {
        if (port.cabinetCount() > 0 || port.redundancy != Port::NoRedundancy)
            held = std::max(held, port.index + 1);
    }
    return held;
}

QString ProcessorPairs::portObstacle(const ProcessorTree::ProcessorNode &primary, const CabinetLayout &layout,
                                     const ProcessorTree::ProcessorNode &redundancy, int ports)
{
    const int needed = portsHeld(layout);
    if (ports <= 0 || needed <= ports)
        return {};
    return QCoreApplication::translate("ProcessorPairs", "%1 has %2 output ports, but %3 uses port %4.")
        .arg(redundancy.displayText())
        .arg(ports)
        .arg(primary.displayText())
        .arg(needed);
}
