// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/COutline.h"

#include <algorithm>
#include <tuple>

namespace {

using Piece = COutline::SPiece;

Piece sideOf(const QRectF &rect, COutline::ESide side, int index)
{
    switch (side) {
    case COutline::Top:
        return {side, rect.top(), rect.left(), rect.right(), index};
    case COutline::Bottom:
        return {side, rect.bottom(), rect.left(), rect.right(), index};
    case COutline::Left:
        return {side, rect.left(), rect.top(), rect.bottom(), index};
    default:
        return {side, rect.right(), rect.top(), rect.bottom(), index};
    }
}

/// Along a line in the order of their ends: sides that do not overlap begin in the same order.
bool isBefore(const Piece &a, const Piece &b)
{
    return std::tie(a.at, a.to) < std::tie(b.at, b.to);
}

QVector<Piece> sidesOf(const QVector<QRectF> &rects, COutline::ESide side)
{
    QVector<Piece> sides;
    sides.reserve(rects.size());
    for (int i = 0; i < rects.size(); ++i)
        sides << sideOf(rects.at(i), side, i);
    std::sort(sides.begin(), sides.end(), isBefore);
    return sides;
}

/// Adds what of @p sides no one of @p opposite touches.
void addFree(QVector<Piece> &pieces, const QVector<Piece> &sides, const QVector<Piece> &opposite)
{
    for (const Piece &side : sides) {
        Piece rest = side;
        Piece begin = side;
        begin.to = side.from;
        auto other = std::upper_bound(opposite.begin(), opposite.end(), begin, isBefore);
        for (;
             other != opposite.end() && other->at <= side.at && other->from < side.to && rest.from < rest.to;
             ++other) {
            if (other->from > rest.from) {
                Piece free = rest;
                free.to = other->from;
                pieces << free;
            }
            rest.from = std::max(rest.from, other->to);
        }
        if (rest.from < rest.to)
            pieces << rest;
    }
}

} // namespace

QVector<COutline::SPiece> COutline::of(const QVector<QRectF> &rects)
{
    QVector<SPiece> pieces;
    for (const auto &[side, opposite] : {std::make_pair(Top, Bottom), std::make_pair(Left, Right)}) {
        const QVector<SPiece> these = sidesOf(rects, side);
        const QVector<SPiece> those = sidesOf(rects, opposite);
        addFree(pieces, these, those);
        addFree(pieces, those, these);
    }
    return pieces;
}
