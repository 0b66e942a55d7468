// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CReceiverAreas.h"

#include <algorithm>
#include <cmath>

namespace {

using Cabinet = CReceiverAreas::Cabinet;
using SOriginalAreas = CabinetLayout::CabinetPort::SOriginalAreas;

/// @p areas within @p size, where records of any origin may have others.
QVector<QRect> within(QVector<QRect> areas, const QSize &size)
{
    for (QRect &area : areas) {
        const QPoint far(qBound(0, area.left() + area.width(), size.width()),
                         qBound(0, area.top() + area.height(), size.height()));
        area = QRect({qBound(0, area.left(), size.width()), qBound(0, area.top(), size.height())},
                     far - QPoint(1, 1));
    }
    return areas;
}

SOriginalAreas originalOf(const Cabinet &cabinet, const QSize &size)
{
    SOriginalAreas areas =
        cabinet.original ? *cabinet.original : SOriginalAreas{size, cabinet.rects, cabinet.blanks};
    areas.rects = within(areas.rects, areas.size);
    areas.blanks = within(areas.blanks, areas.size);
    return areas;
}

/// One axis: the new positions of the edges of areas when the side changes. Equal edges move together, so
/// that adjacent areas stay adjacent.
class CEdgeMap final
{
public:
    CEdgeMap(QVector<int> edges, int from, int to)
        : m_from(from)
        , m_edges(std::move(edges))
    {
        for (int &edge : m_edges)
            edge = qBound(0, edge, from);
        m_edges << 0 << from;
        std::sort(m_edges.begin(), m_edges.end());
        m_edges.erase(std::unique(m_edges.begin(), m_edges.end()), m_edges.end());
        for (const int edge : qAsConst(m_edges))
            m_places << int(std::lround(double(edge) * to / from));
        // Edges that coincide are spread, first from the far end, then from the near one.
        const int last = m_places.size() - 1;
        for (int i = last - 1; i >= 0; --i)
            m_places[i] = std::min(m_places.at(i), m_places.at(i + 1) - 1);
        m_places[0] = 0;
        for (int i = 1; i <= last; ++i)
            m_places[i] = std::min(std::max(m_places.at(i), m_places.at(i - 1) + 1), to);
    }

    int intervals() const { return m_edges.size() - 1; }
    int at(int edge) const
    {
        const auto found = std::lower_bound(m_edges.begin(), m_edges.end(), qBound(0, edge, m_from));
        return m_places.at(int(found - m_edges.begin()));
    }

private:
    int m_from;
    QVector<int> m_edges;
    QVector<int> m_places;
};

CEdgeMap columnsOf(const SOriginalAreas &areas, int to)
{
    QVector<int> edges;
    for (const QVector<QRect> &list : {areas.rects, areas.blanks}) {
        for (const QRect &area : list)
            edges << area.left() << area.left() + area.width();
    }
    return CEdgeMap(edges, areas.size.width(), to);
}

CEdgeMap rowsOf(const SOriginalAreas &areas, int to)
{
    QVector<int> edges;
    for (const QVector<QRect> &list : {areas.rects, areas.blanks}) {
        for (const QRect &area : list)
            edges << area.top() << area.top() + area.height();
    }
    return CEdgeMap(edges, areas.size.height(), to);
}

QVector<QRect> mapped(const QVector<QRect> &areas, const CEdgeMap &columns, const CEdgeMap &rows)
{
    QVector<QRect> result;
    result.reserve(areas.size());
    for (const QRect &area : areas) {
        const QPoint corner(columns.at(area.left()), rows.at(area.top()));
        const QPoint far(columns.at(area.left() + area.width()), rows.at(area.top() + area.height()));
        result << QRect(corner, far - QPoint(1, 1));
    }
    return result;
}

bool hasAreas(const Cabinet &cabinet)
{
    return !cabinet.rects.isEmpty() || !cabinet.blanks.isEmpty();
}

} // namespace

void CReceiverAreas::resize(Cabinet &cabinet, const QSize &from, const QSize &to)
{
    if (from == to || !hasAreas(cabinet) || from.isEmpty() || to.isEmpty())
        return;
    const SOriginalAreas original = originalOf(cabinet, from);
    if (original.size == to) {
        cabinet.rects = original.rects;
        cabinet.blanks = original.blanks;
        cabinet.original.reset();
        return;
    }
    const CEdgeMap columns = columnsOf(original, to.width());
    const CEdgeMap rows = rowsOf(original, to.height());
    cabinet.rects = mapped(original.rects, columns, rows);
    cabinet.blanks = mapped(original.blanks, columns, rows);
    if (!cabinet.original)
        cabinet.original = std::make_shared<const SOriginalAreas>(original);
}

QSize CReceiverAreas::smallest(const Cabinet &cabinet, const QSize &size)
{
    if (!hasAreas(cabinet))
        return {1, 1};
    const SOriginalAreas original = originalOf(cabinet, size);
    return {columnsOf(original, original.size.width()).intervals(),
            rowsOf(original, original.size.height()).intervals()};
}

void CReceiverAreas::reverse(Cabinet &cabinet)
{
    std::reverse(cabinet.rects.begin(), cabinet.rects.end());
    if (!cabinet.original)
        return;
    SOriginalAreas reversed = *cabinet.original;
    std::reverse(reversed.rects.begin(), reversed.rects.end());
    cabinet.original = std::make_shared<const SOriginalAreas>(std::move(reversed));
}
