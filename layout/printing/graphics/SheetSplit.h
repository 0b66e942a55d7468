// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/CWall.h"

#include <QPair>
#include <QSet>

#include <functional>

/// The cabinets of one sheet.
struct SWallPart
{
    QVector<int> owned; ///< drawn with all that belongs to them
    /// Those that touch them, but belong to another sheet; by the index of that part, ascending.
    QVector<QPair<int, QVector<int>>> shared;

    QVector<int> sharedCabinets() const;
    QSet<int> here() const { return QSet<int>(owned.begin(), owned.end()); }
};

/// Divides what is too small on one sheet along the borders of cabinets. Any thread.
namespace SheetSplit {

constexpr int MostParts = 100;

/// Cuts @p cabinets into about @p columns times @p rows parts with the same number of columns and rows of
/// cabinets, from left to right, then down. Each cabinet is owned by one part.
QVector<SWallPart> cut(const CWall &wall, const QVector<int> &cabinets, int columns, int rows);

/// The cut into as few parts as make @p quality at least @p least; among those the best. Empty if no cut
/// does.
/// @p quality returns what the worst of the parts can have.
QVector<SWallPart> fewest(const CWall &wall, const QVector<int> &cabinets, double least,
                          const std::function<double(const QVector<SWallPart> &)> &quality);

} // namespace SheetSplit
