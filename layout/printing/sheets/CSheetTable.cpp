// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/sheets/CSheetTable.h"

#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/SheetMarks.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace {

constexpr double Padding = 1.4;
constexpr double HeadLine = 3.9;     ///< of a heading
constexpr double HeadPadding = 1.05; ///< above and below
constexpr double ThinLine = 0.18;
constexpr double SumLine = 0.5;
constexpr double HeadPoints = 8;
const QColor headColor(0xe4, 0xe4, 0xe4);

STableRow named(STableRow sum, const QString &name)
{
    sum.kind = STableRow::Sum;
    if (sum.cells.size() == 1)
        sum.cells.first() = QStringLiteral("%1: %2").arg(name, sum.cells.first().text);
    else if (!sum.cells.isEmpty())
        sum.cells.first() = name;
    return sum;
}

/// The heading above the row @p before; none if there is none.
QVector<STableRow> lastHeading(const QVector<STableRow> &rows, int before)
{
    for (int i = before - 1; i >= 0; --i) {
        if (rows.at(i).kind == STableRow::Heading)
            return {rows.at(i)};
    }
    return {};
}

/// How many of the rows from @p first on fill a part with room for @p room of them.
int filled(const QVector<STableRow> &rows, int first, int room)
{
    int count = std::min(room, rows.size() - first);
    while (count > 1 && first + count < rows.size() && rows.at(first + count - 1).kind == STableRow::Heading)
        --count;
    return count;
}

} // namespace

CSheetTable::CSheetTable(const QVector<STableColumn> &columns, double rowHeight)
    : m_columns(columns)
    , m_rowHeight(rowHeight)
{
}

double CSheetTable::width() const
{
    double width = 0;
    for (const STableColumn &column : m_columns)
        width += column.width;
    return width;
}

double CSheetTable::headHeight() const
{
    const bool two = std::any_of(m_columns.begin(), m_columns.end(), [](const STableColumn &column) {
        return column.heading.contains(QLatin1Char('\n'));
    });
    return (two ? 2 : 1) * HeadLine + 2 * HeadPadding;
}

int CSheetTable::capacity(double height) const
{
    return int(std::floor((height - headHeight()) / m_rowHeight + 1e-6));
}

double CSheetTable::draw(SSheet &sheet, const QPointF &topLeft, const QVector<STableRow> &rows) const
{
    drawHeading(sheet, topLeft);
    QPointF at = topLeft + QPointF(0, headHeight());
    for (const STableRow &row : rows) {
        drawRow(sheet, at, row);
        at.ry() += m_rowHeight;
    }
    drawLines(sheet, topLeft, rows);
    return at.y();
}

void CSheetTable::drawHeading(SSheet &sheet, const QPointF &topLeft) const
{
    SheetMarks::fill(sheet, {topLeft, QSizeF(width(), headHeight())}, headColor);
    QPointF at = topLeft;
    for (const STableColumn &column : m_columns) {
        const QStringList lines = column.heading.split(QLatin1Char('\n'));
        double top = topLeft.y() + headHeight() - HeadPadding - lines.size() * HeadLine;
        for (const QString &line : lines) {
            const QRectF box(at.x() + Padding, top, column.width - 2 * Padding, HeadLine);
            const QString shown = CSheetFont::elided(line, HeadPoints, true, box.width());
            if (!shown.isEmpty())
                sheet.marks << SheetMarks::text(box, shown, HeadPoints, true, EMark::TableHead,
                                                column.alignment | Qt::AlignVCenter);
            top += HeadLine;
        }
        at.rx() += column.width;
    }
}

void CSheetTable::drawCell(SSheet &sheet, const QRectF &box, const STableCell &cell,
                           const STableColumn &column, bool bold) const
{
    if (cell.box) {
        const double side = std::min(3.8, box.height() - 1.6);
        QRectF square(0, 0, side, side);
        square.moveCenter(box.center());
        SheetMarks::rectangle(sheet, square, 0.35);
    }
    if (cell.sample) {
        const QRectF area = box.adjusted(0, 1, 0, -1);
        SheetMarks::fill(sheet, area, cell.color, cell.hatching);
        SheetMarks::rectangle(sheet, area, 0.35);
    }
    if (cell.text.isEmpty())
        return;
    const QString shown = CSheetFont::elided(cell.text, SheetMarks::TablePoints, bold, box.width());
    sheet.marks << SheetMarks::text(box, shown, SheetMarks::TablePoints, bold, EMark::TableCell,
                                    column.alignment | Qt::AlignVCenter);
}

