// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPen>

/// A pen whose width is in device pixels at every scale.
inline QPen cosmeticPen(const QColor &color, qreal width, Qt::PenStyle style = Qt::SolidLine)
{
    QPen pen(color, width, style, Qt::SquareCap, Qt::MiterJoin);
    pen.setCosmetic(true);
    return pen;
}
