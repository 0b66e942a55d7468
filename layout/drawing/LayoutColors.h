// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>

/// The colours of a drawn layout, except those of its ports, named by purpose.
namespace LayoutColors {

constexpr QRgb Surroundings = qRgb(22, 22, 26); ///< around the canvas
constexpr QRgb CanvasEdge = qRgb(136, 136, 146);
constexpr QRgb Border = qRgb(8, 8, 8); ///< between cabinets
constexpr QRgb Rim = qRgb(8, 8, 12);   ///< around marks
constexpr QRgb Frame = qRgb(202, 202, 210);
constexpr QRgb Selection = qRgb(255, 255, 255);
constexpr QRgb Wire = qRgb(255, 252, 225);
constexpr QRgb Highlight = qRgb(255, 214, 64);
constexpr QRgb Fault = qRgb(255, 122, 115);
constexpr QRgb Overload = qRgb(200, 53, 53); ///< label of an overloaded port
constexpr QRgb Warning = qRgb(242, 184, 75);
constexpr QRgb Custom = qRgb(190, 163, 25);    ///< custom-defined cabinets
constexpr QRgb Plate = qRgba(22, 22, 26, 230); ///< below marks and notes
constexpr QRgb PlateText = qRgb(240, 240, 246);

} // namespace LayoutColors
