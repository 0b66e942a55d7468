// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CAppendPlan.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace {

/// The index of the cell that contains @p cursor, relative to the first one; negative: before it.
int cellIndex(int nearEdge, int size, int cursor)
{
    const int offset = cursor - nearEdge;
    return offset >= 0 ? offset / size : -1 - (-1 - offset) / size;
}

/// The next place on one axis.
int nextPlace(int place, int origin, int pitch, int direction)
{
    const double cells = double(place - origin) / pitch;
    const double next = direction > 0 ? std::floor(cells) + 1 : direction < 0 ? std::ceil(cells) - 1 : cells;
    return origin + int(std::lround(next)) * pitch;
}

} // namespace

QVector<QRect> CAppendPlan::cells(const QRect &first, const QPoint &cursor, int limit)
{
    const int across = cellIndex(first.left(), first.width(), cursor.x());
    const int down = cellIndex(first.top(), first.height(), cursor.y());
    const int columns = std::max(std::min(std::abs(across) + 1, limit), 1);
    const int rows = std::max(std::min(std::abs(down) + 1, limit / columns), 1);
    const QPoint step(across < 0 ? -first.width() : first.width(),
                      down < 0 ? -first.height() : first.height());
    QVector<QRect> cells;
    cells.reserve(columns * rows);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            cells << first.translated(column * step.x(), row * step.y());
    }
    return cells;
}

QPoint CAppendPlan::nextCorner(const QRect &cell, const QPoint &origin, const QPoint &direction)
{
    return {nextPlace(cell.left(), origin.x(), cell.width(), direction.x()),
            nextPlace(cell.top(), origin.y(), cell.height(), direction.y())};
}

int CAppendPlan::pattern(EDirection direction, bool reverse)
{
    static constexpr std::array<int, 4> plain = {1, 6, 0, 5};
    static constexpr std::array<int, 4> reversed = {2, 7, 3, 4};
    return (reverse ? reversed : plain).at(direction);
}

int CAppendPlan::patternAfter(const QRect &tail, const QVector<QRect> &cells)
{
    QRect block;
    for (const QRect &cell : cells)
        block |= cell;
    if (tail.isEmpty()) {
        const bool toLeft = cells.first().left() > block.left();
        const bool upward = cells.first().top() > block.top();
        if (block.width() == cells.first().width())
            return pattern(upward ? Upward : Downward, true);
        return pattern(toLeft ? Leftward : Rightward, upward);
    }
    const QPoint away = block.center() - tail.center();
    if (std::abs(away.x()) >= std::abs(away.y()))
        return pattern(away.x() < 0 ? Leftward : Rightward, away.y() < 0);
    return pattern(away.y() < 0 ? Upward : Downward, away.x() > 0);
}
