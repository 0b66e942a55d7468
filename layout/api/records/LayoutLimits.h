// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPoint>
#include <QSize>

/// Limits of a layout. Operations and readers refuse what exceeds them; dialogs offer only what is within
/// them.
namespace LayoutLimits {

constexpr int CabinetsPerPort = 1024;
constexpr int SmallestSide = 1;          ///< of a cabinet, pixels
constexpr int LargestSide = 2048;        ///< of a cabinet, pixels
constexpr int SmallestCustomSide = 8;    ///< of a cabinet whose size the user enters, pixels
constexpr int LargestCanvasSide = 32768; ///< of a canvas that is made here, pixels
constexpr int LargestOffset = 1 << 20;   ///< of a processor on the shared canvas, either way, pixels

inline bool isSide(int pixels)
{
    return pixels >= SmallestSide && pixels <= LargestSide;
}
inline bool isCabinetSize(const QSize &size)
{
    return isSide(size.width()) && isSide(size.height());
}

inline bool isOffset(const QPoint &offset)
{
    const auto within = [](int pixels) { return pixels >= -LargestOffset && pixels <= LargestOffset; };
    return within(offset.x()) && within(offset.y());
}

} // namespace LayoutLimits
