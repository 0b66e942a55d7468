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

/// Draws ports from their overviews, instead of one paint() per item: those whose cabinets all appear very
/// small, and all ports when so much is seen at once, or lies in so many layers, that a frame would take too
/// long. Of many layers only the upper ones are drawn. Lives for one frame. GUI thread.
class CFarPorts final
{
public:
    /// @p scale is in device pixels per canvas pixel. Only what intersects @p exposed (canvas pixels) is
    /// drawn, each within its part of the viewport if there are @p clips.
    CFarPorts(const QVector<CGraphicsPortItem *> &ports, qreal scale, const QVector<QRectF> &exposed,
              const QVector<QRect> &clips = {});
    ~CFarPorts();
    CFarPorts(const CFarPorts &) = delete;
    CFarPorts &operator=(const CFarPorts &) = delete;

    /// The rectangles of @p region, or one around many.
    static QVector<QRect> parts(const QRegion &region);
    /// What of the canvas is drawn in these parts of the viewport of @p view.
    static QVector<QRectF> exposed(const QGraphicsView &view, const QVector<QRect> &parts);
    /// If all ports are far away in that picture: calls @p drawUnder, then draws the area @p source of the
    /// scene into @p target. Returns whether it did.
    static bool drawPicture(const QVector<CGraphicsPortItem *> &ports, QPainter &painter,
                            const QRectF &target, const QRectF &source,
                            const std::function<void()> &drawUnder);

    /// Makes views of @p scene skip the items of these ports, for the lifetime of this object.
    void passOver(const QGraphicsScene &scene);
    /// Whether @p ports show so much in @p exposed that drawing it in detail would take too long.
    static bool isCrowded(const QVector<CGraphicsPortItem *> &ports, const QVector<QRectF> &exposed);
    /// Draws the ports; @p painter must use canvas coordinates.
    void paint(QPainter &painter) const;

private:
    void paintParts(QPainter &painter, const QVector<QRectF> &exposed) const;

    QVector<CGraphicsPortItem *> m_ports; // in drawing order
    QVector<QRectF> m_exposed;
    QVector<QRect> m_clips;
    QVector<int> m_first; // place to draw, by port
    qreal m_scale;
    int m_nearCount = 0;
};
