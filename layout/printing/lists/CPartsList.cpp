// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/lists/CPartsList.h"

#include "layout/printing/figures/SPartsTally.h"
#include "layout/printing/lists/ListSheets.h"
#include "layout/printing/sheets/CTableFlow.h"
#include "layout/printing/sheets/SheetNumbers.h"

#include <algorithm>
#include <array>

namespace {

using SheetNumbers::dash;
using SheetNumbers::decimal;
using SheetNumbers::orDash;
using SheetNumbers::whole;

constexpr double PartRow = 5.4;
constexpr double TwoPartColumns = 220; ///< millimetres that two columns take

STableRow partSum(const QVector<STableCell> &cells)
{
    STableRow row;
    row.kind = STableRow::Sum;
    row.cells = cells;
    return row;
}

/// Needs and stock lengths of feeds, then of loops.
using SFeedSums = std::array<qint64, 4>;

STableRow feedSum(const QString &name, const SFeedSums &sums)
{
    return partSum({name, {}, whole(sums[0]), whole(sums[1]), {}, whole(sums[2]), whole(sums[3])});
}

/// Adds the tables of one parts list, one after the other.
class CPartsTables final
{
public:
    CPartsTables(const SPrintPlan &plan, CTableFlow &flow, double width)
        : m_plan(plan)
        , m_tally(SPartsTally::of(plan))
        , m_flow(flow)
        , m_width(width)
    {
    }
    void addCabinets();
    void addCables();
    void addPower();
    void addNotes();
    void addFeeds();

private:
    int spares(int needed) const { return SPartsTally::spares(needed, m_plan.config.cables.sparePercent); }

