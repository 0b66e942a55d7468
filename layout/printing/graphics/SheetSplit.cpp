// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/SheetSplit.h"

#include <algorithm>

namespace {

/// The values that occur, ascending.
QVector<int> ordinals(const CWall &wall, const QVector<int> &cabinets, int SPlanCabinet::*which)
{
    QSet<int> values;
    for (int cabinet : cabinets)
        values << wall.cabinets().at(cabinet).*which;
    QVector<int> sorted(values.begin(), values.end());
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

/// Which of @p groups stretches of the same length @p value is in.
int groupOf(const QVector<int> &values, int value, int groups)
{
    const auto place = std::lower_bound(values.begin(), values.end(), value) - values.begin();
    return int(place) * groups / values.size();
}

} // namespace

QVector<int> SWallPart::sharedCabinets() const
{
    QVector<int> all;
    for (const auto &part : shared)
        all += part.second;
    return all;
}

QVector<SWallPart> SheetSplit::cut(const CWall &wall, const QVector<int> &cabinets, int columns, int rows)
{
    const QVector<int> allColumns = ordinals(wall, cabinets, &SPlanCabinet::column);
    const QVector<int> allRows = ordinals(wall, cabinets, &SPlanCabinet::row);
    QMap<QPair<int, int>, QVector<int>> groups;
    for (int index : cabinets) {
        const SPlanCabinet &cabinet = wall.cabinets().at(index);
        groups[qMakePair(groupOf(allRows, cabinet.row, rows), groupOf(allColumns, cabinet.column, columns))]
            << index;
    }
    QVector<SWallPart> parts;
    QMap<int, int> partOf;
    for (const QVector<int> &owned : qAsConst(groups)) {
        for (int cabinet : owned)
            partOf.insert(cabinet, parts.size());
        SWallPart part;
        part.owned = owned;
        parts << part;
    }
    for (int i = 0; i < parts.size(); ++i) {
        QMap<int, QVector<int>> shared;
        for (int cabinet : qAsConst(parts[i].owned)) {
            for (int other : wall.touching(cabinet)) {
                const int part = partOf.value(other, i);
                if (part != i && !shared.value(part).contains(other))
                    shared[part] << other;
            }
        }
        for (auto other = shared.cbegin(); other != shared.cend(); ++other)
            parts[i].shared << qMakePair(other.key(), other.value());
    }
    return parts;
}

QVector<SWallPart> SheetSplit::fewest(const CWall &wall, const QVector<int> &cabinets, double least,
                                      const std::function<double(const QVector<SWallPart> &)> &quality)
{
    const int mostColumns = ordinals(wall, cabinets, &SPlanCabinet::column).size();
    const int mostRows = ordinals(wall, cabinets, &SPlanCabinet::row).size();
    for (int count = 1; count <= std::min(mostColumns * mostRows, MostParts); ++count) {
        QVector<SWallPart> best;
        double bestQuality = least;
        for (int columns = 1; columns <= std::min(count, mostColumns); ++columns) {
            if (count % columns != 0 || count / columns > mostRows)
                continue;
            const QVector<SWallPart> parts = cut(wall, cabinets, columns, count / columns);
            const double reached = quality(parts);
            if (reached >= bestQuality && (best.isEmpty() || reached > bestQuality)) {
                best = parts;
                bestQuality = reached;
            }
        }
        if (!best.isEmpty())
            return best;
    }
    return {};
}
