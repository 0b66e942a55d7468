// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CLayoutPicture.h"

#include "layout/drawing/CLayoutPainter.h"
#include "layout/drawing/CPictureFaults.h"
#include "layout/drawing/CPortColors.h"
#include "layout/drawing/CPortEdge.h"
#include "layout/drawing/CPortLabel.h"
#include "layout/drawing/CReceiverBorders.h"
#include "layout/drawing/CWirePainter.h"
#include "layout/geometry/CCabinetRect.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using Port = CabinetLayout::CabinetPort;
using Cabinet = Port::Cabinet;
using Group = Port::CabinetGroup;

QPointF centreOf(const QRect &rect)
{
    return QPointF((rect.left() + rect.right()) / 2,
                   (rect.top() + rect.bottom()) / 2); // truncating on purpose
}

/// The port's wired cabinets, in chain order.
QVector<Cabinet> chainOf(QVector<Cabinet> cabinets)
{
    const auto unwired = [](const Cabinet &c) { return c.rank < 0; };
    cabinets.erase(std::remove_if(cabinets.begin(), cabinets.end(), unwired), cabinets.end());
    std::sort(cabinets.begin(), cabinets.end(),
              [](const Cabinet &a, const Cabinet &b) { return a.rank < b.rank; });
    return cabinets;
}

QVector<QLineF> wiresOf(const QVector<Cabinet> &cabinets)
{
    QVector<QLineF> wires;
    QPointF previousExit;
    bool first = true;
    for (const Cabinet &cabinet : chainOf(cabinets)) {
        const SWireAnchors anchors = SWireAnchors::of(cabinet, CCabinetRect::fromRecord(cabinet.rect));
        if (!first)
            wires << QLineF(previousExit, anchors.entry);
        previousExit = anchors.exit;
        first = false;
    }
    return wires;
}

QColor fillOf(const Port &port)
{
    return port.color.isValid() ? port.color : CPortColors::fill(port.index);
}

SCabinetLook lookOf(const Cabinet &cabinet, const Port &port, const SLayoutDrawOptions &options)
{
    SCabinetLook look;
    look.rect = CCabinetRect::fromRecord(cabinet.rect);
    look.redundant = options.labels && port.redundancy == Port::Redundant;
    look.fill = fillOf(port);
    if (options.numbers && cabinet.rank >= 0)
        look.number = QString::number(cabinet.rank + 1);
    if (options.labels && !look.redundant) {
        look.wired = cabinet.rank >= 0;
        look.label = cabinet.rank == 0 ? CPortLabel::text(port.index) : QString();
        if (!look.wired) {
            look.fault = CabinetFault::Unwired;
            look.number = CPortLabel::text(port.index);
        }
    }
    look.locked = port.locked;
    look.custom = options.customMarks && cabinet.isCustomDefined();
    return look;
}

/// Paints the frames of @p group and all groups in it; returns the rectangle around its content.
QRect paintGroupFrames(QPainter &painter, const Group &group, qreal scale)
{
    QRect rect;
    for (const Cabinet &cabinet : group.cabinets)
        rect |= cabinet.rect;
    for (const Group &child : group.groups)
        rect |= paintGroupFrames(painter, child, scale);
    if (!group.isLoose())
        CLayoutPainter::paintGroup(painter, CCabinetRect::fromRecord(rect), false, scale);
    return rect;
}

/// A port's cabinets, and the first of them that is drawn.
struct SDrawnPort
{
    const Port &port;
    QVector<Cabinet> cabinets;
    int first = 0;
};

/// Of cabinets that lie in very many layers only the upper ones: the others would cost time, and are not
/// seen.
std::vector<SDrawnPort> drawnPorts(const QVector<Port> &ports, const QRect &extent)
{
    std::vector<SDrawnPort> drawn;
    for (const Port &port : ports)
        drawn.push_back({port, port.getAllCabinets()});
    qreal area = CLayoutPainter::MostLayers * extent.width() * extent.height();
    for (auto port = drawn.rbegin(); port != drawn.rend(); ++port) {
        port->first = port->cabinets.size();
        while (port->first > 0 && area > 0) {
            const QSize size = port->cabinets.at(--port->first).rect.size();
            area -= qreal(size.width()) * size.height();
        }
    }
    return drawn;
}