    const SPrintPlan &m_plan;
    const SPartsTally m_tally;
    CTableFlow &m_flow;
    const double m_width;
};

void CPartsTables::addCabinets()
{
    const auto right = Qt::AlignRight;
    const QVector<STableColumn> columns{
        {CPartsList::tr("Type"), 11},           {CPartsList::tr("Name"), 36},
        {CPartsList::tr("kg each"), 16, right}, {CPartsList::tr("Needed"), 16, right},
        {CPartsList::tr("Spare"), 14, right},   {CPartsList::tr("Total"), 14, right},
        {CPartsList::tr("kg"), 19.5, right}};
    QVector<STableRow> rows;
    int allSpares = 0;
    double kilograms = 0;
    for (int i = 0; i < m_plan.types.size(); ++i) {
        const SPlanType &type = m_plan.types.at(i);
        const int needed = m_tally.cabinets.value(i);
        const int spare = spares(needed);
        const double weight = (needed + spare) * type.kilograms;
        allSpares += spare;
        kilograms += weight;
        STableRow row;
        const QString name = type.presumed || m_plan.types.size() > 1 ? QStringLiteral("%1 %2 \u00d7 %3")
                                                                            .arg(type.name)
                                                                            .arg(type.pixels.width())
                                                                            .arg(type.pixels.height())
                                                                      : type.name;
        row.cells = {type.letter,
                     name,
                     type.kilograms > 0 ? decimal(type.kilograms, 1) : dash(),
                     whole(needed),
                     orDash(spare),
                     whole(needed + spare),
                     type.kilograms > 0 ? decimal(weight, 1) : dash()};
        rows << row;
    }
    QVector<STableRow> sums;
    if (rows.size() > 1)
        sums << partSum({CPartsList::tr("Total"),
                         {},
                         {},
                         whole(m_plan.totals.cabinets),
                         orDash(allSpares),
                         whole(m_plan.totals.cabinets + allSpares),
                         decimal(kilograms, 1)});
    m_flow.addTable(CPartsList::tr("Cabinets"), CSheetTable(ListSheets::fitted(columns, m_width), PartRow),
                    rows, sums);
}

void CPartsTables::addCables()
{
    const auto right = Qt::AlignRight;
    const QVector<STableColumn> columns{
        {CPartsList::tr("m"), 16, right},      {CPartsList::tr("Cabinet to cabinet"), 31, right},
        {CPartsList::tr("Feed"), 14, right},   {CPartsList::tr("Loop"), 14, right},
        {CPartsList::tr("Needed"), 18, right}, {CPartsList::tr("Spare"), 16, right},
        {CPartsList::tr("Total"), 17.5, right}};
    QVector<STableRow> rows;
    int allSpares = 0;
    for (auto it = m_tally.cables.begin(); it != m_tally.cables.end(); ++it) {
        const int spare = spares(it->needed());
        allSpares += spare;
        STableRow row;
        row.cells = {SCableRun::metres(it.key(), m_plan.config.cables),
                     orDash(it->hops),
                     orDash(it->feeds),
                     orDash(it->loops),
                     whole(it->needed()),
                     orDash(spare),
                     whole(it->needed() + spare)};
        rows << row;
    }
    const SPartsTally::SCable &all = m_tally.all;
    const STableRow sums =
        partSum({CPartsList::tr("Total"), whole(all.hops), whole(all.feeds), whole(all.loops),
                 whole(all.needed()), whole(allSpares), whole(all.needed() + allSpares)});
    m_flow.addTable(CPartsList::tr("Signal cables by stock length"),
                    CSheetTable(ListSheets::fitted(columns, m_width), PartRow), rows, {sums});
}

void CPartsTables::addPower()
{
    const PrintConfig::SSupply &supply = m_plan.config.supply;
    const SPartsTally::SCircuits &circuits = m_tally.circuits;
    const QVector<STableColumn> columns{{CPartsList::tr("Item"), 70},
                                        {CPartsList::tr("Count"), 16, Qt::AlignRight},
                                        {CPartsList::tr("Each"), 40.5, Qt::AlignRight}};
    const auto row = [](const QString &item, int count, const QString &each) {
        STableRow made;
        made.cells = {item, whole(count), each};
        return made;
    };
    QVector<STableRow> rows;
    const double usable = double(supply.circuitAmperes) * supply.usablePercent / 100;
    rows << row(CPartsList::tr("Circuits of %1 A at %2 V, at most %3 A used")
                    .arg(supply.circuitAmperes)
                    .arg(supply.volts)
                    .arg(decimal(usable, 1)),
                circuits.count,
                circuits.count == 0
                    ? dash()
                    : CPartsList::tr("up to %1 cabinets, %2 A")
                          .arg(circuits.mostCabinets)
                          .arg(decimal(SPlanTotals::amperes(circuits.mostWatts, supply.volts), 1)));
    rows << row(CPartsList::tr("Power cables, cabinet to cabinet"), circuits.links,
                CPartsList::tr("as the signal cables"));
    rows << row(CPartsList::tr("Power cables, supply to first cabinet"), circuits.count,
                CPartsList::tr("no place of supply given"));
    if (circuits.unknown > 0)
        rows << row(CPartsList::tr("Cabinets left out: power unknown or too high"), circuits.unknown, dash());
    m_flow.addTable(CPartsList::tr("Power"), CSheetTable(ListSheets::fitted(columns, m_width), PartRow),
                    rows);
}

void CPartsTables::addNotes()
{
    const PrintConfig::SCables &cables = m_plan.config.cables;
    QStringList stock;
    for (int metres : cables.stock)
        stock << QString::number(metres);
    QStringList notes{
        CPartsList::tr(
            "A circuit feeds cabinets of one port only, one after the other in the order of the wiring."),
        CPartsList::tr("Spares: %1 % of each line, rounded up to whole pieces.").arg(cables.sparePercent),
        CPartsList::tr("Slack: %1 mm from cabinet to cabinet, %2 mm on feed and loop.")
            .arg(whole(cables.hopSlack), whole(cables.feedSlack)),
        CPartsList::tr("Stock, m: %1. A need equal to a stock length takes it.")
            .arg(stock.join(QStringLiteral(", "))),
        CPartsList::tr("Cables run level and upright, from centre to centre.")};
    if (!m_tally.tooLong.isEmpty())
        notes.prepend(CPartsList::tr("WARNING: %1").arg(m_tally.warning()));
    if (!m_plan.totals.weightKnown || !m_plan.totals.maximumKnown)
        notes << CPartsList::tr("Weight or power of some cabinets is not known; they do not count.");
    m_flow.addNotes(notes);
}

void CPartsTables::addFeeds()
{
    const auto right = Qt::AlignRight;
    const QVector<STableColumn> columns{
        {CPartsList::tr("Port"), 13.5, right},        {CPartsList::tr("Feed to\nrow, col."), 24},
        {CPartsList::tr("Need\nmm"), 18, right},      {CPartsList::tr("Stock\nm"), 14, right},
        {CPartsList::tr("Loop from\nrow, col."), 24}, {CPartsList::tr("Need\nmm"), 18, right},
        {CPartsList::tr("Stock\nm"), 14, right}};
    QVector<STableRow> rows;
    QVector<SFeedSums> done{{0, 0, 0, 0}};
    const bool several = m_plan.processors.size() > 1;
    for (const SPlanProcessor &processor : m_plan.processors) {
        const SFeedSums before = done.last();
        if (several) {
            STableRow heading;
            heading.kind = STableRow::Heading;
            heading.cells = {STableCell(processor.name)};
            rows << heading;
            done << done.last();
        }
        for (const SPlanPort &own : processor.ports) {
            if (own.chain.isEmpty())
                continue;
            const SPlanPort port = SPartsTally::laid(own, processor, m_plan);
            const auto place = [&](int index) { return processor.cabinets.at(index).place(); };
            const bool looped = port.looped;
            STableRow row;
            row.cells = {QString::number(port.index + 1),
                         place(port.chain.first()),
                         whole(port.feed.need),
                         SCableRun::metres(port.feed.stock, m_plan.config.cables),
                         looped ? place(port.chain.last()) : dash(),
                         looped ? whole(port.loop.need) : dash(),
                         looped ? SCableRun::metres(port.loop.stock, m_plan.config.cables) : dash()};
            rows << row;
            SFeedSums sums = done.last();
            sums[0] += port.feed.need;
            sums[1] += port.feed.stock;
            sums[2] += port.loop.need;
            sums[3] += port.loop.stock;
            done << sums;
        }
        if (several) {
            SFeedSums own = done.last();
            for (size_t i = 0; i < own.size(); ++i)
                own[i] -= before[i];
            rows << feedSum(CPartsList::tr("Total"), own);
            done << done.last();
        }
    }
    const QString name = several ? CPartsList::tr("All processors") : CPartsList::tr("Total");
    const auto sumOf = [&](int count) { return feedSum(name, done.at(count)); };
    m_flow.addTable(CPartsList::tr("Feed and loop by port"),
                    CSheetTable(ListSheets::fitted(columns, m_width), PartRow), rows, {sumOf(rows.size())},
                    sumOf, true);
    QStringList notes;
    for (const SPlanProcessor &processor : m_plan.processors)
        notes += CPartsList::rackNotes(processor);
    notes.removeDuplicates();
    m_flow.addNotes(notes);
}

} // namespace

