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

/// What is wrong with a cabinet, the worse one first.
enum class CabinetFault { Overlapping, Outside, Unwired, None };

/// What the colours of a cabinet tell.
struct SCabinetState
{
    QColor fill;
    bool selected = false;
    bool highlighted = false;
    bool wired = true;
    bool redundant = false; ///< of a redundancy port, which is drawn without fill
    CabinetFault fault = CabinetFault::None;
};

/// What to draw of a cabinet.
struct SCabinetLook : SCabinetState
{
    QRectF rect;                ///< pixels of the painter's coordinates
    QVector<QLineF> innerLines; ///< borders of receivers, relative to the rectangle's corner
    QString number;             ///< place in the chain, from 1; its port where it is not wired
    QString label;              ///< name on the port's label in the cabinet, which is drawn elsewhere
    QVector<QRectF> overlaps;   ///< what other cabinets cover, relative to the corner
    QVector<QRectF> outside;    ///< what lies outside the canvas, relative to the corner
    bool locked = false;
    bool custom = false; ///< has the mark of a custom-defined cabinet
};

/// The colours of a cabinet. The border of a small cabinet fades with its size, so that nothing jumps while
/// the user zooms.
struct SCabinetColors
{
    QColor fill;         ///< invalid for none
    QColor border;       ///< invalid for none
    bool framed = false; ///< the border has all four sides

    /// @p width is the cabinet's on the screen, device pixels.
    static SCabinetColors of(const SCabinetState &state, qreal width);

    friend bool operator==(const SCabinetColors &a, const SCabinetColors &b)
    {
        return a.fill == b.fill && a.border == b.border && a.framed == b.framed;
    }
};

/// Draws cabinets, groups and canvases, the same way everywhere. Scales are device pixels per unit of
/// the painter's coordinates; details too small to see are left out. GUI thread.
class CLayoutPainter final
{
public:
    static constexpr qreal MostLayers = 32; ///< of cabinets that are drawn above each other

    static void paintCabinet(QPainter &painter, const SCabinetLook &look, qreal scale);
    /// What paintCabinet() draws if isAfar() is true for the cabinet.
    static void paintCabinetFromAfar(QPainter &painter, const QRectF &rect, const SCabinetColors &colors,
                                     bool custom, CabinetFault fault, qreal scale);
    /// The same for cabinets without marks that stand side by side without gaps, which takes half the time.
    static void paintRowFromAfar(QPainter &painter, const QVector<QRectF> &row, const SCabinetColors &colors,
                                 qreal scale);
    /// The frame around a group's members, inside their rectangle. To be drawn above them.
    static void paintGroup(QPainter &painter, const QRectF &rect, bool selected, qreal scale);
    /// Checkerboard, fill image and border of a canvas.
    static void paintCanvas(QPainter &painter, const QRectF &canvas, const CCanvasFill &fill = {});

    /// Returns whether cabinets of that width are so small that they are drawn simplified.
    static bool isAfar(qreal width, qreal scale);
    /// Returns whether a cabinet is so large that it carries marks of its own.
    static bool isClose(const QRectF &cabinet, qreal scale);
    /// Returns whether a close cabinet of that width, device pixels, has room for label, number and marks in
    /// a row.
    static bool isRoomy(qreal width);
    /// How far marks and labels keep from the edges of a cabinet of that size, device pixels.
    static qreal markMargin(const QRectF &onScreen);

    /// The colour around the canvas.
    static QColor surroundings();
};
