// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/WallSketch.h"

#include "layout/printing/graphics/DrawnMarks.h"
#include "layout/printing/sheets/SheetMarks.h"

#include <algorithm>

namespace {

constexpr double SketchLine = 0.4; // millimetres
constexpr double SketchEdge = 0.7;
constexpr double Air = 0.4; // around a number

QPainterPath areaOf(const CWall &wall, const QVector<int> &cabinets, const SPlacing &placing)
{
    QPainterPath area;
    for (int cabinet : cabinets)
        area.addRect(placing.map(wall.cabinets().at(cabinet).millimetres));
    return area;
}

/// The numbers of the ports that have room for them; that of @p look first.
void drawNumbers(SSheet &sheet, const CWall &wall, const SPlacing &placing, const WallSketch::SLook &look)
{
    using SheetMarks::CaptionPoints;
    using SheetMarks::TablePoints;
    QVector<const SPlanPort *> ports = wall.ports();
    std::stable_partition(ports.begin(), ports.end(),
                          [&](const SPlanPort *port) { return port->index == look.named; });
    QVector<QRectF> taken;
    for (const SPlanPort *port : qAsConst(ports)) {
        const bool named = port->index == look.named;
        const QRectF room = placing.map(named ? wall.bounds(look.black) : wall.bounds(*port));
        const QString text = QString::number(port->index + 1);
        for (double points : {TablePoints, CaptionPoints}) {
            QRectF box = DrawnMarks::room(text, points, true);
            box.moveCenter(placing.map(named ? wall.middleOf(look.black) : wall.middle(port->index)));
            const QRectF plate = box.adjusted(-Air, 0, Air, 0);
            if (plate.width() > room.width() || plate.height() > room.height() ||
                std::any_of(taken.begin(), taken.end(),
                            [&](const QRectF &other) { return other.intersects(plate); }))
                continue;
            if (look.hatched)
                SheetMarks::fill(sheet, plate.adjusted(-Air, -Air, Air, Air), Qt::white);
            DrawnMarks::text(sheet, box, text, points, true, EMark::Caption, named ? Qt::white : Qt::black);
            taken << plate;
            break;
        }
    }
}

} // namespace

QRectF WallSketch::draw(SSheet &sheet, const QRectF &rect, const CWall &wall, bool back, const SLook &look)
{
    SPlacing placing;
    placing.source = wall.bounds();
    placing.corner = rect.topLeft();
    placing.back = back;
    if (placing.source.isEmpty())
        return QRectF(rect.topLeft(), QSizeF(0, 0));
    placing.scale = std::min(rect.width() / placing.source.width(), rect.height() / placing.source.height());
    if (look.hatched) {
        for (const SPlanPort *port : wall.ports())
            DrawnMarks::fill(sheet, areaOf(wall, CWall::cabinetsOf(*port), placing), wall.fill(*port),
                             wall.hatching(port->index));
    }
    DrawnMarks::fill(sheet, areaOf(wall, look.black, placing), Qt::black);
    DrawnMarks::lines(sheet, placing.map(wall.outlines()), SketchLine);
    DrawnMarks::lines(sheet, placing.map(wall.edge()), SketchEdge);
    drawNumbers(sheet, wall, placing, look);
    return placing.target();
}
