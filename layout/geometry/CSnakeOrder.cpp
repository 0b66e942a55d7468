// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CSnakeOrder.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// The scan lines of one pattern, seen along its lines (a) and across them (b): rows are scanned along x,
/// across y.
struct SScan
{
    double begin = 0;  // of the bounding rectangle, across the lines
    double extent = 0; // of the bounding rectangle, across the lines
    int pitch = 1;
    bool forward = true;

    double position(int line) const
    {
        const double offset =
            pitch / 2 + double(line) * pitch; // the half pitch is an integer division on purpose
        return forward ? begin + offset : begin + extent - offset;
    }
    int lineCount() const { return extent > 0 ? int(std::ceil(extent / pitch)) : 0; }

    /// The first line whose strip, one unit thick, touches the range from @p low to @p high; -1 if none does.
    int firstTouching(double low, double high) const
    {
        // A strip at p touches when p < high and p + 1 > low. Start one line early: the estimate rounds.
        const double distance = forward ? (low - 1) - begin : begin + extent - high;
        int line = std::max(0, int(std::floor((distance - pitch / 2) / pitch)) - 1);
        for (const int count = lineCount(); line < count; ++line) {
            const double p = position(line);
            if (p < high && p + 1 > low)
                return line;
            if (forward ? p >= high : p + 1 <= low)
                return -1;
        }
        return -1;
    }
};

/// The smallest cell by area, the earliest of equals.
QSizeF smallestCell(const QVector<CSnakeOrder::SCell> &cells)
{
    QSizeF size(2147483647.0, 2147483647.0);
    for (const CSnakeOrder::SCell &cell : cells) {
        if (size.width() * size.height() - cell.rect.width() * cell.rect.height() >= 0.0001)
            size = cell.rect.size();
    }
    return size;
}

QRectF unitedRect(const QVector<CSnakeOrder::SCell> &cells)
{
    QRectF united;
    for (const CSnakeOrder::SCell &cell : cells)
        united |= cell.rect;
    return united;
}

struct STaken
{
    int line;
    double along;
    double across;
    int index;
};

} // namespace

const QVector<CSnakeOrder::SPattern> &CSnakeOrder::patterns()
{
    static const QVector<SPattern> table = {
        {QT_TRANSLATE_NOOP("CSnakeOrder", "LTR TTB snake"), "left-to-right-ver", true, true, true},
        {QT_TRANSLATE_NOOP("CSnakeOrder", "RTL TTB snake"), "right-to-left-ver", true, false, true},
        {QT_TRANSLATE_NOOP("CSnakeOrder", "RTL BTT snake"), "right-to-left-ver-reverse", true, false, false},
        {QT_TRANSLATE_NOOP("CSnakeOrder", "LTR BTT snake"), "left-to-right-ver-reverse", true, true, false},
        {QT_TRANSLATE_NOOP("CSnakeOrder", "TTB LTR snake"), "top-to-bottom-hor", false, true, true},
        {QT_TRANSLATE_NOOP("CSnakeOrder", "TTB RTL snake"), "top-to-bottom-hor-reverse", false, true, false},
        {QT_TRANSLATE_NOOP("CSnakeOrder", "BTT RTL snake"), "bottom-to-top-hor-reverse", false, false, false},
        {QT_TRANSLATE_NOOP("CSnakeOrder", "BTT LTR snake"), "bottom-to-top-hor", false, false, true},
    };
    return table;
}

QVector<int> CSnakeOrder::order(const QVector<SCell> &cells, int pattern)
{
    if (pattern < 0 || pattern >= PatternCount || cells.isEmpty())
        return {};
    const SPattern &p = patterns().at(pattern);
    const QRectF bounds = unitedRect(cells);
    const QSizeF cellSize = smallestCell(cells);

    SScan scan;
    scan.begin = p.rows ? bounds.y() : bounds.x();
    scan.extent = p.rows ? bounds.height() : bounds.width();
    scan.pitch = std::max(1, int(p.rows ? cellSize.height() : cellSize.width()));
    scan.forward = p.advanceForward;

    QVector<STaken> taken;
    taken.reserve(cells.size());
    for (int i = 0; i < cells.size(); ++i) {
        const QRectF &rect = cells.at(i).rect;
        const int line = p.rows ? scan.firstTouching(rect.top(), rect.bottom())
                                : scan.firstTouching(rect.left(), rect.right());
        const QPointF centre = rect.center();
        if (line >= 0)
            taken << STaken{line, p.rows ? centre.x() : centre.y(), p.rows ? centre.y() : centre.x(), i};
    }
    std::sort(taken.begin(), taken.end(), [&](const STaken &a, const STaken &b) {
        if (a.line != b.line)
            return a.line < b.line;
        const bool ascending = (a.line % 2 == 0) == p.firstForward;
        if (a.along < b.along || b.along < a.along)
            return ascending ? a.along < b.along : a.along > b.along;
        if (a.across < b.across || b.across < a.across)
            return a.across < b.across;
        return cells.at(a.index).uuid < cells.at(b.index).uuid;
    });

    QVector<int> ordered;
    ordered.reserve(taken.size());
    for (const STaken &t : qAsConst(taken))
        ordered << t.index;
    return ordered;
}
