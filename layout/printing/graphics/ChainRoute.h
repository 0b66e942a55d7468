// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/CWall.h"

#include <QPainterPath>
#include <QPolygonF>
#include <QSet>

/// One hop of a chain as it is drawn. Millimetres of the wall as seen from the front.
struct SHop
{
    enum Kind {
        Step,     ///< to a cabinet that adjoins
        Jump,     ///< to another, along the cabinets' borders
        Leaving,  ///< the first stub of a hop too long to be drawn, or off the sheet
        Entering, ///< the second
    };

    Kind kind = Step;
    int from = 0;        ///< place in the chain, from 0; the hop leads to the next
    QPolygonF line;      ///< from centre to centre, or between a centre and a border
    QPointF border;      ///< that the arrow head straddles
    QPointF direction;   ///< of the arrow head; length 1
    bool inside = false; ///< a stub that stays within its cabinet: its arrow head ends or begins at border

    /// The tip of an arrow head of @p length, of which @p beyond is past a border; both as mapped.
    QPointF tip(const QPointF &mappedBorder, const QPointF &mappedDirection, double length,
                double beyond) const
    {
        const double share = !inside ? beyond : kind == Leaving ? 0 : 1;
        return mappedBorder + mappedDirection * length * share;
    }

    /// The chain place of the cabinet that the line touches at its beginning, or of a stub's only one.
    int cabinet() const { return kind == Entering ? from + 1 : from; }
};

/// The way of a port's signal from cabinet to cabinet. The same for both views: the back view mirrors it.
namespace ChainRoute {

constexpr int Farthest = 6; ///< cabinets that a jump is drawn across

/// The hops of @p port that concern the cabinets @p here. A hop to a cabinet that is not here, across more
/// than @p farthest cabinets, or that would cover others has two stubs. @p lane is the distance of jumps that
/// share a border, and of stubs from it unless they lead straight to a cabinet beyond it.
QVector<SHop> hops(const CWall &wall, const SPlanPort &port, const QSet<int> &here, int farthest,
                   double lane);

/// The line of a jump with a bridge of @p radius wherever it crosses another hop.
QPainterPath bridged(const SHop &jump, const QVector<SHop> &all, double radius);

} // namespace ChainRoute
