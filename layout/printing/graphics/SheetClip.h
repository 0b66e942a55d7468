// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/sheets/SSheet.h"

/// Cuts marks off at the edges of an area, so that nothing needs to be hidden when a sheet is drawn.
namespace SheetClip {

/// What of @p marks lies in @p area, moved by @p offset. A text that is not wholly inside is left out.
QVector<SSheetMark> clipped(const QVector<SSheetMark> &marks, const QRectF &area, const QPointF &offset);

} // namespace SheetClip
