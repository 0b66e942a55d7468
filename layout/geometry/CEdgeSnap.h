// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLine>
#include <QRect>
#include <QVector>

/// Lets what is dragged catch at the edges of what lies around it. Pure arithmetic; canvas pixels.
class CEdgeSnap final
{
public:
    static constexpr int ScreenReach = 10; ///< pixels of the screen

    /// Moves @p rect by at most @p reach in each direction so that one of its edges meets an edge of a
    /// neighbour.
    static QRect snapped(const QRect &rect, const QVector<QRect> &neighbours, int reach);

    /// A line along each edge of @p rect that is in line with one of a neighbour, as long as both together.
    static QVector<QLine> guides(const QRect &rect, const QVector<QRect> &neighbours);
};
