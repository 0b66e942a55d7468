// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CEdgeSnap.h"

#include <cstdlib>

namespace {

/// The shift, of at most @p reach, that brings an edge of [low, high] to one of @p edges; 0 if there is none.
int shiftToEdge(int low, int high, const QVector<int> &edges, int reach)
{
    int best = reach + 1;
    for (const int edge : edges) {
        for (const int shift : {edge - low, edge - high}) {
            if (std::abs(shift) < std::abs(best))
                best = shift;
        }
    }
    return std::abs(best) <= reach ? best : 0;
}

} // namespace

QVector<QLine> CEdgeSnap::guides(const QRect &rect, const QVector<QRect> &neighbours)
{
    const auto right = [](const QRect &r) { return r.left() + r.width(); };
    const auto bottom = [](const QRect &r) { return r.top() + r.height(); };
    QVector<QLine> lines;
    for (const int x : {rect.left(), right(rect)}) {
        QRect along;
        for (const QRect &neighbour : neighbours) {
            if (neighbour.left() == x || right(neighbour) == x)
                along |= neighbour;
        }
        if (!along.isNull())
            lines << QLine(x, (along | rect).top(), x, bottom(along | rect));
    }
    for (const int y : {rect.top(), bottom(rect)}) {
        QRect along;
        for (const QRect &neighbour : neighbours) {
            if (neighbour.top() == y || bottom(neighbour) == y)
                along |= neighbour;
        }
        if (!along.isNull())
            lines << QLine((along | rect).left(), y, right(along | rect), y);
    }
    return lines;
}

QRect CEdgeSnap::snapped(const QRect &rect, const QVector<QRect> &neighbours, int reach)
{
    QVector<int> across;
    QVector<int> down;
    for (const QRect &neighbour : neighbours) {
        across << neighbour.left() << neighbour.left() + neighbour.width();
        down << neighbour.top() << neighbour.top() + neighbour.height();
    }
    return rect.translated(shiftToEdge(rect.left(), rect.left() + rect.width(), across, reach),
                           shiftToEdge(rect.top(), rect.top() + rect.height(), down, reach));
}
