// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"

#include <QPointF>
#include <QRectF>

class QPainter;

/// Where wiring lines end and start at a cabinet, in canvas pixels.
struct SWireAnchors
{
    QPointF entry;
    QPointF exit;
    /// For a typed cabinet with two or more receivers: the centres of its first and its last receiver; for
    /// any other: its centre. @p placement is the cabinet's rectangle, which may be between pixels during a
    /// move.
    static SWireAnchors of(const CabinetLayout::CabinetPort::Cabinet &cabinet, const QRectF &placement);
};

/// Which parts of a layout are drawn.
struct SLayoutDrawOptions
{
    bool canvas = true; ///< the checkerboard behind the cabinets
    bool wires = true;
    bool numbers = true;
    bool groups = true;
    bool labels = true;      ///< names of ports, ends of chains, and what is wrong with cabinets
    bool customMarks = true; ///< on custom-defined cabinets
};

/// Draws a layout from its records alone, for pictures, the simulated screen and prints. GUI thread.
class CLayoutPicture final
{
public:
    /// The area that the picture shows, in canvas pixels: the canvas and all cabinets, including those
    /// outside the canvas.
    static QRect extent(const LayoutData &data);

    /// Draws the extent centred in @p target, keeping its proportions.
    static void paint(QPainter &painter, const LayoutData &data, const QRectF &target,
                      const SLayoutDrawOptions &options = {});
};
