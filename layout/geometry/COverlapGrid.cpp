// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/COverlapGrid.h"

namespace {

constexpr int CellShift = 8; // cells of 256 pixels: of usual cabinets each lies in few, and a cell holds few
constexpr int MostCompared = 5000; // of tiny ones a cell can hold more, and each would be compared with all

} // namespace

template <typename Visit>
void COverlapGrid::visitCells(const QRect &rect, Visit visit)
{
    if (rect.isEmpty())
        return;
    for (int row = rect.top() >> CellShift; row <= rect.bottom() >> CellShift; ++row) {
        for (int column = rect.left() >> CellShift; column <= rect.right() >> CellShift; ++column)
            visit(Cell(quint32(row)) << 32 | quint32(column));
    }
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
    visitCells(m_rects.at(number), [this, number](Cell cell) {
        m_cells[cell].remove(number);
        touch(cell);
    });
    m_rects[number] = rect;
    visitCells(rect, [this, number](Cell cell) {
        m_cells[cell].insert(number);
        touch(cell);
    });
}

void COverlapGrid::remove(int number)
{
    move(number, {});
    m_free << number;
}

void COverlapGrid::touch(Cell cell)
{
    if (m_isTouched.contains(cell))
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
    const auto found = m_cells.find(cell);
    const QSet<int> numbers = *found;
    if (numbers.isEmpty())
        m_cells.erase(found);
    return numbers;
}

QVector<QRect> COverlapGrid::overlaps(int number, int most) const
{
    const QRect rect = m_rects.at(number);
    QSet<int> found;
    int compared = 0;
    visitCells(rect, [&](Cell cell) {
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
    for (const int other : qAsConst(found))
        shared << (m_rects.at(other) & rect);
    return shared;
}
