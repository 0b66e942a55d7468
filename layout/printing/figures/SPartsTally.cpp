// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/figures/SPartsTally.h"

#include "layout/printing/figures/CableRoutes.h"

#include <algorithm>

namespace {

void addCables(SPartsTally &tally, const SPlanPort &port, const SPlanProcessor &processor, bool several)
{
    const auto placeOf = [&](int place) { return processor.cabinets.at(port.chain.at(place)).place(); };
    const auto count = [&](const SCableRun &run, int SPartsTally::SCable::*kind, const auto &wayOf) {
        ++(tally.cables[run.stock].*kind);
        ++(tally.all.*kind);
        if (run.stock > 0)
            return;
        const QString number = QString::number(port.index + 1);
        const QString name = several ? SPartsTally::tr("%1, port %2").arg(processor.source.node.name, number)
                                     : SPartsTally::tr("port %1").arg(number);
        tally.tooLong << QStringLiteral("%1, %2").arg(name, wayOf());
    };
    if (port.chain.isEmpty())
        return;
    count(port.feed, &SPartsTally::SCable::feeds,
          [&] { return SPartsTally::tr("feed to %1").arg(placeOf(0)); });
    for (int i = 0; i < port.hops.size(); ++i)
        count(port.hops.at(i), &SPartsTally::SCable::hops,
              [&] { return SPartsTally::tr("%1 to %2").arg(placeOf(i), placeOf(i + 1)); });
    if (port.looped)
        count(port.loop, &SPartsTally::SCable::loops,
              [&] { return SPartsTally::tr("loop from %1").arg(placeOf(port.chain.size() - 1)); });
}

/// Fills circuits with the cabinets of a port along their wiring. One without wiring has its own circuit.
void addCircuits(SPartsTally::SCircuits &circuits, const SPlanPort &port, const SPlanProcessor &processor,
                 const SPrintPlan &plan)
{
    const PrintConfig::SSupply &supply = plan.config.supply;
    const qint64 most = qint64(supply.volts) * supply.circuitAmperes * supply.usablePercent / 100;
    const QVector<int> cabinets = port.chain + port.unwired;
    qint64 watts = 0;
    int fed = 0; // by the circuit that goes on
    for (int i = 0; i < cabinets.size(); ++i) {
        const int own = plan.types.at(processor.cabinets.at(cabinets.at(i)).type).wattsMaximum;
        if (own <= 0 || own > most) {
            ++circuits.unknown;
            fed = 0; // what follows it does not follow what is before it
            continue;
        }
        const bool fits = i < port.chain.size() && fed > 0 && watts + own <= most;
        circuits.count += fits ? 0 : 1;
        circuits.links += fits ? 1 : 0;
        fed = fits ? fed + 1 : 1;
        watts = fits ? watts + own : own;
        circuits.mostCabinets = std::max(circuits.mostCabinets, fed);
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
            addCables(tally, laid(port, processor, plan), processor, plan.processors.size() > 1);
            addCircuits(tally.circuits, port, processor, plan);
        }
        for (const SPlanCabinet &cabinet : processor.cabinets)
            ++tally.cabinets[cabinet.type];
    }
    return tally;
}

QString SPartsTally::warning() const
{
    constexpr int MostNamed = 20;
    if (tooLong.isEmpty())
        return {};
    QString named = tooLong.mid(0, MostNamed).join(QStringLiteral("; "));
    if (tooLong.size() > MostNamed)
        named = tr("%1; and %2 more").arg(named).arg(tooLong.size() - MostNamed);
    return tr("signal cables longer than the longest in stock: %1").arg(named);
}

int SPartsTally::spares(int needed, int percent)
{
    return int((qint64(needed) * percent + 99) / 100);
}
