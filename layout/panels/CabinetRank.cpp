// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CabinetRank.h"

#include <algorithm>

namespace {

template <typename Value>
void makeSet(std::vector<Value> &values)
{
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
}

} // namespace

QSize CabinetRank::of(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets)
{
    QVector<QRect> areas;
    areas.reserve(cabinets.size());
    for (const auto &cabinet : cabinets)
        areas << cabinet.rect;
    return of(areas);
}

QSize CabinetRank::of(const QVector<QRect> &areas)
{
    std::vector<int> lefts;
    std::vector<int> tops;
    std::vector<std::pair<int, int>> corners; // top, left
    for (const QRect &area : areas) {
        lefts.push_back(area.left());
        tops.push_back(area.top());
        corners.emplace_back(area.top(), area.left());
    }
    makeSet(lefts);
    makeSet(tops);
    makeSet(corners);
    const size_t columns = lefts.size();
    if (corners.empty() || corners.size() != size_t(areas.size()) ||
        tops.size() != (corners.size() + columns - 1) / columns)
        return {};
    for (size_t place = 0; place < corners.size(); ++place) {
        if (corners[place] != std::make_pair(tops[place / columns], lefts[place % columns]))
            return {};
    }
    return {int(columns), int(tops.size())};
}
