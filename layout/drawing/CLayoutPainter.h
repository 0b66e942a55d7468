// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/drawing/CCanvasFill.h"

#include <QColor>
#include <QLineF>
#include <QRectF>
#include <QString>
#include <QVector>

class QPainter;
class QPen;

/// What to draw of a cabinet.
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
    bool custom = false; ///< has the mark of a custom-defined cabinet
};

/// The colours of a cabinet. The border of a small cabinet fades with its size, so that nothing jumps while
/// the user zooms.
struct SCabinetColors
{
    QColor fill;
    QColor border;       ///< invalid for none
    bool framed = false; ///< the border has all four sides

    /// @p width is the cabinet's on the screen, device pixels.
    static SCabinetColors of(const QColor &fill, bool selected, bool highlighted, qreal width);
};

/// Draws cabinets, wires, groups and canvases, the same way everywhere. Scales are device pixels per unit of
/// the painter's coordinates; details too small to see are left out. GUI thread.
class CLayoutPainter final
{
public:
    static void paintCabinet(QPainter &painter, const SCabinetLook &look, qreal scale);
    /// What paintCabinet() draws if isAfar() is true for the cabinet.
    static void paintCabinetFromAfar(QPainter &painter, const QRectF &rect, const SCabinetColors &colors,
                                     bool custom, qreal scale);
    /// A wiring line with its arrow head, from exit to entry point.
    static void paintWire(QPainter &painter, const QLineF &line, qreal scale);
    /// Draws many wiring lines at once, which is cheaper than one by one.
    static void paintWires(QPainter &painter, const QVector<QLineF> &lines, qreal scale);
    /// The area that paintWire() covers, whatever the scale.
    static QRectF wireBounds(const QLineF &line);
    /// The frame around a group's members.
    static void paintGroup(QPainter &painter, const QRectF &rect, bool selected, qreal scale);
    /// Checkerboard, fill image and border of a canvas.
    static void paintCanvas(QPainter &painter, const QRectF &canvas, const CCanvasFill &fill = {});

    /// The marks of a locked or redundancy port whose cabinets are too small to show them: once, in the
    /// middle of @p bounds. @p cabinetSide is the width of its widest cabinet.
    static void paintPortMarks(QPainter &painter, const QRectF &bounds, qreal cabinetSide, bool locked,
                               bool redundant, qreal scale);

    /// The pen of wiring lines.
    static const QPen &wirePen();

    /// Returns whether cabinets of that width are so small that they are drawn simplified.
    static bool isAfar(qreal width, qreal scale);

    /// The colour around the canvas.
    static QColor surroundings();
    /// The colour of a port whose record has none: always the same for a port index, distinct for neighbours.
    static QColor defaultPortColor(int port);
    /// The fill of a selected cabinet.
    static QColor selectedFill(const QColor &fill);
};
