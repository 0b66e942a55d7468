// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QSize>

/// How a selection is arranged.
namespace CabinetRank {

/// Columns and rows of @p areas if they stand in a grid, row by row, the last row perhaps not full; an
/// empty size if not, or without any. O(n log n).
QSize of(const QVector<QRect> &areas);
QSize of(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets);

} // namespace CabinetRank