void CSheetTable::drawRow(SSheet &sheet, const QPointF &topLeft, const STableRow &row) const
{
    const bool bold = row.kind != STableRow::Plain;
    if (row.kind == STableRow::Heading)
        SheetMarks::fill(sheet, {topLeft, QSizeF(width(), m_rowHeight)}, headColor);
    QPointF at = topLeft;
    for (int i = 0; i < std::min(m_columns.size(), row.cells.size());) {
        STableColumn column = m_columns.at(i);
        const int columns = i == 0 ? extent(row) : 1;
        for (int more = 1; more < columns; ++more)
            column.width += m_columns.at(i + more).width;
        if (columns > 1)
            column.alignment = Qt::AlignLeft;
        const QRectF box(at.x() + Padding, at.y(), column.width - 2 * Padding, m_rowHeight);
        drawCell(sheet, box, row.cells.at(i), column, bold);
        at.rx() += column.width;
        i += columns;
    }
}

int CSheetTable::extent(const STableRow &row) const
{
    if (row.kind == STableRow::Heading || row.cells.size() == 1)
        return m_columns.size();
    int columns = 1;
    while (row.kind == STableRow::Sum && columns < row.cells.size() && row.cells.at(columns).text.isEmpty())
        ++columns;
    return columns;
}

void CSheetTable::drawLines(SSheet &sheet, const QPointF &topLeft, const QVector<STableRow> &rows) const
{
    SSheetStroke thin;
    thin.width = ThinLine;
    SSheetStroke thick;
    thick.width = SumLine;
    const double right = topLeft.x() + width();
    const auto level = [&](SSheetStroke &stroke, double y) {
        stroke.path.moveTo(topLeft.x(), y);
        stroke.path.lineTo(right, y);
    };
    const auto upright = [&](double x, double top, double bottom) {
        thin.path.moveTo(x, top);
        thin.path.lineTo(x, bottom);
    };
    level(thick, topLeft.y());
    double y = topLeft.y() + headHeight();
    level(thick, y);
    for (int i = 0; i < rows.size(); ++i) {
        if (i > 0 && rows.at(i).kind == STableRow::Sum && rows.at(i - 1).kind != STableRow::Sum)
            level(thick, y);
        else if (i > 0)
            level(thin, y);
        y += m_rowHeight;
    }
    level(thick, y);

    upright(topLeft.x(), topLeft.y(), y);
    upright(right, topLeft.y(), y);
    double x = topLeft.x();
    for (int column = 0; column + 1 < m_columns.size(); ++column) {
        x += m_columns.at(column).width;
        double from = topLeft.y(); // of a stretch that no wide cell interrupts
        for (int i = 0; i < rows.size(); ++i) {
            if (column + 1 >= extent(rows.at(i)))
                continue;
            const double top = topLeft.y() + height(i);
            if (top > from)
                upright(x, from, top);
            from = top + m_rowHeight;
        }
        if (y > from)
            upright(x, from, y);
    }
    sheet.marks << thin << thick;
}

QVector<QVector<STableRow>> CSheetTable::parts(const QVector<STableRow> &rows, const QVector<STableRow> &sums,
                                               const std::function<int(int part)> &capacityOf,
                                               const SumOf &sumOf, bool repeats)
{
    QVector<QVector<STableRow>> parts;
    int done = 0;
    for (bool last = false; !last;) {
        QVector<STableRow> part;
        if (done > 0 && sumOf)
            part << named(sumOf(done), QCoreApplication::translate("CSheetTable", "brought forward"));
        if (repeats && done > 0 && done < rows.size() && rows.at(done).kind == STableRow::Plain)
            part += lastHeading(rows, done);
        const int room = std::max(1, capacityOf(parts.size()) - part.size());
        last = done == rows.size() || rows.size() - done + sums.size() <= room;
        // The last rows stay with the sums; a part that could hold the rows but not the sums is split
        // earlier.
        const int most = last ? room : std::max(1, std::min(room - (sumOf ? 1 : 0), rows.size() - done - 1));
        const int count = last ? rows.size() - done : filled(rows, done, most);
        for (int i = 0; i < count; ++i)
            part << rows.at(done + i);
        done += count;
        if (last)
            part << sums;
        else if (sumOf)
            part << named(sumOf(done), QCoreApplication::translate("CSheetTable", "carried over"));
        parts << part;
    }
    return parts;
}
