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

namespace {

constexpr int MostExposedRects = 16; // more would cost more to check than they save
constexpr int PenReach = 2;          // pixels by which cosmetic pens reach beyond their shapes

} // namespace

CFarPorts::CFarPorts(const QVector<CGraphicsPortItem *> &ports, qreal scale, const QVector<QRectF> &exposed)
    : m_exposed(exposed)
    , m_scale(scale)
{
    for (CGraphicsPortItem *port : ports) {
        const CPortOverview &overview = port->overview();
        if (overview.places().isEmpty())
            continue;
        if (CLayoutPainter::isAfar(overview.widest(), scale))
            m_ports << port;
        else
            ++m_nearCount;
        if (port->isShownLocked() || port->isShownRedundant())
            m_marked << port;
    }
    std::stable_sort(m_ports.begin(), m_ports.end(),
                     [](const auto *a, const auto *b) { return a->zValue() < b->zValue(); });
}

CFarPorts::~CFarPorts()
{
    for (CGraphicsPortItem *port : qAsConst(m_ports))
        port->setPassedOver(false);
}

QVector<QRectF> CFarPorts::exposed(const QGraphicsView &view, const QRegion &region)
{
    QVector<QRectF> areas;
    for (const QRect &rect : region.rectCount() > MostExposedRects ? QRegion(region.boundingRect()) : region)
        areas << view.mapToScene(rect.adjusted(-PenReach, -PenReach, PenReach, PenReach)).boundingRect();
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
    painter.restore();
    return true;
}

void CFarPorts::passOver(const QGraphicsScene &scene)
{
    if (m_ports.isEmpty())
        return;
    // Qt inserts new items into its index by their current bounds: trigger that before the ports report other
    // bounds.
    scene.items(QPointF());
    for (CGraphicsPortItem *port : qAsConst(m_ports))
        port->setPassedOver(true);
}

void CFarPorts::paint(QPainter &painter) const
{
    for (const CGraphicsPortItem *port : m_ports)
        port->overview().paint(painter, *port, m_exposed, m_scale);
    for (const CGraphicsPortItem *port : m_marked)
        CLayoutPainter::paintPortMarks(painter, port->bounds(), port->overview().widest(),
                                       port->isShownLocked(), port->isShownRedundant(), m_scale);
}
