// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/lists/CCoverCables.h"

#include "layout/printing/figures/SPrintPlan.h"
#include "layout/printing/lists/ListSheets.h"
#include "layout/printing/sheets/SheetNumbers.h"

#include <algorithm>

namespace {

using SheetNumbers::orDash;

/// A column of the table of cables.
struct SCableColumn
{
    QString name;
    SPartsTally::SCable cables;
};

/// The lengths, those too long for the stock last; if there are too many, the rarest share a column.
QVector<SCableColumn> cableColumns(const SPartsTally &tally, const PrintConfig &config, int most)
{
    QVector<int> lengths = tally.cables.keys().toVector();
    if (!lengths.isEmpty() && lengths.first() == 0)
        lengths.append(lengths.takeFirst());
    QVector<int> common = lengths;
    std::stable_sort(common.begin(), common.end(), [&tally](int a, int b) {
        return tally.cables.value(a).needed() > tally.cables.value(b).needed();
    });
    if (common.size() > most)
        common.resize(most - 1);
    QVector<SCableColumn> columns;
    SPartsTally::SCable others;
    for (const int metres : qAsConst(lengths)) {
        const SPartsTally::SCable cable = tally.cables.value(metres);
        if (common.contains(metres))
            columns.append({SCableRun::metres(metres, config.cables), cable});
        others.hops += common.contains(metres) ? 0 : cable.hops;
        others.feeds += common.contains(metres) ? 0 : cable.feeds;
        others.loops += common.contains(metres) ? 0 : cable.loops;
    }
    if (others.needed() > 0)
        columns.append({CCoverCables::tr("other"), others});
    return columns;
}

/// The last one is their sum.
QVector<STableRow> cableRows(const SPartsTally &tally, const QVector<SCableColumn> &lengths)
{
    const auto row = [&lengths](const QString &name, auto valueOf) {
        STableRow made;
        made.cells << name;
        for (const SCableColumn &column : lengths)
            made.cells << orDash(valueOf(column.cables));
        return made;
    };
    using SCable = SPartsTally::SCable;
    QVector<STableRow> rows{
        row(CCoverCables::tr("Cabinet to cabinet"), [](const SCable &cable) { return cable.hops; }),
        row(CCoverCables::tr("Feed from the rack"), [](const SCable &cable) { return cable.feeds; })};
    if (tally.all.loops > 0)
        rows << row(CCoverCables::tr("Loop back to the rack"),
                    [](const SCable &cable) { return cable.loops; });
    rows << row(CCoverCables::tr("Total"), [](const SCable &cable) { return cable.needed(); });
    rows.last().kind = STableRow::Sum;
    return rows;
}

} // namespace

void CCoverCables::add(CTableFlow &flow, const SPartsTally &tally, const PrintConfig &config)
{
    constexpr double Label = 34;
    constexpr double Usual = 14; // of a column with numbers, if there is room
    constexpr int MostLengths = 8;
    if (tally.cables.isEmpty())
        return;
    if (flow.room().height() < Height)
        flow.nextColumn();
    QVector<STableRow> rows;
    QVector<STableColumn> columns;
    for (int most = MostLengths; most > 1; --most) { // the most whose numbers have room
        QVector<SCableColumn> lengths = cableColumns(tally, config, most);
        lengths.append({tr("Count"), tally.all});
        rows = cableRows(tally, lengths);
        columns = {{tr("Length, m"), Label}};
        for (const SCableColumn &column : qAsConst(lengths))
            columns.append({column.name, Usual, Qt::AlignRight});
        columns = ListSheets::filled(columns, rows, 0, flow.room().width());
        if (columns.first().width >= Label)
            break;
    }
    const double more = std::max(0.0, columns.first().width - Label) / (columns.size() - 1);
    columns.first().width = Label;
    for (int i = 1; i < columns.size(); ++i)
        columns[i].width = std::max(columns.at(i).width, std::min(Usual, columns.at(i).width + more));
    const STableRow sum = rows.takeLast();
    flow.addTable(tr("Signal cables, slack included"), CSheetTable(columns, 5.6), rows, {sum});
}
