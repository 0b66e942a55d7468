// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSizeF>
#include <QString>

/// Numbers as they stand on sheets.
namespace SheetNumbers {

/// "8,847,360"
QString whole(qint64 number);
/// "1,680.0"
QString decimal(double number, int places);
/// "12,000 × 5,000"
QString sides(const QSizeF &size);
/// The number, or a dash for zero.
QString orDash(qint64 number);
/// A dash in an empty cell.
QString dash();

} // namespace SheetNumbers
