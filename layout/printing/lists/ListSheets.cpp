// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/lists/ListSheets.h"

#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/SheetMarks.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr double HeadHeight = 13.6;
constexpr double NamePoints = 12;
constexpr double ColumnGap = 6;
constexpr double CellRoom = 3.2; ///< beside the text of a cell

SSheet headed(const SSheetArea &area, const QString &processors, PrintConfig::Views views,
              const QString &title, const QString &name, const QString &beside)
{
    SSheet sheet;
    sheet.title = title;
    sheet.ports = QCoreApplication::translate("ListSheets", "all");
    sheet.processor = processors;
    sheet.view = views == PrintConfig::BackView ? SSheet::Back : SSheet::Front;
    sheet.list = true;
    const QRectF &content = area.content;
    const double most = content.width() / 3;
    const QString shown = CSheetFont::elided(processors, NamePoints, false, most);
    const double width = CSheetFont::width(shown, NamePoints, false);
    const QRectF left = content.adjusted(0, 0, -width - ColumnGap, 0);
    SheetMarks::head(sheet, left, name, beside, false);
    SheetMarks::textAt(sheet, content.right() - width, content.top() + SheetMarks::HeadBase, shown,
                       NamePoints, false, EMark::Title);
    return sheet;
}

} // namespace

SSheet ListSheets::sheet(const SSheetArea &area, const SPlanProcessor &processor, const QString &title,
                         const QString &name, const QString &beside)
{
    return headed(area, processor.name, processor.config.views, title, name, beside);
}

SSheet ListSheets::sheet(const SSheetArea &area, const SPrintPlan &plan, const QString &title,
                         const QString &name, const QString &beside)
{
    return headed(area, names(plan), plan.config.views, title, name, beside);
}

QRectF ListSheets::body(const SSheetArea &area)
{
    return area.content.adjusted(0, HeadHeight, 0, 0);
}

QVector<QRectF> ListSheets::columns(const QRectF &rect, int count)
{
    QVector<QRectF> columns;
    const double width = (rect.width() - (count - 1) * ColumnGap) / count;
    for (int i = 0; i < count; ++i)
        columns << QRectF(rect.left() + i * (width + ColumnGap), rect.top(), width, rect.height());
    return columns;
}

QVector<STableColumn> ListSheets::fitted(QVector<STableColumn> columns, double width)
{
    double sum = 0;
    for (const STableColumn &column : qAsConst(columns))
        sum += column.width;
    for (STableColumn &column : columns)
        column.width *= width / sum;
    return columns;
}

QVector<STableColumn> ListSheets::filled(QVector<STableColumn> columns, const QVector<STableRow> &rows,
                                         int open, double width)
{
    double rest = width;
    for (int i = 0; i < columns.size(); ++i) {
        double &widest = columns[i].width;
        widest = CSheetFont::width(columns.at(i).heading, SheetMarks::NotePoints, true);
        for (const STableRow &row : rows)
            widest =
                std::max(widest, CSheetFont::width(row.cells.value(i).text, SheetMarks::TablePoints, false));
        widest += CellRoom;
        rest -= i == open ? 0 : widest;
    }
    columns[open].width = rest;
    return columns;
}

QString ListSheets::names(const SPrintPlan &plan)
{
    QStringList names;
    for (const SPlanProcessor &processor : plan.processors)
        names << processor.name;
    return names.join(QStringLiteral(", "));
}

QStringList ListSheets::pitchNotes(const SPrintPlan &plan)
{
    QMap<double, QStringList> presumed; // which processors, by pitch
    for (const SPlanProcessor &processor : plan.processors) {
        const auto isPresumed = [&plan](const SPlanCabinet &cabinet) {
            return plan.types.at(cabinet.type).presumed;
        };
        if (std::any_of(processor.cabinets.begin(), processor.cabinets.end(), isPresumed))
            presumed[processor.config.pixelPitch] << processor.name;
    }
    QStringList notes;
    for (auto it = presumed.begin(); it != presumed.end(); ++it) {
        const QString note =
            QCoreApplication::translate(
                "ListSheets",
                "Sizes of cabinets whose type does not tell them: %1 mm from pixel to pixel are presumed.")
                .arg(it.key());
        notes << (presumed.size() == 1 ? note
                                       : QCoreApplication::translate("ListSheets", "%1: %2")
                                             .arg(it->join(QStringLiteral(", ")), note));
    }
    return notes;
}
