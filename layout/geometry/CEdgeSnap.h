// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <QVector>

/// Lets what is dragged catch at the edges of what lies around it. Pure arithmetic; canvas pixels.
class CEdgeSnap final
{
public:
    /// Moves @p rect by at most @p reach in each direction so that one of its edges meets an edge of a
    /// neighbour.
    static QRect snapped(const QRect &rect, const QVector<QRect> &neighbours, int reach);
};
