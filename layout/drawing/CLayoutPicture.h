// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"

#include <QPointF>
#include <QRectF>

class QPainter;

/// Where wiring lines meet a cabinet, in canvas pixels.
struct SWireAnchors
{
    QPointF entry;
    QPointF exit;
    /// A typed cabinet of two or more receivers is entered at its first and left at its last; any other at
    /// its centre.
    /// @p placement is where the cabinet lies, which may be between pixels while it is moved.
    static SWireAnchors of(const CabinetLayout::CabinetPort::Cabinet &cabinet, const QRectF &placement);
};

/// What a drawing of a whole layout shows.
struct SLayoutDrawOptions
{
    bool canvas = true; ///< the checkerboard behind the cabinets
    bool wires = true;
    bool numbers = true;
    bool groups = true;
    bool customMarks = true; ///< at custom-defined cabinets
};

/// Draws a layout from its records alone, for pictures, the simulated screen and prints. GUI thread.
class CLayoutPicture final
{
public:
    /// What the picture shows, in canvas pixels: the canvas and every cabinet, those outside the canvas
    /// included.
    static QRect extent(const LayoutData &data);

    /// Draws the extent centred in @p target, its proportions kept.
    static void paint(QPainter &painter, const LayoutData &data, const QRectF &target,
                      const SLayoutDrawOptions &options = {});
};
