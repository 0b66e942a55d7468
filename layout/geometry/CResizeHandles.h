// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMap>
#include <QPointF>
#include <QRectF>
#include <QVector>

/// The eight resize handles of a rectangle, and the result of dragging them. Numbered clockwise from the top
/// left corner.
class CResizeHandles final
{
public:
    enum Handle { TopLeft, Top, TopRight, Right, BottomRight, Bottom, BottomLeft, Left };
    static constexpr int Count = 8;
    static constexpr int ScreenSide = 12; ///< of a handle, in screen pixels

    /// Squares of @p side, centred on the corners and edges of @p rect, by handle number. On a small @p rect
    /// they are narrower, so that its middle third stays free. An edge shorter than three sides gets no
    /// handle, so that the corners can be reached; a @p rect shorter than one side gets none at all.
    static QMap<int, QRectF> handles(const QRectF &rect, qreal side);

    /// The visible marks of the handles: half as large, and inside @p rect, so that repainting it repaints
    /// them.
    static QVector<QRectF> marks(const QRectF &rect, qreal side);

    /// @p rect with the handle's edges moved by @p delta, in whole pixels; the result is at least @p smallest
    /// and at most @p largest.
    static QRectF resized(const QRectF &rect, int handle, const QPointF &delta, const QSizeF &smallest,
                          const QSizeF &largest);

    static Qt::CursorShape cursor(int handle);

    /// The rectangle of @p part, a part of @p from, after @p from was resized to @p to. Edges fall on whole
    /// pixels, so that parts that tile @p from without gaps also tile @p to. A part for which no pixel is
    /// left becomes empty.
    static QRectF mapped(const QRectF &part, const QRectF &from, const QRectF &to);
};
