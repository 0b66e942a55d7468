// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/drawing/CLayoutPainter.h"
#include "layout/geometry/COutline.h"

#include <QLineF>
#include <QRectF>
#include <QVector>

#include <optional>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsPortItem;
class QGraphicsItem;
class QPainter;
struct SPortLook;

/// The content of a port as a compact list. It is used to draw and search when thousands of cabinets are
/// visible, because one virtual call per item would cost more than the drawing. What is selected is read from
/// the items where a port is selected in part. GUI thread.
class CPortOverview final
{
public:
    struct SPlace
    {
        QRectF rect;                             ///< canvas pixels
        CGraphicsCabinetItem *cabinet = nullptr; ///< null for a group's frame
        CGraphicsGroupItem *group = nullptr; ///< the framed group, or the innermost group around the cabinet
        bool custom = false;
        bool highlighted = false;
        bool wired = true;
        CabinetFault fault = CabinetFault::None;

        friend bool operator==(const SPlace &a, const SPlace &b);
    };

    /// Discards the list; the items may have been deleted.
    void forget();
    void forgetSelection() { m_unselectedEdge.reset(); } ///< call when that of the items has changed
    void read(const CGraphicsPortItem &port);
    bool isRead() const { return m_read; }
    bool isSameAs(const CPortOverview &other) const;

    /// Cabinets and group frames in drawing order.
    const QVector<SPlace> &places() const { return m_places; }
    /// Width of the widest cabinet, canvas pixels.
    qreal widest() const { return m_widest; }

    const QVector<QLineF> &wires() const { return m_wires; }

    /// Draws what intersects one of the @p exposed rectangles, from the place @p first on. @p scale is in
    /// device pixels per canvas pixel.
    void paint(QPainter &painter, const CGraphicsPortItem &port, const QVector<QRectF> &exposed, qreal scale,
               int first = 0) const;
    /// Draws the edge around the port except along what is selected, which has a frame of its own.
    void paintEdge(QPainter &painter, const SPortLook &look, const QRectF &exposed, bool anySelected,
                   qreal scale) const;
    /// Draws the frames of groups in @p exposed, which are above the cabinets.
    void paintFrames(QPainter &painter, const QRectF &exposed, qreal scale) const;
    /// The number of cabinets and wires that intersect one of the @p exposed rectangles.
    int countExposed(const QVector<QRectF> &exposed) const;
    /// The index of the first place to draw so that what is drawn of it and the places above it covers no
    /// more than @p area canvas pixels, from which it is taken.
    int firstWithin(qreal &area, const QVector<QRectF> &exposed) const;

private:
    const QVector<COutline::SPiece> &edge() const;
    const QVector<COutline::SPiece> &unselectedEdge() const;
    void readChildren(const QGraphicsItem &parent, CGraphicsGroupItem *group);

    QVector<SPlace> m_places;
    QVector<int> m_frames; // places of groups
    QVector<QLineF> m_wires;
    // Not known until somebody asks.
    mutable std::optional<QVector<COutline::SPiece>> m_edge;
    mutable std::optional<QVector<COutline::SPiece>> m_unselectedEdge;
    qreal m_widest = 0;
    qreal m_area = 0; // of all places together
    QRectF m_extent;  // of places and wires
    bool m_read = false;
};
