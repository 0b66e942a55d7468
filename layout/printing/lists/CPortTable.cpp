// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/lists/CPortTable.h"

#include "layout/printing/graphics/CWall.h"
#include "layout/printing/lists/CPartsList.h"
#include "layout/printing/lists/ListSheets.h"
#include "layout/printing/sheets/CTableFlow.h"
#include "layout/printing/sheets/SheetNumbers.h"

#include <algorithm>

namespace {

using SheetNumbers::dash;
using SheetNumbers::decimal;
using SheetNumbers::orDash;
using SheetNumbers::whole;

constexpr int PowerColumn = 10;
constexpr int WeightColumn = 11;
constexpr int RedundancyColumn = 12;

const QVector<STableColumn> &portColumns()
{
    static const auto right = Qt::AlignRight;
    static const auto middle = Qt::AlignHCenter;
    static const QVector<STableColumn> made{{CPortTable::tr("Port"), 12, right},
                                            {CPortTable::tr("Hatch-\ning"), 16.5, middle},
                                            {CPortTable::tr("Cabi-\nnets"), 12.5, right},
                                            {CPortTable::tr("First\nrow, col."), 17},
                                            {CPortTable::tr("Last\nrow, col."), 17},
                                            {CPortTable::tr("Pixels"), 19.5, right},
                                            {CPortTable::tr("Capacity\npixels"), 19.5, right},
                                            {CPortTable::tr("Load\n%"), 12, right},
                                            {CPortTable::tr("Feed\nm"), 12, right},
                                            {CPortTable::tr("Loop\nm"), 12, right},
                                            {CPortTable::tr("Power\nmax. W"), 17.5, right},
                                            {CPortTable::tr("Weight\nkg"), 17.5, right},
                                            {CPortTable::tr("Redundancy"), 34.5},
                                            {CPortTable::tr("Lock"), 16},
                                            {CPortTable::tr("Wired"), 12, middle},
                                            {CPortTable::tr("Tested"), 12, middle}};
    return made;
}

/// Which columns a table of that width has: all, or without those that the parts list or a pencil can tell.
QVector<int> wantedColumns(double width)
{
    constexpr int Droppable[] = {WeightColumn, PowerColumn, 9, 8, 15, 14}; // loop, feed, tested, wired
    QVector<int> wanted;
    double sum = 0;
    for (int i = 0; i < portColumns().size(); ++i) {
        wanted << i;
        sum += portColumns().at(i).width;
    }
    for (int dropped : Droppable) {
        if (sum <= width + 1)
            break;
        wanted.removeOne(dropped);
        sum -= portColumns().at(dropped).width;
    }
    return wanted;
}

/// Those columns; the names of redundancy take what the others leave.
QVector<STableColumn> columnsFor(const QVector<int> &wanted, double width)
{
    constexpr double Widest = 70;
    double rest = width;
    for (int i : wanted)
        rest -= i == RedundancyColumn ? 0 : portColumns().at(i).width;
    QVector<STableColumn> made;
    for (int i : wanted) {
        made << portColumns().at(i);
        if (i == RedundancyColumn)
            made.last().width = std::min(Widest, rest);
    }
    return made;
}

STableRow picked(const STableRow &row, const QVector<int> &wanted)
{
    STableRow made;
    made.kind = row.kind;
    for (int i : wanted)
        made.cells << row.cells.at(i);
    return made;
}

/// What no type of the cabinets tells is not zero.
QString wattsOf(const SPlanTotals &totals)
{
    return totals.wattsMaximum > 0 || totals.maximumKnown ? whole(totals.wattsMaximum) : dash();
}

QString weightOf(const SPlanTotals &totals)
{
    return totals.kilograms > 0 || totals.weightKnown ? decimal(totals.kilograms, 1) : dash();
}

STableRow portRow(const SPlanPort &port, const CWall &wall)
{
    const auto stock = [&wall](const SCableRun &run) {
        return run.need == 0 ? dash() : SCableRun::metres(run.stock, wall.processor().config.cables);
    };
    const auto &cabinets = wall.cabinets();
    STableRow row;
    row.cells = {QString::number(port.index + 1), {}, whole(port.totals.cabinets)};
    STableCell &sample = row.cells[1];
    sample.sample = port.hasCabinets();
    if (sample.sample) {
        sample.color = wall.fill(port);
        sample.hatching = wall.hatching(port.index);
    }
    row.cells << (port.chain.isEmpty() ? dash() : cabinets.at(port.chain.first()).place());
    row.cells << (port.chain.isEmpty() ? dash() : cabinets.at(port.chain.last()).place());
    row.cells << whole(port.charged) << orDash(port.capacity) << QString::number(port.load)
              << stock(port.feed) << stock(port.loop) << wattsOf(port.totals) << weightOf(port.totals);
    const QString redundancy = port.redundancyText();
    row.cells << (redundancy.isEmpty() ? dash()
                  : port.redundant     ? CPortTable::tr("for %1").arg(redundancy)
                                       : redundancy);
    row.cells << (port.locked ? CPortTable::tr("locked") : dash()) << STableCell() << STableCell();
    row.cells[14].box = true;
    row.cells[15].box = true;
    return row;
}

/// One row for free ports that follow each other.
STableRow freeRow(const SPlanPort &first, const SPlanPort &last)
{
    STableRow row;
    const QString name = first.index == last.index
                             ? QString::number(first.index + 1)
                             : QStringLiteral("%1\u2013%2").arg(first.index + 1).arg(last.index + 1);
    row.cells = {name, {}, QStringLiteral("0"), dash(), dash(), QStringLiteral("0"), orDash(first.capacity)};
    row.cells << QStringLiteral("0") << dash() << dash() << QStringLiteral("0") << QStringLiteral("0.0")
              << dash() << (first.locked ? CPortTable::tr("locked") : dash()) << STableCell() << STableCell();
    return row;
}

/// The sums of ports.
struct SPortSums
{
    SPlanTotals totals;
    int ports = 0;
    int looped = 0;
    int locked = 0;
    qint64 pixels = 0;
    qint64 capacity = 0;
    QVector<int> loads;

