// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/SPartView.h"
#include "layout/printing/sheets/SSheet.h"

/// Rulers beside drawings. Rows and columns count from the front, also in the back view.
namespace WallRuler {

/// The columns of a part and their distances in millimetres, above the line at @p bottom.
void drawColumns(SSheet &sheet, const SPartView &view, double bottom);

/// A stretch of the wall with what it is called.
struct SStretch
{
    int ordinal;
    double from; ///< millimetres of the paper
    double to;
};
/// The columns, or rows, that @p cabinets begin in, by place on the paper.
QVector<SStretch> stretches(const CWall &wall, const QVector<int> &cabinets, const SPlacing &placing,
                            bool columns);
/// Names them c1, c2 … or r1, r2 … along the line through @p middle, as many as there is room for.
void drawNames(SSheet &sheet, const QVector<SStretch> &stretches, bool columns, double middle);

} // namespace WallRuler
