// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPoint>
#include <QRect>
#include <QVector>

/// Computes where appended cabinets are placed, and the snake pattern that wires them. Canvas pixels.
class CAppendPlan final
{
public:
    /// The side of the port's last cabinet on which the new ones are; the signal continues in that direction.
    enum EDirection { Leftward = 0, Upward = 1, Rightward = 2, Downward = 3 };

    /// The grid of cells of the size of @p first, its first cell, that reaches from there to @p cursor;
    /// listed row by row. At least one cell, at most @p limit; rows are left out before columns.
    static QVector<QRect> cells(const QRect &first, const QPoint &cursor, int limit);

    /// The upper left corner of the next cell from @p cell in @p direction (-1, 0 or 1 on each axis), in the
    /// grid of such cells that begins at @p origin. A cell between the lines of the grid comes onto them.
    static QPoint nextCorner(const QRect &cell, const QPoint &origin, const QPoint &direction);

    /// The pattern whose lines run in @p direction. With @p reverse, horizontal lines advance upward and
    /// vertical ones to the right; without, downward and to the left.
    static int pattern(EDirection direction, bool reverse);
    /// The pattern that continues from @p tail, the last cabinet of a chain, into @p cells, beginning with
    /// the line nearest to it. If there is no chain (empty @p tail), it begins at the first cell.
    static int patternAfter(const QRect &tail, const QVector<QRect> &cells);
};
