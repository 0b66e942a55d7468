// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CCoverage.h"

#include <algorithm>

namespace {

/// Counts covers over elementary intervals: adding to a range and querying the smallest count are O(log n).
class CCoverCount final
{
public:
    explicit CCoverCount(int intervals)
        : m_intervals(intervals)
        , m_least(4 * intervals, 0)
        , m_added(4 * intervals, 0)
    {
    }

    void add(int begin, int end, int amount) { addTo(1, 0, m_intervals, begin, end, amount); }
    int least() const { return m_least.at(1); }

private:
    void addTo(int node, int low, int high, int begin, int end, int amount)
    {
        if (end <= low || high <= begin)
            return;
        if (begin <= low && high <= end) {
            m_least[node] += amount;
            m_added[node] += amount;
            return;
        }
        const int middle = (low + high) / 2;
        addTo(2 * node, low, middle, begin, end, amount);
        addTo(2 * node + 1, middle, high, begin, end, amount);
        m_least[node] = std::min(m_least.at(2 * node), m_least.at(2 * node + 1)) + m_added.at(node);
    }

    int m_intervals;
    QVector<int> m_least;
    QVector<int> m_added;
};

struct SCoverEvent
{
    qreal y;
    int amount;
    qreal left;
    qreal right;
};

int placeOf(const QVector<qreal> &values, qreal value)
{
    return int(std::lower_bound(values.begin(), values.end(), value) - values.begin());
}

} // namespace

bool CCoverage::covers(const QVector<QRectF> &rects, const QRectF &area)
{
    if (area.isEmpty())
        return true;
    QVector<SCoverEvent> events;
    QVector<qreal> edges = {area.left(), area.right()};
    for (const QRectF &rect : rects) {
        const QRectF part = rect & area;
        if (part.isEmpty())
            continue;
        events << SCoverEvent{part.top(), 1, part.left(), part.right()}
               << SCoverEvent{part.bottom(), -1, part.left(), part.right()};
        edges << part.left() << part.right();
    }
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    std::sort(events.begin(), events.end(),
              [](const SCoverEvent &a, const SCoverEvent &b) { return a.y < b.y; });

    // Between two heights at which a rectangle begins or ends, every interval must be covered.
    CCoverCount count(edges.size() - 1);
    qreal y = area.top();
    for (const SCoverEvent &event : qAsConst(events)) {
        if (event.y > y) {
            if (count.least() < 1)
                return false;
            y = event.y;
        }
        count.add(placeOf(edges, event.left), placeOf(edges, event.right), event.amount);
    }
    return y >= area.bottom();
}
