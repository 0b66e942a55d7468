// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/sheets/SSheet.h"

#include <QPoint>
#include <QStringList>

/// A tag in the upper right quarter of a cabinet.
struct SCabinetTag
{
    enum Look { Start, End, Plain };
    QStringList wordings; ///< from the longest to the shortest; line feeds separate lines
    Look look = Plain;
};

/// The texts of one cabinet, and what they keep clear of. Millimetres of the paper.
struct SCabinetLabels
{
    QRectF rect;
    QString number;
    QString type;
    QString place;
    QStringList pixel;
    QVector<SCabinetTag> tags;
    QVector<QRectF> obstacles; ///< wires, arrow heads, marks
};

/// Places texts in cabinets: each has its quarter, what does not fit is left out, the number never. It rather
/// moves to another quarter than lies on a wire.
namespace CabinetLabels {

constexpr double SmallestSide = 7; ///< of a cabinet that gets a sheet of its port; smaller ones are split

/// The same where numbers up to @p largest have to fit, @p upright beside a wire from top to bottom.
double smallestSide(int largest, bool upright);

/// The size of the number, in points, with which it keeps clear of the obstacles, or the smallest one.
double numberPoints(const SCabinetLabels &labels);
/// The size class of a cabinet; cabinets of one class have numbers of one size.
double largestNumber(const QRectF &rect);
/// Whether a cabinet has no room for its number.
bool isTooSmall(const SCabinetLabels &labels);
/// The number of such a cabinet, beside it with a line, within @p room and clear of all other texts
/// and of the obstacles.
void placeBeside(SSheet &sheet, const SCabinetLabels &labels, const QRectF &room);
void place(SSheet &sheet, const SCabinetLabels &labels, double numberPoints);

} // namespace CabinetLabels