    void add(const SPlanPort &port)
    {
        totals.cabinets += port.totals.cabinets;
        totals.wattsMaximum += port.totals.wattsMaximum;
        totals.kilograms += port.totals.kilograms;
        totals.maximumKnown = totals.maximumKnown && port.totals.maximumKnown;
        totals.weightKnown = totals.weightKnown && port.totals.weightKnown;
        ports += port.isUsed() ? 1 : 0;
        looped += port.looped ? 1 : 0;
        locked += port.locked ? 1 : 0;
        pixels += port.added;
        capacity += port.capacity;
        loads << port.load;
    }
    STableRow row(const QString &name) const
    {
        STableRow row;
        row.kind = STableRow::Sum;
        row.cells = {name, {}, whole(totals.cabinets), {}, {}, whole(pixels), whole(capacity)};
        row.cells << whole(SPlanTotals::load(loads)) << STableCell() << STableCell();
        row.cells << wattsOf(totals) << weightOf(totals)
                  << CPortTable::tr("%1 of %2 ports").arg(looped).arg(ports)
                  << CPortTable::tr("%1 locked").arg(locked) << STableCell() << STableCell();
        return row;
    }
};

/// Whether the two are free and have a row in common.
bool areAlike(const SPlanPort &a, const SPlanPort &b)
{
    return !a.isUsed() && !b.isUsed() && a.capacity == b.capacity && a.locked == b.locked;
}

/// What the sums in the table leave out; empty: nothing.
QString leftOut(const SPlanTotals &totals, const QVector<int> &wanted)
{
    const bool power = !totals.maximumKnown && wanted.contains(PowerColumn);
    const bool weight = !totals.weightKnown && wanted.contains(WeightColumn);
    if (power && weight)
        return CPortTable::tr("Power and weight: without cabinets whose type does not tell them.");
    if (power)
        return CPortTable::tr("Power: without cabinets whose type does not tell it.");
    return weight ? CPortTable::tr("Weight: without cabinets whose type does not tell it.") : QString();
}

QStringList portNotes(const SPlanProcessor &processor, const QVector<int> &wanted)
{
    QStringList notes{CPortTable::tr(
        "Load: pixels by capacity, rounded up to whole percent; the total is the mean of all ports.")};
    const SPrintedProcessor &source = processor.source;
    if (source.bitsPerPixel > 0)
        notes.last() += QLatin1Char(' ') + CPortTable::tr("Capacity: %1 bit/s by %2 Hz and %3 bit.")
                                               .arg(whole(source.bitsPerSecond))
                                               .arg(source.frameRate)
                                               .arg(source.bitsPerPixel);
    qint64 pixels = 0;
    for (const SPlanPort &port : processor.ports)
        pixels += port.added;
    if (processor.source.pixelLimit > 0)
        notes << CPortTable::tr("The processor drives %1 pixels at most, %2 are used.")
                     .arg(whole(processor.source.pixelLimit), whole(pixels));
    else
        notes << QString();
    notes.last() += (notes.last().isEmpty() ? QString() : QStringLiteral(" ")) +
                    CPortTable::tr("Cables: stock lengths, slack included.");
    const QString without = leftOut(processor.totals, wanted);
    if (!without.isEmpty())
        notes << without;
    return notes;
}

} // namespace

