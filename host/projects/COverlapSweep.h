// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <QVector>

/// Finds rectangles that overlap, by a sweep from left to right. Any thread.
class COverlapSweep final
{
public:
    /// Two rectangles that overlap, as indices.
    struct SPair
    {
        int earlier;
        int later;
    };

    /// For each rectangle that overlaps one further left (or equally far left, with a smaller index), returns
    /// one such pair, in ascending order of the later. Empty rectangles overlap nothing.
    static QVector<SPair> pairs(const QVector<QRect> &rects);
};
