// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMap>
#include <QPointF>
#include <QRectF>
#include <QVector>

/// The eight handles of a rectangle and what dragging them makes of it. Numbers run clockwise from the top
/// left corner.
class CResizeHandles final
{
public:
    enum Handle { TopLeft, Top, TopRight, Right, BottomRight, Bottom, BottomLeft, Left };
    static constexpr int Count = 8;
    static constexpr int ScreenSide = 12; ///< of a handle, in pixels of the screen

    /// Rectangles of @p side, centred on corners and edges of @p rect; on a small one they are narrower, so
    /// that a third of it stays free in its middle. Edges shorter than three sides get no handle of their
    /// own, so that the corners stay within reach; what is shorter than one side gets none at all.
    static QMap<int, QRectF> handles(const QRectF &rect, qreal side);

    /// Where the handles are shown: half as large, inside @p rect, so that repainting it repaints them.
    static QVector<QRectF> marks(const QRectF &rect, qreal side);

    /// @p rect with the handle's edges moved by @p delta, in whole pixels, each side kept from @p
    /// smallest to @p largest.
    static QRectF resized(const QRectF &rect, int handle, const QPointF &delta, const QSizeF &smallest,
                          const QSizeF &largest);

    static Qt::CursorShape cursor(int handle);

    /// The place of @p part of @p from after @p from has become @p to. Edges fall on whole pixels, so that
    /// parts that tile @p from without gaps also tile @p to; no part becomes narrower than a pixel.
    static QRectF mapped(const QRectF &part, const QRectF &from, const QRectF &to);
};
