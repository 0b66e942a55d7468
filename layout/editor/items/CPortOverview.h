// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLineF>
#include <QRectF>
#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsPortItem;
class QGraphicsItem;
class QPainter;

/// What a port shows, as a compact list: a wall of which a screen shows thousands of cabinets is drawn and
/// searched in it, as one call an item would cost more than the drawing. Selection is read from the items.
/// GUI thread.
class CPortOverview final
{
public:
    struct SPlace
    {
        QRectF rect;                             ///< canvas pixels
        CGraphicsCabinetItem *cabinet = nullptr; ///< null for the frame of a group
        CGraphicsGroupItem *group = nullptr;     ///< the frame's, or the innermost one around the cabinet
        bool custom = false;
        bool highlighted = false;

        friend bool operator==(const SPlace &a, const SPlace &b);
    };

    /// The list has to be read from the items again; they may be gone.
    void forget();
    void read(const CGraphicsPortItem &port);
    bool isRead() const { return m_read; }
    bool isSameAs(const CPortOverview &other) const;

    /// Cabinets and frames in the order in which they are drawn.
    const QVector<SPlace> &places() const { return m_places; }
    /// Of the widest cabinet, canvas pixels.
    qreal widest() const { return m_widest; }

    /// Draws what reaches into one of the @p exposed rectangles. @p scale is device pixels a canvas pixel.
    void paint(QPainter &painter, const CGraphicsPortItem &port, const QVector<QRectF> &exposed,
               qreal scale) const;

private:
    void readChildren(const QGraphicsItem &parent, CGraphicsGroupItem *group);

    QVector<SPlace> m_places;
    QVector<QLineF> m_wires;
    qreal m_widest = 0;
    bool m_read = false;
};
