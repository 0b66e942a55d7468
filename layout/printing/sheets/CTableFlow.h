// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/sheets/CSheetTable.h"

/// Fills columns of sheets with tables and notes from above, and makes new sheets as they are needed.
class CTableFlow final
{
public:
    static constexpr double NoteLine = 4.6; ///< height of a line of notes, millimetres

    /// @p newSheet makes a sheet with its head; @p columns are its columns, the same on every sheet, at least
    /// one.
    CTableFlow(const std::function<SSheet()> &newSheet, const QVector<QRectF> &columns);

    /// A table with its title, which may be empty; see CSheetTable::parts(). Starts in the next column if no
    /// more than its head fits.
    void addTable(const QString &title, const CSheetTable &table, const QVector<STableRow> &rows,
                  const QVector<STableRow> &sums = {}, const CSheetTable::SumOf &sumOf = {},
                  bool repeats = false);
    /// Lines of small letters, broken to the column's width.
    void addNotes(const QStringList &notes);
    /// Goes on in the next column unless nothing is in this one.
    void nextColumn();

    const QVector<SSheet> &sheets() const { return m_sheets; }
    SSheet &sheet() { return m_sheets.last(); }
    /// What is left of the current column.
    QRectF room() const;
    void setTop(double top) { m_top = top; }

private:
    const std::function<SSheet()> m_newSheet;
    const QVector<QRectF> m_columns;
    QVector<SSheet> m_sheets;
    int m_column = 0;
    double m_top = 0; ///< of what comes next
};
