// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <QSize>
#include <QVector>

/// How a selection is arranged.
namespace CabinetRank {

/// Columns and rows of @p areas if they stand in a grid, row by row or column by column, the last one perhaps
/// not full; an empty size if not, or without any. O(n), or O(n log n) if they are far apart.
QSize of(const QVector<QRect> &areas);

} // namespace CabinetRank
