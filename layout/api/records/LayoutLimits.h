// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPoint>
#include <QSize>

/// Limits of a layout. Operations and readers refuse what exceeds them; dialogs offer only what is within
/// them.
namespace LayoutLimits {

constexpr int CabinetsPerPort = 1024;
constexpr int GroupsPerPort = 2048;      ///< at all levels
constexpr int GroupLevels = 64;          ///< of groups within groups
constexpr int ReceiversPerCabinet = 256; ///< also of a type; each of areas, cards and blanks
constexpr int LargestPortIndex = 1023;
constexpr int SmallestSide = 1;                ///< of a cabinet, pixels
constexpr int LargestSide = 2048;              ///< of a cabinet, pixels
constexpr int SmallestCustomSide = 8;          ///< of a cabinet whose size the user enters, pixels
constexpr int SmallestCanvasSide = 64;         ///< of a canvas whose size the user enters, pixels
constexpr int WidestCanvas = 32768;            ///< of the canvases that are made here, pixels
constexpr int TallestCanvas = 16384;           ///< of the canvases that are made here, pixels
constexpr int LargestReadCanvasSide = 1 << 20; ///< of a canvas in a file of any origin, pixels
constexpr int LargestOffset = 1 << 20;         ///< of a processor on the shared canvas, either way, pixels

inline bool isSide(int pixels)
{
    return pixels >= SmallestSide && pixels <= LargestSide;
}
inline bool isCabinetSize(const QSize &size)
{
    return isSide(size.width()) && isSide(size.height());
}

/// Whether a canvas of @p size can be made here.
inline bool isCanvasSize(const QSize &size)
{
    return !size.isEmpty() && size.width() <= WidestCanvas && size.height() <= TallestCanvas;
}

inline bool isOffset(const QPoint &offset)
{
    const auto within = [](int pixels) { return pixels >= -LargestOffset && pixels <= LargestOffset; };
    return within(offset.x()) && within(offset.y());
}

} // namespace LayoutLimits
