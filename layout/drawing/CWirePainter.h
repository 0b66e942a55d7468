// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLineF>
#include <QRectF>
#include <QVector>

#include <array>

class QPainter;
class QPen;

/// What wiring lines look like. Scales are in device pixels per unit of the painter's coordinates. GUI
/// thread.
class CWirePainter final
{
public:
    /// A line with its arrow head, from exit to entry point.
    static void paint(QPainter &painter, const QLineF &line, qreal scale);
    /// Draws many lines at once, which is cheaper than one by one.
    static void paint(QPainter &painter, const QVector<QLineF> &lines, qreal scale);
    /// The area that paint() covers, whatever the scale.
    static QRectF bounds(const QLineF &line);
    /// Whether a line of that length is drawn without dashes and arrow head.
    static bool isPlain(qreal length, qreal scale);
    /// The tip and the ends of the foot of an arrow head that points along @p direction, which has length 1.
    static std::array<QPointF, 3> arrowHead(const QPointF &foot, const QPointF &direction, qreal length,
                                            qreal halfWidth);
    /// The pen of dashed lines.
    static const QPen &pen();
};
