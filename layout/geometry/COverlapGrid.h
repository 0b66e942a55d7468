// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QRect>
#include <QSet>
#include <QVector>

/// Keeps rectangles and finds which of them overlap. A change costs what lies near it, not what there is in
/// all. Pure arithmetic.
class COverlapGrid final
{
public:
    static constexpr int MostMarked = 4; ///< overlaps that are marked in one cabinet

    /// Returns the number under which the rectangle is kept; numbers of removed ones are given again.
    int add(const QRect &rect);
    void move(int number, const QRect &rect);
    void remove(int number);
    void clear() { *this = COverlapGrid(); }

    const QRect &rect(int number) const { return m_rects.at(number); }
    /// Whether there are rectangles whose overlaps may have changed since takeTouched() returned them.
    bool hasTouched() const { return !m_touched.isEmpty(); }
    /// Takes some of them: those in one part of the plane.
    QSet<int> takeTouched();
    /// What others share with a rectangle, of @p most of them at most, and nothing twice. Where very many
    /// tiny ones lie near it, not all are looked at.
    QVector<QRect> overlaps(int number, int most) const;

private:
    using Cell = quint64;

    template <typename Visit>
    static void visitCells(const QRect &rect, int level, bool smaller, Visit visit);
    template <typename Visit>
    static void visitNear(const QRect &rect, Visit visit);
    template <typename Visit>
    static void visitHomes(const QRect &rect, Visit visit);
    void touch(Cell cell);

    QVector<QRect> m_rects;
    QVector<int> m_free;
    QHash<Cell, QSet<int>> m_cells;
    QVector<Cell> m_touched;
    QSet<Cell> m_isTouched;
};