QStringList CPartsList::rackNotes(const SPlanProcessor &processor)
{
    const PrintConfig::SRack &rack = processor.config.rack;
    const QString place =
        rack.right
            ? CPartsList::tr("Rack: %1 mm to the right of the wall as seen from the front, on the floor; "
                             "lower edge of the wall %2 mm above it.")
            : CPartsList::tr("Rack: %1 mm to the left of the wall as seen from the front, on the floor; "
                             "lower edge of the wall %2 mm above it.");
    QStringList notes{place.arg(whole(rack.distance), whole(rack.lowerEdge))};
    const bool looped = std::any_of(processor.ports.begin(), processor.ports.end(),
                                    [](const SPlanPort &port) { return port.looped; });
    if (looped)
        notes << CPartsList::tr("Loops end at the processors that the table of ports names, in this rack.");
    return notes;
}

QVector<SSheet> CPartsList::sheets(const SPrintPlan &plan, const SSheetArea &area)
{
    const auto newSheet = [&] {
        return ListSheets::sheet(area, plan, CPartsList::tr("Parts list"), CPartsList::tr("Parts"),
                                 CPartsList::tr("%1 cabinets, %2 ports, spares of %3 %")
                                     .arg(whole(plan.totals.cabinets))
                                     .arg(plan.totals.ports)
                                     .arg(plan.config.cables.sparePercent));
    };
    const QRectF body = ListSheets::body(area);
    const int count = body.width() >= TwoPartColumns ? int(body.width() / (TwoPartColumns / 2)) : 1;
    const QVector<QRectF> columns = ListSheets::columns(body, count);
    CTableFlow flow(newSheet, columns);
    CPartsTables tables(plan, flow, columns.first().width());
    tables.addCabinets();
    tables.addCables();
    tables.addPower();
    tables.addNotes();
    if (count > 1)
        flow.nextColumn();
    tables.addFeeds();
    return flow.sheets();
}
