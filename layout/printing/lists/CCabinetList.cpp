// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/lists/CCabinetList.h"

#include "layout/printing/lists/ListSheets.h"
#include "layout/printing/sheets/CTableFlow.h"
#include "layout/printing/sheets/SheetNumbers.h"

#include <algorithm>

namespace {

using SheetNumbers::whole;

constexpr double CabinetRow = 4.6;
constexpr double NarrowestTable = 120; ///< with the gap beside it

QVector<STableColumn> cabinetColumns()
{
    const auto right = Qt::AlignRight;
    return {{CCabinetList::tr("No."), 11, right},    {CCabinetList::tr("Type"), 11},
            {CCabinetList::tr("Row"), 11, right},    {CCabinetList::tr("Col."), 11, right},
            {CCabinetList::tr("x, px"), 15, right},  {CCabinetList::tr("y, px"), 15, right},
            {CCabinetList::tr("Pixels"), 22, right}, {CCabinetList::tr("x, mm"), 15.5, right},
            {CCabinetList::tr("y, mm"), 15, right}};
}

STableRow cabinetRow(const SPlanCabinet &cabinet, const SPrintPlan &plan)
{
    STableRow row;
    row.cells = {cabinet.number > 0 ? QString::number(cabinet.number) : SheetNumbers::dash(),
                 plan.types.at(cabinet.type).letter,
                 QString::number(cabinet.row),
                 QString::number(cabinet.column),
                 QString::number(cabinet.pixels.x()),
                 QString::number(cabinet.pixels.y()),
                 QStringLiteral("%1 \u00d7 %2").arg(cabinet.pixels.width()).arg(cabinet.pixels.height()),
                 QString::number(qRound64(cabinet.millimetres.x())),
                 QString::number(qRound64(cabinet.millimetres.y()))};
    return row;
}

STableRow cabinetSum(int cabinets, qint64 pixels)
{
    STableRow row;
    row.kind = STableRow::Sum;
    row.cells = {STableCell(CCabinetList::tr("%1 cabinets, %2 pixels").arg(whole(cabinets), whole(pixels)))};
    return row;
}

STableRow namedSum(STableRow row, const QString &name)
{
    row.cells.first().text = CCabinetList::tr("%1: %2").arg(name, row.cells.first().text);
    return row;
}

STableRow portHeading(const SPlanPort &port)
{
    STableRow row;
    row.kind = STableRow::Heading;
    QString text = CCabinetList::tr("Port %1: %2 cabinets, load %3 %")
                       .arg(port.index + 1)
                       .arg(port.totals.cabinets)
                       .arg(port.load);
    if (!port.unwired.isEmpty())
        text += CCabinetList::tr(", %1 not wired").arg(port.unwired.size());
    row.cells = {STableCell(text)};
    return row;
}

} // namespace

QVector<SSheet> CCabinetList::sheets(const SPrintPlan &plan, int processor, const SSheetArea &area)
{
    const SPlanProcessor &printed = plan.processors.at(processor);
    QVector<STableRow> rows;
    QVector<QPair<int, qint64>> done{{0, 0}}; // cabinets and pixels of the first rows
    QVector<int> portOf;                      // of each row; -1: it is a heading
    for (const SPlanPort &port : printed.ports) {
        if (!port.hasCabinets())
            continue;
        rows << portHeading(port);
        portOf << -1;
        done << done.last();
        for (int index : port.chain + port.unwired) {
            const SPlanCabinet &cabinet = printed.cabinets.at(index);
            const qint64 pixels = qint64(cabinet.pixels.width()) * cabinet.pixels.height();
            rows << cabinetRow(cabinet, plan);
            portOf << port.index;
            done << qMakePair(done.last().first + 1, done.last().second + pixels);
        }
    }
    QVector<STableRow> sums{
        namedSum(cabinetSum(printed.totals.cabinets, printed.totals.pixels), CCabinetList::tr("Total"))};
    if (plan.processors.size() > 1 && processor == plan.processors.size() - 1)
        sums << namedSum(cabinetSum(plan.totals.cabinets, plan.totals.pixels),
                         CCabinetList::tr("All processors"));

    const auto newSheet = [&] {
        return ListSheets::sheet(area, printed, CCabinetList::tr("List of cabinets"),
                                 CCabinetList::tr("Cabinets"),
                                 CCabinetList::tr("%1, in the order of the wiring, counted from the front")
                                     .arg(whole(printed.totals.cabinets)));
    };
    const QRectF body = ListSheets::body(area);
    const int count = std::max(1, int(body.width() / NarrowestTable));
    const QVector<QRectF> columns = ListSheets::columns(body, count);
    const CSheetTable table(ListSheets::fitted(cabinetColumns(), columns.first().width()), CabinetRow);
    CTableFlow flow(newSheet, columns);
    flow.addTable({}, table, rows, sums, [&](int first) {
        STableRow sum = cabinetSum(done.at(first).first, done.at(first).second);
        if (portOf.value(first) >= 0)
            sum.cells.first().text += CCabinetList::tr("; port %1 goes on").arg(portOf.at(first) + 1);
        return sum;
    });
    return flow.sheets();
}
