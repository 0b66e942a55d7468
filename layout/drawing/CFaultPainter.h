// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/drawing/CLayoutPainter.h"

/// Marks what is wrong with cabinets. Scales are in device pixels per unit of the painter's coordinates. GUI
/// thread.
class CFaultPainter final
{
public:
    /// Red hatching with a triangle where others cover the cabinet, amber hatching the other way outside the
    /// canvas, a dashed frame and a ring for one that is not wired.
    static void paint(QPainter &painter, const SCabinetLook &look, qreal scale);
    /// A square in the colour of the fault, as large as is needed to see it, with a dark rim where the
    /// cabinet has room for it.
    static void paintFromAfar(QPainter &painter, const QRectF &rect, CabinetFault fault, qreal scale);
};
