// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CFarPorts.h"

#include "layout/drawing/CLayoutPainter.h"
#include "layout/editor/items/CGraphicsPortItem.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QRegion>

#include <algorithm>
#include <numeric>

namespace {

constexpr int MostExposedRects = 64; // more cost more to compare with than what they leave out
constexpr int MostDetailed = 10000;  // cabinets and wires that are drawn as items
constexpr int NotShown = -1;         // no place of the port is exposed
constexpr int PenReach = 2;          // pixels by which cosmetic pens reach beyond their shapes

qreal areaOf(const QVector<QRectF> &rects)
{
    return std::accumulate(rects.begin(), rects.end(), 0.0,
                           [](qreal sum, const QRectF &rect) { return sum + rect.width() * rect.height(); });
}

bool isExposed(const CGraphicsPortItem &port, const QVector<QRectF> &exposed)
{
    const QRectF &bounds = port.bounds();
    return std::any_of(exposed.begin(), exposed.end(),
                       [&bounds](const QRectF &part) { return part.intersects(bounds); });
}

} // namespace

CFarPorts::CFarPorts(const QVector<CGraphicsPortItem *> &ports, qreal scale, const QVector<QRectF> &exposed,
                     const QVector<QRect> &clips)
    : m_exposed(exposed)
    , m_clips(clips)
    , m_scale(scale)
{
    QVector<CGraphicsPortItem *> near;
    for (CGraphicsPortItem *port : ports) {
        const CPortOverview &overview = port->overview();
        if (!overview.places().isEmpty())
            (CLayoutPainter::isAfar(overview.widest(), scale) ? m_ports : near) << port;
    }
    if (isCrowded(near, exposed))
        m_ports += near;
    else
        m_nearCount = near.size();
    std::stable_sort(m_ports.begin(), m_ports.end(),
                     [](const auto *a, const auto *b) { return a->zValue() < b->zValue(); });
    qreal area = CLayoutPainter::MostLayers * areaOf(exposed);
    m_first.resize(m_ports.size());
    for (int i = m_ports.size() - 1; i >= 0; --i) {
        const CGraphicsPortItem &port = *m_ports.at(i);
        m_first[i] = isExposed(port, exposed) ? port.overview().firstWithin(area, exposed) : NotShown;
    }
}

bool CFarPorts::isCrowded(const QVector<CGraphicsPortItem *> &ports, const QVector<QRectF> &exposed)
{
    int shown = 0;
    const qreal most = CLayoutPainter::MostLayers * areaOf(exposed);
    qreal area = most;
    for (const CGraphicsPortItem *port : ports) {
        if (!isExposed(*port, exposed))
            continue;
        shown += port->overview().countExposed(exposed);
        port->overview().firstWithin(area, exposed);
    }
    return shown > MostDetailed || area <= 0;
}

CFarPorts::~CFarPorts()
{
    for (CGraphicsPortItem *port : qAsConst(m_ports))
        port->setPassedOver(false);
}

QVector<QRect> CFarPorts::parts(const QRegion &region)
{
    if (region.rectCount() > MostExposedRects)
        return {region.boundingRect()};
    return QVector<QRect>(region.begin(), region.end());
}

QVector<QRectF> CFarPorts::exposed(const QGraphicsView &view, const QVector<QRect> &parts)
{
    QVector<QRectF> areas;
    for (const QRect &part : parts)
        areas << view.mapToScene(part.adjusted(-PenReach, -PenReach, PenReach, PenReach)).boundingRect();
    return areas;
}

bool CFarPorts::drawPicture(const QVector<CGraphicsPortItem *> &ports, QPainter &painter,
                            const QRectF &target, const QRectF &source,
                            const std::function<void()> &drawUnder)
{
    const qreal scale = std::min(target.width() / source.width(), target.height() / source.height());
    const CFarPorts farPorts(ports, scale * painter.worldTransform().m11(), {source});
    if (farPorts.m_nearCount > 0)
        return false;
    painter.save();
    painter.setClipRect(target);
    painter.translate(target.topLeft());
    painter.scale(scale, scale);
    painter.translate(-source.topLeft());
    drawUnder();
    farPorts.paint(painter);
    for (const CGraphicsPortItem *port : ports)
        port->overview().paintFrames(painter, source, farPorts.m_scale);
    painter.restore();
    return true;
}

void CFarPorts::passOver(const QGraphicsScene &scene)
{
    if (m_ports.isEmpty())
        return;
    // An item that is new to the scene is sorted into its index by where it says that it lies: done before
    // the ports say otherwise.
    scene.items(QPointF());
    for (CGraphicsPortItem *port : qAsConst(m_ports))
        port->setPassedOver(true);
}

void CFarPorts::paint(QPainter &painter) const
{
    if (m_clips.size() <= 1) {
        paintParts(painter, m_exposed);
        return;
    }
    // Within a single rectangle areas are filled several times faster than within a region.
    const QTransform canvas = painter.worldTransform();
    for (int i = 0; i < m_clips.size(); ++i) {
        painter.setWorldTransform(QTransform());
        painter.setClipRect(m_clips.at(i));
        painter.setWorldTransform(canvas);
        paintParts(painter, {m_exposed.at(i)});
    }
    painter.setClipping(false);
}

void CFarPorts::paintParts(QPainter &painter, const QVector<QRectF> &exposed) const
{
    for (int i = 0; i < m_ports.size(); ++i) {
        const CGraphicsPortItem &port = *m_ports.at(i);
        if (m_first.at(i) != NotShown && isExposed(port, exposed))
            port.overview().paint(painter, port, exposed, m_scale, m_first.at(i));
    }
}
