// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/CWall.h"
#include "layout/printing/graphics/SPlacing.h"
#include "layout/printing/sheets/SSheet.h"

/// A small picture of a whole wall: its ports with their numbers.
namespace WallSketch {

/// What is shown of the ports.
struct SLook
{
    bool hatched = false;
    QVector<int> black; ///< cabinets that stand out
    int named = -1;     ///< output-port index of the port that they belong to
};

/// As large as fits @p rect, at its upper left corner. Returns what it covers.
QRectF draw(SSheet &sheet, const QRectF &rect, const CWall &wall, bool back, const SLook &look);

} // namespace WallSketch
