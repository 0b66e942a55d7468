// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRectF>
#include <QVector>

/// Whether rectangles leave a part of another one free.
class CCoverage final
{
public:
    /// Whether the union of @p rects leaves no part of @p area uncovered. O(n log n).
    static bool covers(const QVector<QRectF> &rects, const QRectF &area);
};
