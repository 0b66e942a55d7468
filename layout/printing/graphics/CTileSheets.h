// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/CWall.h"
#include "layout/printing/graphics/SPlacing.h"
#include "layout/printing/sheets/SSheet.h"
#include "layout/printing/sheets/SSheetArea.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>

/// Lays out the overview of a wall at a true scale, on tiles that are glued together: they overlap, crosses
/// with the same letter coincide, and a bar tells whether the printer keeps the scale.
class CTileSheets final
{
    Q_DECLARE_TR_FUNCTIONS(CTileSheets)

public:
    static constexpr double Overlap = 10; ///< millimetres

    CTileSheets(const CWall &wall, const SSheetArea &area);

    /// The sheets in printing order, row by row; both views alternate. Fails if a cabinet is larger than a
    /// sheet.
    CResult<QVector<SSheet>> sheets() const;

    /// What a tile shows, on the sheet.
    static QRectF field(const SSheetArea &area);
    /// How many tiles a drawing of that length takes.
    static int count(double length, double field);

private:
    SSheet tile(const QVector<SSheetMark> &marks, SSheet::View view, int row, int column) const;
    void drawCrosses(SSheet &sheet, int row, int column) const;
    void drawBar(SSheet &sheet) const;
    /// Rows and columns, at the edges of what the tile shows.
    void drawNames(SSheet &sheet, const SPlacing &placing) const;
    /// Where on the wall @p field is, millimetres of the whole drawing.
    void drawMap(SSheet &sheet, const QRectF &field) const;

    const CWall &m_wall;
    const SSheetArea &m_area;
    const double m_scale;
    const QRectF m_field;
    const int m_columns;
    const int m_rows;
};
