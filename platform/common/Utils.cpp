// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/common/Utils.h"

#include <algorithm>

namespace {

/// The border that two rectangles share; null if they share none.
QLineF sharedBorder(const QRect &a, const QRect &b)
{
    const int top = std::max(a.top(), b.top());
    const int bottom = std::min(a.bottom(), b.bottom()) + 1;
    const int left = std::max(a.left(), b.left());
    const int right = std::min(a.right(), b.right()) + 1;
    if (left == right && top < bottom)
        return QLineF(left, top, left, bottom);
    if (top == bottom && left < right)
        return QLineF(left, top, right, top);
    return {};
}

/// Pairs of indices, the smaller first, of rectangles of which one begins on an axis where the other ends.
void appendNeighbours(const QVector<QRect> &rects, int (QRect::*begin)() const, int (QRect::*end)() const,
                      QVector<QPair<int, int>> &pairs)
{
    QVector<QPair<int, int>> begins; // with the index
    begins.reserve(rects.size());
    for (int i = 0; i < rects.size(); ++i)
        begins << qMakePair((rects[i].*begin)(), i);
    std::sort(begins.begin(), begins.end());
    for (int i = 0; i < rects.size(); ++i) {
        const int place = (rects[i].*end)() + 1;
        auto next = std::lower_bound(begins.cbegin(), begins.cend(), qMakePair(place, 0));
        for (; next != begins.cend() && next->first == place; ++next) {
            if (!sharedBorder(rects[i], rects[next->second]).isNull())
                pairs << qMakePair(std::min(i, next->second), std::max(i, next->second));
        }
    }
}

} // namespace

QVector<QLineF> Utils::calculateAdjacentLines(const QVector<QRect> &rects)
{
    QVector<QLineF> lines;
    QVector<QPair<int, int>> pairs;
    appendNeighbours(rects, &QRect::left, &QRect::right, pairs);
    appendNeighbours(rects, &QRect::top, &QRect::bottom, pairs);
    std::sort(pairs.begin(), pairs.end());
    for (const QPair<int, int> &pair : qAsConst(pairs))
        lines << sharedBorder(rects[pair.first], rects[pair.second]);
    return lines;
}
