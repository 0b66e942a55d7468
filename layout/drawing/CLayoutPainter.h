// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/data/records/LayoutData.h"

#include <QColor>
#include <QLineF>
#include <QRectF>
#include <QString>
#include <QVector>

class QPainter;

/// A cabinet as it is drawn.
struct SCabinetLook
{
    QRectF rect;                ///< pixels of the painter's coordinates
    QVector<QLineF> innerLines; ///< borders between receiver areas, relative to the rectangle's corner
    QColor fill;
    QString number; ///< place in the chain, from 1; empty when not wired
    bool selected = false;
    bool highlighted = false;
    bool locked = false;
    bool redundant = false;
};

/// What a drawing of a whole layout shows.
struct SLayoutDrawOptions
{
    bool checkerboard = true; ///< the canvas behind the cabinets
    bool wires = true;
    bool numbers = true;
    bool groups = true;
};

/// What a cabinet, a wire, a group and a canvas look like, wherever they are drawn.
class CLayoutPainter final
{
public:
    /// @p scale is device pixels a unit of the painter's coordinates; what would be unreadably small is left
    /// out.
    static void paintCabinet(QPainter &painter, const SCabinetLook &look, qreal scale);
    /// A wiring line with its arrow head, from exit to entry point.
    static void paintWire(QPainter &painter, const QLineF &line, qreal scale);
    /// The frame around a group's members.
    static void paintGroup(QPainter &painter, const QRectF &rect, bool selected, qreal scale);
    /// Checkerboard and border of a canvas.
    static void paintCanvas(QPainter &painter, const QRectF &canvas, qreal scale);

    /// Draws the whole layout, canvas and cabinets outside it included, centred in @p target with its
    /// proportions kept.
    static void paintLayout(QPainter &painter, const LayoutData &data, const QRectF &target,
                            const SLayoutDrawOptions &options = {});

    /// The colour of a port whose record names none: stable for a port index, distinct for neighbours.
    static QColor defaultPortColor(int port);
};

/// Where wiring lines meet a cabinet, in canvas pixels.
struct SWireAnchors
{
    QPointF entry;
    QPointF exit;
    /// A typed cabinet of two or more receivers is entered at its first and left at its last; any other at
    /// its centre.
    static SWireAnchors of(const CabinetLayout::CabinetPort::Cabinet &cabinet);
};
