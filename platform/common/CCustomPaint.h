// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QPainter;
class QRect;

/// Painting that several widgets share. Any thread that may paint.
class CCustomPaint final
{
public:
    /// Fills @p rect, in the painter's coordinates, with squares of 8 units in two dark greys; the pattern
    /// begins at the rectangle's corner. A single texture fill, whatever the size.
    static void paintCheckerBoard(QPainter &painter, const QRect &rect);
};
