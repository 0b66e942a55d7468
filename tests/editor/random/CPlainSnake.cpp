// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/editor/random/CPlainSnake.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

CPlainSnake CPlainSnake::ofPattern(int pattern)
{
    const auto isOneOf = [pattern](int a, int b, int c, int d) {
        return pattern == a || pattern == b || pattern == c || pattern == d;
    };
    return {pattern < 4, isOneOf(0, 3, 4, 5), isOneOf(0, 1, 4, 7)};
}

CPlainSnake CPlainSnake::runningOn(const QRect &tail, const QRect &block)
{
    const QPoint away = block.center() - tail.center();
    if (std::abs(away.x()) >= std::abs(away.y()))
        return {true, away.x() >= 0, away.y() >= 0};
    return {false, away.y() >= 0, away.x() > 0};
}

CPlainSnake CPlainSnake::beginningAt(const QRect &first, const QRect &block)
{
    return {true, first.left() == block.left(), first.top() == block.top()};
}

QVector<QUuid> CPlainSnake::order(const Cells &cells) const
{
    QRect bounds;
    QSize cell(INT_MAX, INT_MAX);
    for (const auto &entry : cells) {
        const QRect rect = entry.second;
        bounds |= rect;
        if (qint64(rect.width()) * rect.height() < qint64(cell.width()) * cell.height())
            cell = rect.size();
    }
    const int pitch = m_rows ? cell.height() : cell.width();
    const int extent = m_rows ? bounds.height() : bounds.width();
    const int begin = m_rows ? bounds.top() : bounds.left();
    Cells left = cells;
    QVector<QUuid> order;
    for (int i = 0; i * pitch < extent; ++i) {
        const int place =
            m_advanceForward ? begin + pitch / 2 + i * pitch : begin + extent - pitch / 2 - i * pitch;
        const QRectF strip = m_rows ? QRectF(bounds.left(), place, bounds.width(), 1)
                                    : QRectF(place, bounds.top(), 1, bounds.height());
        Cells line;
        for (const auto &entry : qAsConst(left)) {
            if (QRectF(entry.second).intersects(strip))
                line << entry;
        }
        const bool ascending = (i % 2 == 0) == m_firstForward;
        std::sort(line.begin(), line.end(), [&](const auto &a, const auto &b) {
            const QPointF ca = QRectF(a.second).center();
            const QPointF cb = QRectF(b.second).center();
            const qreal alongA = m_rows ? ca.x() : ca.y();
            const qreal alongB = m_rows ? cb.x() : cb.y();
            if (alongA != alongB)
                return ascending ? alongA < alongB : alongA > alongB;
            const qreal acrossA = m_rows ? ca.y() : ca.x();
            const qreal acrossB = m_rows ? cb.y() : cb.x();
            return acrossA != acrossB ? acrossA < acrossB : a.first < b.first;
        });
        for (const auto &entry : qAsConst(line)) {
            left.removeOne(entry);
            order << entry.first;
        }
    }
    return order;
}
