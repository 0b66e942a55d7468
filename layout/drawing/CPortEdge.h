// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/geometry/COutline.h"

class QPainter;
struct SPortLook;

/// Draws the edge around the cabinets of a port, inside them: a line in the port's light colour, or red and
/// wider if the port is overloaded. GUI thread.
class CPortEdge final
{
public:
    /// The edge of these cabinets; none of more than a port can have.
    static QVector<COutline::SPiece> of(const QVector<QRectF> &cabinets);
    /// Draws @p pieces of the edge; @p width is that of the port's widest cabinet, scales are in device
    /// pixels per canvas pixel. Redundancy ports and very small ones have no edge.
    static void paint(QPainter &painter, const QVector<COutline::SPiece> &pieces, const SPortLook &look,
                      qreal width, qreal scale, const QRectF &exposed);
};