QVector<SSheet> CPortTable::sheets(const SPrintPlan &plan, const CWall &wall, const SSheetArea &area)
{
    const SPlanProcessor &printed = wall.processor();
    const QVector<int> wanted = wantedColumns(area.content.width());
    QVector<STableRow> rows;
    QVector<int> ports; // up to which each row reaches
    for (int i = 0; i < printed.ports.size(); ++i) {
        int last = i;
        while (last + 1 < printed.ports.size() && areAlike(printed.ports.at(i), printed.ports.at(last + 1)))
            ++last;
        rows << picked(printed.ports.at(i).isUsed() ? portRow(printed.ports.at(i), wall)
                                                    : freeRow(printed.ports.at(i), printed.ports.at(last)),
                       wanted);
        i = last;
        ports << i + 1;
    }
    const auto sumOf = [&](int count) {
        SPortSums sums;
        for (int i = 0; i < ports.value(count - 1); ++i)
            sums.add(printed.ports.at(i));
        return picked(sums.row({}), wanted);
    };
    QVector<STableRow> sums{sumOf(rows.size())};
    sums.last().cells.first() = CPortTable::tr("Total");
    if (plan.processors.size() > 1 && &printed == &plan.processors.last()) {
        SPortSums all;
        for (const SPlanProcessor &other : plan.processors)
            for (const SPlanPort &port : other.ports)
                all.add(port);
        sums << picked(all.row(CPortTable::tr("All processors")), wanted);
    }

    const auto newSheet = [&] {
        return ListSheets::sheet(area, printed, CPortTable::tr("Table of ports"), CPortTable::tr("Ports"),
                                 CPortTable::tr("%1 of %2 in use, %3 Hz, %4 bit")
                                     .arg(printed.totals.ports)
                                     .arg(printed.ports.size())
                                     .arg(printed.source.frameRate)
                                     .arg(printed.source.colorDepth));
    };
    CTableFlow flow(newSheet, {ListSheets::body(area)});
    flow.addTable({}, CSheetTable(columnsFor(wanted, area.content.width()), CSheetTable::UsualRow), rows,
                  sums, sumOf);
    flow.addNotes(portNotes(printed, wanted));
    return flow.sheets();
}
