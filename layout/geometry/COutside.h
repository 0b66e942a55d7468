// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <QRectF>
#include <QSize>
#include <QVector>

/// Finds what of a rectangle lies outside the canvas. Pure arithmetic.
class COutside final
{
public:
    /// Up to four parts, relative to the rectangle's corner; none if @p canvas is empty.
    static QVector<QRectF> parts(const QRect &rect, const QSize &canvas);
};
