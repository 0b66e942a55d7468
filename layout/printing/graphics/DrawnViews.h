// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PrintConfig.h"
#include "layout/printing/graphics/CWall.h"
#include "layout/printing/sheets/SSheet.h"
#include "layout/printing/sheets/SSheetArea.h"

/// The views in which everything is drawn, and the sheets for it.
namespace DrawnViews {

QVector<SSheet::View> of(const PrintConfig &config);

/// A sheet with its head for a port, or with -1 for all of them. @p trueScale: it is drawn at the scale of
/// the settings, otherwise to fit. @p beside stands beside the name.
SSheet sheet(const CWall &wall, const SSheetArea &area, SSheet::View view, int port, bool trueScale,
             const QString &beside);

/// "15 ports, 240 cabinets"
QString counted(const CWall &wall);

} // namespace DrawnViews
