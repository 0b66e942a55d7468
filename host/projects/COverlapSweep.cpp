// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/COverlapSweep.h"

#include <algorithm>
#include <map>

namespace {

/// The rectangles that the sweep line crosses, by their top edge.
class CCrossedRects final
{
public:
    explicit CCrossedRects(const QVector<QRect> &rects)
        : m_rects(rects)
    {
    }

    void insert(int index)
    {
        m_byTop.emplace(m_rects.at(index).top(), index);
        m_tallest = std::max(m_tallest, m_rects.at(index).height());
    }

    void remove(int index)
    {
        const auto range = m_byTop.equal_range(m_rects.at(index).top());
        const auto found = std::find_if(range.first, range.second,
                                        [index](const auto &entry) { return entry.second == index; });
        if (found != range.second)
            m_byTop.erase(found);
    }

    /// One that shares a row of pixels with @p rect, or -1.
    int crossing(const QRect &rect) const
    {
        const auto end = m_byTop.upper_bound(rect.bottom());
        for (auto it = m_byTop.lower_bound(rect.top() - m_tallest + 1); it != end; ++it) {
            if (m_rects.at(it->second).bottom() >= rect.top())
                return it->second;
        }
        return -1;
    }

private:
    const QVector<QRect> &m_rects;
    std::multimap<int, int> m_byTop;
    int m_tallest = 0;
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
        // What lies exactly on another adds nothing to find, and a heap of such would make the sweep slow.
        if (other < 0 || rects.at(other) != rect)
            crossed.insert(index);
    }
    std::sort(pairs.begin(), pairs.end(), [](const SPair &a, const SPair &b) { return a.later < b.later; });
    return pairs;
}