void paintPort(QPainter &painter, const SDrawnPort &drawn, const SLayoutDrawOptions &options, qreal scale,
               CPictureFaults &faults)
{
    for (int i = drawn.first; i < drawn.cabinets.size(); ++i) {
        const Cabinet &cabinet = drawn.cabinets.at(i);
        SCabinetLook look = lookOf(cabinet, drawn.port, options);
        if (!CLayoutPainter::isAfar(look.rect.width(), scale))
            look.innerLines = CReceiverBorders::lines(cabinet.rects, cabinet.rect.size());
        if (options.labels)
            faults.mark(look);
        CLayoutPainter::paintCabinet(painter, look, scale);
    }
    if (options.wires)
        CWirePainter::paint(painter, wiresOf(drawn.cabinets), scale);
    if (options.groups) {
        for (const Group &group : drawn.port.groups)
            paintGroupFrames(painter, group, scale);
    }
}

SPortLook lookOf(const Port &port)
{
    SPortLook look;
    look.port = port.index;
    look.fill = fillOf(port);
    look.load = port.load;
    look.locked = port.locked;
    look.redundant = port.redundancy == Port::Redundant;
    const QVector<Cabinet> cabinets = port.getAllCabinets();
    if (cabinets.isEmpty())
        return look;
    QRect bounds;
    for (const Cabinet &cabinet : cabinets)
        bounds |= cabinet.rect;
    look.bounds = CCabinetRect::fromRecord(bounds);
    const QVector<Cabinet> chain = chainOf(cabinets);
    const Cabinet &head = chain.isEmpty() ? cabinets.first() : chain.first();
    look.head = CCabinetRect::fromRecord(head.rect);
    if (chain.isEmpty())
        return look;
    look.wired = true;
    look.tail = CCabinetRect::fromRecord(chain.last().rect);
    look.backup = CPortLabel::backupText(port);
    look.single = chain.size() == 1;
    look.entry = SWireAnchors::of(head, look.head).entry;
    look.exit = SWireAnchors::of(chain.last(), look.tail).exit;
    return look;
}

void paintNames(QPainter &painter, const std::vector<SDrawnPort> &drawn, qreal scale)
{
    for (const SDrawnPort &port : drawn) {
        QVector<QRectF> rects;
        qreal widest = 0;
        for (const Cabinet &cabinet : port.cabinets) {
            rects << CCabinetRect::fromRecord(cabinet.rect);
            widest = std::max(widest, rects.last().width());
        }
        CPortEdge::paint(painter, CPortEdge::of(rects), lookOf(port.port), widest, scale,
                         QRectF(-1e9, -1e9, 2e9, 2e9));
    }
    for (const SDrawnPort &port : drawn)
        CPortLabel::paint(painter, lookOf(port.port), scale);
}

} // namespace

SWireAnchors SWireAnchors::of(const Cabinet &cabinet, const QRectF &placement)
{
    if (cabinet.type.isNull() || cabinet.rects.size() < 2)
        return {placement.center(), placement.center()};
    return {placement.topLeft() + centreOf(cabinet.rects.first()),
            placement.topLeft() + centreOf(cabinet.rects.last())};
}

QRect CLayoutPicture::extent(const LayoutData &data)
{
    return QRect(QPoint(0, 0), data.canvas).united(data.layout.boundingRect());
}

void CLayoutPicture::paint(QPainter &painter, const LayoutData &data, const QRectF &target,
                           const SLayoutDrawOptions &options)
{
    const QRectF source = CCabinetRect::fromRecord(extent(data));
    if (source.isEmpty() || target.isEmpty())
        return;
    const qreal scale = std::min(target.width() / source.width(), target.height() / source.height());
    const qreal deviceScale = scale * std::sqrt(std::abs(painter.worldTransform().determinant()));

    painter.save();
    painter.translate(target.center());
    painter.scale(scale, scale);
    painter.translate(-source.center());
    if (options.canvas && !data.canvas.isEmpty())
        CLayoutPainter::paintCanvas(painter, QRectF(QPointF(0, 0), QSizeF(data.canvas)));
    const std::vector<SDrawnPort> drawn = drawnPorts(data.layout.ports, extent(data));
    CPictureFaults faults(data.canvas);
    for (const SDrawnPort &port : drawn) {
        for (int i = port.first; options.labels && i < port.cabinets.size(); ++i)
            faults.add(port.port, port.cabinets.at(i));
    }
    for (const SDrawnPort &port : drawn)
        paintPort(painter, port, options, deviceScale, faults);
    if (options.labels)
        paintNames(painter, drawn, deviceScale);
    painter.restore();
}
