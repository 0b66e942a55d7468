// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/COverlapGrid.h"

#include <algorithm>
#include <array>

namespace {

// Cells of 8, 64 and 256 pixels. Each rectangle lies in few cells of its level, and a cell holds few of them,
// so that tiny ones are not compared with thousands of others.
constexpr std::array<int, 3> CellShifts{3, 6, 8};
constexpr int MostCompared = 5000;
constexpr quint64 CoordinateMask = (1 << 30) - 1;

int levelOf(const QRect &rect)
{
    const int side = std::max(rect.width(), rect.height());
    return side <= 8 ? 0 : side <= 64 ? 1 : 2;
}

} // namespace

/// Visits the cells of a level that @p rect touches: those of the rectangles of that level, or of smaller
/// ones.
template <typename Visit>
void COverlapGrid::visitCells(const QRect &rect, int level, bool smaller, Visit visit)
{
    const int shift = CellShifts.at(size_t(level));
    const Cell part = Cell(2 * level + (smaller ? 1 : 0)) << 60;
    for (int row = rect.top() >> shift; row <= rect.bottom() >> shift; ++row) {
        for (int column = rect.left() >> shift; column <= rect.right() >> shift; ++column)
            visit(part | (quint64(row) & CoordinateMask) << 30 | (quint64(column) & CoordinateMask));
    }
}

/// Visits the cells that may hold what overlaps @p rect.
template <typename Visit>
void COverlapGrid::visitNear(const QRect &rect, Visit visit)
{
    if (rect.isEmpty())
        return;
    const int own = levelOf(rect);
    if (own > 0)
        visitCells(rect, own, true, visit);
    for (int level = own; level < int(CellShifts.size()); ++level)
        visitCells(rect, level, false, visit);
}

/// Visits the cells in which @p rect is kept.
template <typename Visit>
void COverlapGrid::visitHomes(const QRect &rect, Visit visit)
{
    if (rect.isEmpty())
        return;
    const int own = levelOf(rect);
    for (int level = own; level < int(CellShifts.size()); ++level)
        visitCells(rect, level, level > own, visit);
}

int COverlapGrid::add(const QRect &rect)
{
    int number = m_rects.size();
    if (m_free.isEmpty())
        m_rects << QRect();
    else
        number = m_free.takeLast();
    move(number, rect);
    return number;
}

void COverlapGrid::move(int number, const QRect &rect)
{
    const auto touched = [this](Cell cell) { touch(cell); };
    visitNear(m_rects.at(number), touched);
    visitHomes(m_rects.at(number), [this, number](Cell cell) {
        const auto found = m_cells.find(cell);
        found->remove(number);
        if (found->isEmpty())
            m_cells.erase(found);
    });
    m_rects[number] = rect;
    visitHomes(rect, [this, number](Cell cell) { m_cells[cell].insert(number); });
    visitNear(rect, touched);
}

void COverlapGrid::remove(int number)
{
    move(number, {});
    m_free << number;
}

void COverlapGrid::touch(Cell cell)
{
    if (m_isTouched.contains(cell) || !m_cells.contains(cell))
        return;
    m_isTouched.insert(cell);
    m_touched << cell;
}

QSet<int> COverlapGrid::takeTouched()
{
    if (m_touched.isEmpty())
        return {};
    const Cell cell = m_touched.takeLast();
    m_isTouched.remove(cell);
    return m_cells.value(cell);
}

QVector<QRect> COverlapGrid::overlaps(int number, int most) const
{
    const QRect rect = m_rects.at(number);
    QSet<int> found;
    int compared = 0;
    visitNear(rect, [&](Cell cell) {
        const auto near = m_cells.constFind(cell);
        if (near == m_cells.cend())
            return;
        for (auto other = near->cbegin(); other != near->cend() && found.size() < most; ++other) {
            if (++compared > MostCompared)
                return;
            if (*other != number && m_rects.at(*other).intersects(rect))
                found << *other;
        }
    });
    QVector<QRect> shared;
    for (const int other : qAsConst(found)) {
        const QRect common = m_rects.at(other) & rect;
        if (std::any_of(shared.cbegin(), shared.cend(), [&](const QRect &r) { return r.contains(common); }))
            continue;
        shared.erase(
            std::remove_if(shared.begin(), shared.end(), [&](const QRect &r) { return common.contains(r); }),
            shared.end());
        shared << common;
    }
    return shared;
}
