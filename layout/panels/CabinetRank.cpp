// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CabinetRank.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr qint64 DenseSpan = 1 << 16; // of coordinates that are numbered without sorting

/// Replaces each of @p values, of which there is one at least, with its place among the different ones in
/// ascending order. Returns how many different ones there are.
int number(std::vector<int> &values)
{
    const auto [least, largest] = std::minmax_element(values.begin(), values.end());
    const int first = *least;
    const qint64 span = qint64(*largest) - first + 1;
    if (span > DenseSpan) {
        std::vector<int> sorted = values;
        std::sort(sorted.begin(), sorted.end());
        sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
        for (int &value : values)
            value = int(std::lower_bound(sorted.begin(), sorted.end(), value) - sorted.begin());
        return int(sorted.size());
    }
    std::vector<int> places(size_t(span), 0);
    for (const int value : values)
        places[size_t(value - first)] = 1;
    int count = 0;
    for (int &place : places)
        count += std::exchange(place, count);
    for (int &value : values)
        value = places[size_t(value - first)];
    return count;
}

/// Whether items fill line after line of @p length places, the last one perhaps in part. They are given by
/// their lines and their places in these.
bool fills(const std::vector<int> &lines, const std::vector<int> &places, int length)
{
    std::vector<bool> taken(lines.size(), false);
    for (size_t i = 0; i < lines.size(); ++i) {
        const size_t place = size_t(lines[i]) * size_t(length) + size_t(places[i]);
        if (place >= taken.size() || taken[place])
            return false;
        taken[place] = true; // as each has its own, in the end all are
    }
    return true;
}

} // namespace

QSize CabinetRank::of(const QVector<QRect> &areas)
{
    if (areas.isEmpty())
        return {};
    std::vector<int> columns;
    std::vector<int> rows;
    columns.reserve(size_t(areas.size()));
    rows.reserve(size_t(areas.size()));
    for (const QRect &area : areas) {
        columns.push_back(area.left());
        rows.push_back(area.top());
    }
    const int columnCount = number(columns);
    const int rowCount = number(rows);
    const bool regular = fills(rows, columns, columnCount) || fills(columns, rows, rowCount);
    return regular ? QSize(columnCount, rowCount) : QSize();
}
