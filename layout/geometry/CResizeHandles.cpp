// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CResizeHandles.h"

#include <algorithm>
#include <cmath>

namespace {

bool movesLeft(int handle)
{
    return handle == CResizeHandles::TopLeft || handle == CResizeHandles::BottomLeft ||
           handle == CResizeHandles::Left;
}
bool movesRight(int handle)
{
    return handle == CResizeHandles::TopRight || handle == CResizeHandles::BottomRight ||
           handle == CResizeHandles::Right;
}
bool movesTop(int handle)
{
    return handle <= CResizeHandles::TopRight;
}
bool movesBottom(int handle)
{
    return handle >= CResizeHandles::BottomRight && handle <= CResizeHandles::BottomLeft;
}

/// One axis: the moving edge, limited so that the side stays between @p least and @p largest.
void moveEdges(qreal &low, qreal &high, bool movesLow, bool movesHigh, qreal delta, qreal least,
               qreal largest)
{
    if (movesLow)
        low = std::min(std::max(std::round(low + delta), high - largest), high - least);
    if (movesHigh)
        high = std::max(std::min(std::round(high + delta), low + largest), low + least);
}

qreal mappedEdge(qreal edge, qreal from, qreal fromSide, qreal to, qreal toSide)
{
    return std::round(to + (edge - from) * toSide / fromSide);
}

} // namespace

QMap<int, QRectF> CResizeHandles::handles(const QRectF &rect, qreal side)
{
    const QPointF centre = rect.center();
    const QPointF places[Count] = {
        rect.topLeft(),     {centre.x(), rect.top()},    rect.topRight(),   {rect.right(), centre.y()},
        rect.bottomRight(), {centre.x(), rect.bottom()}, rect.bottomLeft(), {rect.left(), centre.y()}};
    QMap<int, QRectF> handles;
    if (std::min(rect.width(), rect.height()) < side)
        return handles;
    const QSizeF size(std::min(side, rect.width() * 2 / 3), std::min(side, rect.height() * 2 / 3));
    for (int i = 0; i < Count; ++i) {
        const bool onHorizontalEdge = i == Top || i == Bottom;
        const bool onVerticalEdge = i == Left || i == Right;
        if ((onHorizontalEdge && rect.width() < 3 * side) || (onVerticalEdge && rect.height() < 3 * side))
            continue;
        handles.insert(i, QRectF(places[i] - QPointF(size.width() / 2, size.height() / 2), size));
    }
    return handles;
}

QVector<QRectF> CResizeHandles::marks(const QRectF &rect, qreal side)
{
    QVector<QRectF> marks;
    for (const QRectF &handle : handles(rect, side)) {
        QRectF mark(QPointF(), handle.size() / 2);
        mark.moveCenter(handle.center());
        marks << QRectF(QPointF(qBound(rect.left(), mark.x(), rect.right() - mark.width()),
                                qBound(rect.top(), mark.y(), rect.bottom() - mark.height())),
                        mark.size());
    }
    return marks;
}

QRectF CResizeHandles::resized(const QRectF &rect, int handle, const QPointF &delta, const QSizeF &smallest,
                               const QSizeF &largest)
{
    qreal left = rect.left();
    qreal right = rect.right();
    qreal top = rect.top();
    qreal bottom = rect.bottom();
    moveEdges(left, right, movesLeft(handle), movesRight(handle), delta.x(), smallest.width(),
              largest.width());
    moveEdges(top, bottom, movesTop(handle), movesBottom(handle), delta.y(), smallest.height(),
              largest.height());
    return QRectF(QPointF(left, top), QPointF(right, bottom));
}

Qt::CursorShape CResizeHandles::cursor(int handle)
{
    switch (handle) {
    case TopLeft:
    case BottomRight:
        return Qt::SizeFDiagCursor;
    case TopRight:
    case BottomLeft:
        return Qt::SizeBDiagCursor;
    case Top:
    case Bottom:
        return Qt::SizeVerCursor;
    default:
        return Qt::SizeHorCursor;
    }
}

QRectF CResizeHandles::mapped(const QRectF &part, const QRectF &from, const QRectF &to)
{
    const auto horizontal = [&](qreal x) {
        return mappedEdge(x, from.left(), from.width(), to.left(), to.width());
    };
    const auto vertical = [&](qreal y) {
        return mappedEdge(y, from.top(), from.height(), to.top(), to.height());
    };
    const QPointF corner(horizontal(part.left()), vertical(part.top()));
    const QPointF far(horizontal(part.right()), vertical(part.bottom()));
    return QRectF(corner, far);
}
