// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CReceiverBorders.h"

#include "platform/common/Utils.h"

#include <algorithm>
#include <tuple>

namespace {

constexpr qreal LeastAreaOfALine = 64; // device pixels
constexpr int MostLines = 20000;       // of one cabinet; a frame with more takes too long

bool leaveGaps(const QVector<QRect> &receivers, const QSize &size)
{
    qint64 covered = 0;
    for (const QRect &receiver : receivers)
        covered += qint64(receiver.width()) * receiver.height();
    return covered < qint64(size.width()) * size.height();
}

QVector<QLineF> sides(const QRect &rect, const QSize &size)
{
    const QRectF r(rect);
    QVector<QLineF> sides;
    if (r.left() > 0)
        sides << QLineF(r.topLeft(), r.bottomLeft());
    if (r.right() < size.width())
        sides << QLineF(r.topRight(), r.bottomRight());
    if (r.top() > 0)
        sides << QLineF(r.topLeft(), r.topRight());
    if (r.bottom() < size.height())
        sides << QLineF(r.bottomLeft(), r.bottomRight());
    return sides;
}

} // namespace

QVector<QLineF> CReceiverBorders::lines(const QVector<QRect> &receivers, const QSize &size)
{
    if (receivers.isEmpty() || 4 * receivers.size() > MostLines)
        return {};
    if (!leaveGaps(receivers, size))
        return Utils::calculateAdjacentLines(receivers);
    QVector<QLineF> lines;
    for (const QRect &receiver : receivers)
        lines += sides(receiver, size);
    const auto key = [](const QLineF &line) {
        return std::make_tuple(line.x1(), line.y1(), line.x2(), line.y2());
    };
    std::sort(lines.begin(), lines.end(),
              [key](const QLineF &a, const QLineF &b) { return key(a) < key(b); });
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end()); // dots drawn twice would fill the gaps
    return lines;
}

bool CReceiverBorders::canBeToldApart(int lines, qreal area)
{
    return lines * LeastAreaOfALine <= area;
}
