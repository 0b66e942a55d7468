// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRectF>
#include <QVector>

/// The sides of rectangles where no other one lies beside them.
class COutline final
{
public:
    enum ESide { Top, Bottom, Left, Right };

    /// A part of a rectangle's side.
    struct SPiece
    {
        ESide side = Top;
        qreal at = 0;   ///< y of a horizontal side, x of a vertical one
        qreal from = 0; ///< where it begins and ends along the other axis
        qreal to = 0;
        int rect = 0; ///< its index

        /// Whether @p next goes on where this one ends.
        bool goesOn(const SPiece &next) const
        {
            return side == next.side && qFuzzyCompare(at + 1, next.at + 1) &&
                   qFuzzyCompare(to + 1, next.from + 1);
        }
    };

    /// Sorted by side, line and place. Of rectangles that overlap the sides inside others count, too. Time
    /// O(n log n) unless very many overlap.
    static QVector<SPiece> of(const QVector<QRectF> &rects);
};
