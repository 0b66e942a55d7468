// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/sheets/SSheet.h"

#include <functional>

/// A column of a table.
struct STableColumn
{
    QString heading; ///< a line feed breaks it into two lines
    double width = 0;
    Qt::Alignment alignment = Qt::AlignLeft;
};

/// A cell of a table.
struct STableCell
{
    STableCell(const QString &shown = {})
        : text(shown)
    {
    }
    QString text;
    bool box = false;    ///< a box to be ticked
    bool sample = false; ///< an area with the colour and the hatching of a port
    QColor color;        ///< of the sample
    int hatching = 0;    ///< of the sample
};

/// A row of a table.
struct STableRow
{
    enum Kind {
        Plain,
        Heading, ///< its first cell stands over all columns; never the last one of a sheet
        Sum      ///< bold, set off by a thick line; its first cell extends over empty ones behind it
    };
    QVector<STableCell> cells;
    Kind kind = Plain;
};

/// Lays out tables with ruled lines and repeated headings.
class CSheetTable final
{
public:
    static constexpr double UsualRow = 6.4;

    /// @p rowHeight is that of rows below the heading.
    CSheetTable(const QVector<STableColumn> &columns, double rowHeight);

    double width() const;
    double headHeight() const;
    /// Rows that fit into @p height beside the heading.
    int capacity(double height) const;
    double height(int rows) const { return headHeight() + rows * m_rowHeight; }
    /// Draws the heading and @p rows. Returns the lower edge.
    double draw(SSheet &sheet, const QPointF &topLeft, const QVector<STableRow> &rows) const;

    /// The row that sums the first rows of a table; its first cell is for its name.
    using SumOf = std::function<STableRow(int rows)>;
    /// Splits @p rows into parts of at most as many rows as @p capacityOf says. All but the last end with a
    /// row named "carried over", and all but the first begin with one named "brought forward", unless @p
    /// sumOf is null. @p sums stand behind the last row and are not separated from it. With @p repeats, a
    /// part that goes on below a heading begins with that heading.
    static QVector<QVector<STableRow>> parts(const QVector<STableRow> &rows, const QVector<STableRow> &sums,
                                             const std::function<int(int part)> &capacityOf,
                                             const SumOf &sumOf, bool repeats = false);

private:
    void drawHeading(SSheet &sheet, const QPointF &topLeft) const;
    void drawRow(SSheet &sheet, const QPointF &topLeft, const STableRow &row) const;
    void drawCell(SSheet &sheet, const QRectF &box, const STableCell &cell, const STableColumn &column,
                  bool bold) const;
    void drawLines(SSheet &sheet, const QPointF &topLeft, const QVector<STableRow> &rows) const;
    /// Over how many columns the row's first cell extends.
    int extent(const STableRow &row) const;

    const QVector<STableColumn> m_columns;
    const double m_rowHeight;
};
