// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/COverlapSweep.h"

#include <algorithm>
#include <limits>

namespace {

/// The rectangles that the sweep line crosses, in the leaves of a tree by their top edges. Each node stores
/// the lowest bottom edge below it, so that a query costs only the tree's height.
class CCrossedRects final
{
public:
    explicit CCrossedRects(const QVector<QRect> &rects)
        : m_rects(rects)
        , m_leafOf(rects.size())
    {
        m_byTop.resize(rects.size());
        for (int i = 0; i < rects.size(); ++i)
            m_byTop[i] = i;
        std::sort(m_byTop.begin(), m_byTop.end(),
                  [&rects](int a, int b) { return rects.at(a).top() < rects.at(b).top(); });
        for (int place = 0; place < m_byTop.size(); ++place)
            m_leafOf[m_byTop.at(place)] = place;
        while (m_leaves < rects.size())
            m_leaves *= 2;
        m_lowest.fill(Nothing, 2 * m_leaves);
    }

    void insert(int index) { set(index, m_rects.at(index).bottom()); }
    void remove(int index) { set(index, Nothing); }

    /// Of those that share a row of pixels with @p rect, the one that reaches furthest down; -1 if there is
    /// none.
    int crossing(const QRect &rect) const
    {
        const auto above = [this](int bottom, int index) { return bottom < m_rects.at(index).top(); };
        const int end =
            int(std::upper_bound(m_byTop.begin(), m_byTop.end(), rect.bottom(), above) - m_byTop.begin());
        int best = 0; // no node
        for (int from = m_leaves, to = m_leaves + end; from < to; from /= 2, to /= 2) {
            if (from % 2 == 1)
                best = lower(best, from++);
            if (to % 2 == 1)
                best = lower(best, --to);
        }
        if (best == 0 || m_lowest.at(best) < rect.top())
            return -1;
        while (best < m_leaves)
            best = m_lowest.at(2 * best) == m_lowest.at(best) ? 2 * best : 2 * best + 1;
        return m_byTop.at(best - m_leaves);
    }

private:
    static constexpr int Nothing = std::numeric_limits<int>::min();

    int lower(int best, int node) const
    {
        return best == 0 || m_lowest.at(node) > m_lowest.at(best) ? node : best;
    }
    void set(int index, int bottom)
    {
        int node = m_leaves + m_leafOf.at(index);
        m_lowest[node] = bottom;
        for (node /= 2; node > 0; node /= 2)
            m_lowest[node] = std::max(m_lowest.at(2 * node), m_lowest.at(2 * node + 1));
    }

    const QVector<QRect> &m_rects;
    QVector<int> m_byTop;  ///< indices of the rectangles, by leaf
    QVector<int> m_leafOf; ///< leaf, by index
    int m_leaves = 1;      ///< a power of two
    QVector<int> m_lowest; ///< by node: 1 is the root, the leaves come last
};

/// The indices of the rectangles that are not empty, in the order of @p before.
template <typename Before>
QVector<int> sortedIndices(const QVector<QRect> &rects, Before before)
{
    QVector<int> indices;
    for (int i = 0; i < rects.size(); ++i) {
        if (!rects.at(i).isEmpty())
            indices.append(i);
    }
    std::stable_sort(indices.begin(), indices.end(),
                     [&](int a, int b) { return before(rects.at(a), rects.at(b)); });
    return indices;
}

} // namespace

QVector<COverlapSweep::SPair> COverlapSweep::pairs(const QVector<QRect> &rects)
{
    const QVector<int> byLeft =
        sortedIndices(rects, [](const QRect &a, const QRect &b) { return a.left() < b.left(); });
    const QVector<int> byRight =
        sortedIndices(rects, [](const QRect &a, const QRect &b) { return a.right() < b.right(); });
    QVector<SPair> pairs;
    CCrossedRects crossed(rects);
    auto leaving = byRight.begin();
    for (const int index : byLeft) {
        const QRect &rect = rects.at(index);
        for (; rects.at(*leaving).right() < rect.left(); ++leaving)
            crossed.remove(*leaving);
        const int other = crossed.crossing(rect);
        if (other >= 0)
            pairs.append({other, index});
        crossed.insert(index);
    }
    std::sort(pairs.begin(), pairs.end(), [](const SPair &a, const SPair &b) { return a.later < b.later; });
    return pairs;
}
