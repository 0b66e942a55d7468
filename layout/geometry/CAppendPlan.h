// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPoint>
#include <QRect>
#include <QVector>

/// Where appended cabinets come to lie, and the snake pattern that wires them on. Canvas pixels.
class CAppendPlan final
{
public:
    /// The side of the port's last cabinet on which the new ones lie; the signal continues in that direction.
    enum EDirection { Leftward = 0, Upward = 1, Rightward = 2, Downward = 3 };

    /// The grid of cabinets of @p size that covers the way from @p first, a cell of it, to @p cursor: row by
    /// row from @p first on. At least one; never more than @p limit, for which columns go before rows.
    static QVector<QRect> cells(const QRect &first, const QPoint &cursor, int limit);

    /// The pattern that runs in @p direction: the lines advance upward (leftward and rightward) or to the
    /// right (upward and downward) when @p reverse is set, else downward or to the left.
    static int pattern(EDirection direction, bool reverse);
    /// The pattern that runs on from @p tail, the last cabinet of a chain, into @p cells, which begins at the
    /// side nearest to it. Without a chain (empty @p tail) it begins at the first cell.
    static int patternAfter(const QRect &tail, const QVector<QRect> &cells);
};
