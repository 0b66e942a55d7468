// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QTransform>
#include <QVector>

/// How a part of the wall lies on the paper. The back view mirrors places, never texts and hatchings.
struct SPlacing
{
    QRectF source;    ///< of the wall, millimetres as seen from the front
    QPointF corner;   ///< upper left on the paper, millimetres
    double scale = 1; ///< millimetres of paper per millimetre of wall
    bool back = false;

    QTransform transform() const
    {
        const double x = back ? source.right() : source.left();
        const double across = back ? -scale : scale;
        return QTransform(across, 0, 0, scale, corner.x() - x * across, corner.y() - source.top() * scale);
    }
    QPointF map(const QPointF &point) const { return transform().map(point); }
    QRectF map(const QRectF &rect) const { return transform().mapRect(rect); }
    QVector<QLineF> map(const QVector<QLineF> &lines) const
    {
        QVector<QLineF> mapped;
        for (const QLineF &line : lines)
            mapped << transform().map(line);
        return mapped;
    }
    QRectF target() const { return QRectF(corner, source.size() * scale); }
};
