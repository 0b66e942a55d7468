// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRectF>
#include <QVector>

#include <functional>

class CGraphicsPortItem;
class QGraphicsScene;
class QGraphicsView;
class QPainter;
class QRegion;

/// Draws the ports whose cabinets are all far away from their overviews, in place of one call an item; and
/// what a port shows where its cabinets are too small for it. Lives as long as a frame. GUI thread.
class CFarPorts final
{
public:
    /// @p scale is device pixels a canvas pixel; only what reaches into @p exposed, canvas pixels, is drawn.
    CFarPorts(const QVector<CGraphicsPortItem *> &ports, qreal scale, const QVector<QRectF> &exposed);
    ~CFarPorts();
    CFarPorts(const CFarPorts &) = delete;
    CFarPorts &operator=(const CFarPorts &) = delete;

    /// The parts of a canvas that show in @p region of the viewport of @p view.
    static QVector<QRectF> exposed(const QGraphicsView &view, const QRegion &region);
    /// Draws @p source of a scene with these ports into @p target, over what @p drawUnder draws, if all ports
    /// are far away in that picture; gives whether they are.
    static bool drawPicture(const QVector<CGraphicsPortItem *> &ports, QPainter &painter,
                            const QRectF &target, const QRectF &source,
                            const std::function<void()> &drawUnder);

    /// From now on a view of @p scene that draws its items passes over these ports.
    void passOver(const QGraphicsScene &scene);
    /// Draws them; @p painter draws in canvas pixels.
    void paint(QPainter &painter) const;

private:
    QVector<CGraphicsPortItem *> m_ports; // in the order of drawing
    QVector<const CGraphicsPortItem *> m_marked;
    QVector<QRectF> m_exposed;
    qreal m_scale;
    int m_nearCount = 0;
};
