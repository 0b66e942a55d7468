// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/SPartView.h"
#include "layout/printing/sheets/SSheet.h"

/// The neighbouring ports around a port: a grey fringe, each named once.
namespace PortFringe {

constexpr double Width = 7; ///< millimetres of the paper

/// The sides at which neighbours stand beyond the part, as seen from the front.
Qt::Edges sides(const CWall &wall, const SPlanPort &port, const SWallPart &part);
/// Draws fringe, names and the end of the wall. Names keep clear of @p obstacles.
void draw(SSheet &sheet, const SPartView &view, const QVector<QRectF> &obstacles);

} // namespace PortFringe
