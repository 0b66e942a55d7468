// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPainter>
#include <QPen>

#include <algorithm>

/// A pen whose width is in device pixels at every scale.
inline QPen cosmeticPen(const QColor &color, qreal width, Qt::PenStyle style = Qt::SolidLine)
{
    QPen pen(color, width, style, Qt::SquareCap, Qt::MiterJoin);
    pen.setCosmetic(true);
    return pen;
}

/// The width of a line, in units of the painter's coordinates, of which a pixel of the view has @p scale. It
/// is a whole number of the screen's own pixels, so that all lines are equally wide also on a screen of 1.25
/// or 1.5 of them a pixel.
inline qreal hairline(const QPainter &painter, qreal scale)
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    return std::max(1, qRound(ratio)) / (ratio * scale);
}
