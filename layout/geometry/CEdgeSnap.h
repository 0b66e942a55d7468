// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLine>
#include <QRect>
#include <QVector>

/// Snaps a dragged rectangle to the edges of its neighbours. Pure arithmetic; canvas pixels.
class CEdgeSnap final
{
public:
    static constexpr int ScreenReach = 10; ///< screen pixels

    /// Moves @p rect by at most @p reach in each direction so that one of its edges meets an edge of a
    /// neighbour.
    static QRect snapped(const QRect &rect, const QVector<QRect> &neighbours, int reach);

    /// A line for each edge of @p rect that is aligned with an edge of a neighbour, spanning both rectangles.
    static QVector<QLine> guides(const QRect &rect, const QVector<QRect> &neighbours);
};
