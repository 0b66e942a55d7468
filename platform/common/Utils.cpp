// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/common/Utils.h"

#include <algorithm>

namespace {

void appendSharedBorder(const QRect &a, const QRect &b, QVector<QLineF> &lines)
{
    const int top = std::max(a.top(), b.top());
    const int bottom = std::min(a.bottom(), b.bottom()) + 1;
    const int left = std::max(a.left(), b.left());
    const int right = std::min(a.right(), b.right()) + 1;
    if (left == right && top < bottom)
        lines << QLineF(left, top, left, bottom);
    else if (top == bottom && left < right)
        lines << QLineF(left, top, right, top);
}

} // namespace

QVector<QLineF> Utils::calculateAdjacentLines(const QVector<QRect> &rects)
{
    QVector<QLineF> lines;
    for (int i = 0; i < rects.size(); ++i) {
        for (int j = i + 1; j < rects.size(); ++j)
            appendSharedBorder(rects[i], rects[j], lines);
    }
    return lines;
}
