// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PrintConfig.h"

#include <QRectF>
#include <QSizeF>
#include <QString>

/// How a sheet is divided. Millimetres from its upper left corner.
struct SSheetArea
{
    static constexpr double StripHeight = 28;      ///< title block, and view box beside it
    static constexpr double TitleBlockWidth = 180; ///< at the right end of the strip
    static constexpr double Padding = 4;           ///< between the frame and what is on the sheet

    QSizeF size;       ///< of the paper
    QRectF frame;      ///< the outer line; nothing is drawn outside
    QRectF titleBlock; ///< lower right
    QRectF viewBox;    ///< to the left of the title block; above it on narrow paper
    QRectF content;    ///< what is left for the sheet itself, within the padding

    static SSheetArea of(const PrintConfig &config);
    /// The name of the paper, "A4", or its sides in millimetres.
    static QString nameOf(const PrintConfig &config);
    /// Whether frame and title block fit on the paper, and some content.
    bool isUsable() const;
    /// The smallest usable paper with the margins of @p config.
    static QSizeF least(const PrintConfig &config);
};
