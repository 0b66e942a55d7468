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

using Chain = QVector<const Cabinet *>;

/// The wired ones of a port's cabinets, in chain order.
Chain chainOf(const QVector<Cabinet> &cabinets)
{
    Chain chain;
    chain.reserve(cabinets.size());
    for (const Cabinet &cabinet : cabinets) {
        if (cabinet.rank >= 0)
            chain << &cabinet;
    }
    std::sort(chain.begin(), chain.end(),
              [](const Cabinet *a, const Cabinet *b) { return a->rank < b->rank; });
    return chain;
}

QVector<QLineF> wiresOf(const Chain &chain)
{
    QVector<QLineF> wires;
    QPointF previousExit;
    for (const Cabinet *cabinet : chain) {
        const SWireAnchors anchors = SWireAnchors::of(*cabinet, CCabinetRect::fromRecord(cabinet->rect));
        if (cabinet != chain.first())
            wires << QLineF(previousExit, anchors.entry);
        previousExit = anchors.exit;
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

/// A port's cabinets, which of them are wired, and the first of them that is drawn.
struct SDrawnPort
{
    explicit SDrawnPort(const Port &drawn)
        : port(drawn)
        , cabinets(drawn.getAllCabinets())
        , chain(chainOf(cabinets))
    {
    }

    const Port &port;
    const QVector<Cabinet> cabinets;
    const Chain chain;
    int first = 0;
};

/// Of cabinets that lie in very many layers only the upper ones: the others would cost time, and are not
/// seen.
std::vector<SDrawnPort> drawnPorts(const QVector<Port> &ports, const QRect &extent)
{
    std::vector<SDrawnPort> drawn;
    drawn.reserve(std::size_t(ports.size()));
    for (const Port &port : ports)
        drawn.emplace_back(port);
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
        CWirePainter::paint(painter, wiresOf(drawn.chain), scale);
    if (options.groups) {
        for (const Group &group : drawn.port.groups)
            paintGroupFrames(painter, group, scale);
    }
}

SPortLook lookOf(const SDrawnPort &drawn)
{
    const Port &port = drawn.port;
    SPortLook look;
    look.port = port.index;
    look.fill = fillOf(port);
    look.load = port.load;
    look.locked = port.locked;
    look.redundant = port.redundancy == Port::Redundant;
    if (drawn.cabinets.isEmpty())
        return look;
    QRect bounds;
    for (const Cabinet &cabinet : drawn.cabinets)
        bounds |= cabinet.rect;
    look.bounds = CCabinetRect::fromRecord(bounds);
    const Cabinet &head = drawn.chain.isEmpty() ? drawn.cabinets.first() : *drawn.chain.first();
    look.head = CCabinetRect::fromRecord(head.rect);
    if (drawn.chain.isEmpty())
        return look;
    const Cabinet &tail = *drawn.chain.last();
    look.wired = true;
    look.tail = CCabinetRect::fromRecord(tail.rect);
    look.backup = CPortLabel::backupText(port);
    look.single = drawn.chain.size() == 1;
    look.entry = SWireAnchors::of(head, look.head).entry;
    look.exit = SWireAnchors::of(tail, look.tail).exit;
    return look;
}

void paintNames(QPainter &painter, const std::vector<SDrawnPort> &drawn, qreal scale)
{
    QVector<SPortLook> looks;
    for (const SDrawnPort &port : drawn) {
        looks << lookOf(port);
        QVector<QRectF> rects;
        qreal widest = 0;
        for (const Cabinet &cabinet : port.cabinets) {
            rects << CCabinetRect::fromRecord(cabinet.rect);
            widest = std::max(widest, rects.last().width());
        }
        CPortEdge::paint(painter, CPortEdge::of(rects), looks.last(), widest, scale,
                         QRectF(-1e9, -1e9, 2e9, 2e9));
    }
    for (const SPortLook &look : qAsConst(looks))
        CPortLabel::paint(painter, look, scale);
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
