// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintPlan.h"
#include "layout/printing/sheets/CSheetTable.h"
#include "layout/printing/sheets/SSheetArea.h"

/// What all sheets with lists have in common.
namespace ListSheets {

/// A sheet with its head. @p title is for the title block, @p name and @p beside for the head.
SSheet sheet(const SSheetArea &area, const SPlanProcessor &processor, const QString &title,
             const QString &name, const QString &beside);
/// The same for a list of all processors.
SSheet sheet(const SSheetArea &area, const SPrintPlan &plan, const QString &title, const QString &name,
             const QString &beside);
/// What is left below the head.
QRectF body(const SSheetArea &area);
/// @p count equal columns of @p rect.
QVector<QRectF> columns(const QRectF &rect, int count);
/// Columns of a table that are @p width wide together.
QVector<STableColumn> fitted(QVector<STableColumn> columns, double width);
/// Columns as wide as their headings and the cells of @p rows, which are not cut then; the column @p open
/// takes what is left of @p width.
QVector<STableColumn> filled(QVector<STableColumn> columns, const QVector<STableRow> &rows, int open,
                             double width);
/// The processors' names, joined.
QString names(const SPrintPlan &plan);
/// From which pixel pitch sizes are presumed: of all processors where that is one, else of each.
QStringList pitchNotes(const SPrintPlan &plan);

} // namespace ListSheets
