// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/editor/random/CPlainStroke.h"

#include <algorithm>
#include <tuple>

QVector<QUuid> CPlainStroke::crossed(const Cells &cells, const QPointF &from, const QPointF &to)
{
    // The lines on which edges lie cut the way into pieces; each piece is in a cabinet or it is not.
    const QPointF step = to - from;
    QVector<qreal> cuts = {0, 1};
    const auto cut = [&cuts](qreal distance, qreal length) {
        if (length != 0 && distance / length > 0 && distance / length < 1)
            cuts << distance / length;
    };
    for (const auto &cell : cells) {
        const QRectF rect(cell.second);
        cut(rect.left() - from.x(), step.x());
        cut(rect.right() - from.x(), step.x());
        cut(rect.top() - from.y(), step.y());
        cut(rect.bottom() - from.y(), step.y());
    }
    std::sort(cuts.begin(), cuts.end());
    cuts.erase(std::unique(cuts.begin(), cuts.end()), cuts.end());
    Cells byPlace = cells;
    std::sort(byPlace.begin(), byPlace.end(), [](const auto &a, const auto &b) {
        const QPoint first = a.second.topLeft();
        const QPoint second = b.second.topLeft();
        return std::make_tuple(first.y(), first.x(), a.first) <
               std::make_tuple(second.y(), second.x(), b.first);
    });
    QVector<QPointF> places;
    for (int i = 0; i + 1 < cuts.size(); ++i)
        places << from + step * ((cuts.at(i) + cuts.at(i + 1)) / 2);
    if (step.isNull())
        return {};
    places << to;
    QVector<QUuid> crossed;
    for (const QPointF &middle : qAsConst(places)) {
        for (const auto &cell : qAsConst(byPlace)) {
            const QRectF rect(cell.second);
            if (middle.x() >= rect.left() && middle.x() < rect.right() && middle.y() >= rect.top() &&
                middle.y() < rect.bottom())
                crossed << cell.first;
        }
    }
    return crossed;
}
