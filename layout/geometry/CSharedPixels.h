// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <QVector>

/// Tells at once which of many rectangles overlap others, by drawing them all. Pure arithmetic.
class CSharedPixels final
{
public:
    static constexpr qint64 MostWords = 1 << 21; ///< of 64 pixels, in the plane that is drawn on

    /// For each rectangle, whether it overlaps another one. If the plane, or what is drawn on it, would be
    /// too large: whether it is not empty, as it may.
    static QVector<bool> overlapping(const QVector<QRect> &rects);
};
