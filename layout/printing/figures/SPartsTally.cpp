// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/figures/SPartsTally.h"

#include "layout/printing/figures/CableRoutes.h"

#include <algorithm>

namespace {

void addCables(SPartsTally &tally, const SPlanPort &port)
{
    const auto count = [&tally](const SCableRun &run, int SPartsTally::SCable::*kind) {
        ++(tally.cables[run.stock].*kind);
        ++(tally.all.*kind);
    };
    for (const SCableRun &hop : port.hops)
        count(hop, &SPartsTally::SCable::hops);
    if (!port.chain.isEmpty())
        count(port.feed, &SPartsTally::SCable::feeds);
    if (!port.chain.isEmpty() && port.looped)
        count(port.loop, &SPartsTally::SCable::loops);
}

/// Fills circuits with the cabinets of a port in their order.
void addCircuits(SPartsTally::SCircuits &circuits, const SPlanPort &port, const SPlanProcessor &processor,
                 const SPrintPlan &plan)
{
    const PrintConfig::SSupply &supply = plan.config.supply;
    const qint64 most = qint64(supply.volts) * supply.circuitAmperes * supply.usablePercent / 100;
    qint64 watts = 0;
    int cabinets = 0;
    for (int index : port.chain + port.unwired) {
        const int own = plan.types.at(processor.cabinets.at(index).type).wattsMaximum;
        if (own <= 0 || own > most) {
            ++circuits.unknown;
            continue;
        }
        const bool fits = cabinets > 0 && watts + own <= most;
        circuits.count += fits ? 0 : 1;
        circuits.links += fits ? 1 : 0;
        cabinets = fits ? cabinets + 1 : 1;
        watts = fits ? watts + own : own;
        circuits.mostCabinets = std::max(circuits.mostCabinets, cabinets);
        circuits.mostWatts = std::max(circuits.mostWatts, watts);
    }
}

} // namespace

SPlanPort SPartsTally::laid(const SPlanPort &port, const SPlanProcessor &processor, const SPrintPlan &plan)
{
    SPlanPort made = port;
    if (!(processor.config.cables == plan.config.cables))
        CableRoutes::lay(made, processor, plan.config.cables);
    return made;
}

SPartsTally SPartsTally::of(const SPrintPlan &plan)
{
    SPartsTally tally;
    for (const SPlanProcessor &processor : plan.processors) {
        for (const SPlanPort &port : processor.ports) {
            addCables(tally, laid(port, processor, plan));
            addCircuits(tally.circuits, port, processor, plan);
        }
        for (const SPlanCabinet &cabinet : processor.cabinets)
            ++tally.cabinets[cabinet.type];
    }
    return tally;
}

int SPartsTally::spares(int needed, int percent)
{
    return int((qint64(needed) * percent + 99) / 100);
}
