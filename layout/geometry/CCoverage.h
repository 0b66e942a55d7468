// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRectF>
#include <QVector>

/// Tells whether rectangles cover another one.
class CCoverage final
{
public:
    /// Returns whether the union of @p rects leaves no part of @p area uncovered. O(n log n).
    static bool covers(const QVector<QRectF> &rects, const QRectF &area);
};
