// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/WallSketch.h"

#include "layout/printing/graphics/DrawnMarks.h"
#include "layout/printing/sheets/SheetMarks.h"

#include <QMap>

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

/// A number in the picture.
struct SNumber
{
    QRectF box;
    QRectF plate;
    double points;
    bool named;
};

/// Numbers in the middle of their ports.
using Numbers = QMap<int, SNumber>; // by output-port index
Numbers numbersOf(const CWall &wall, const SPlacing &placing, const WallSketch::SLook &look, double points)
{
    Numbers numbers;
    for (const SPlanPort *port : wall.ports()) {
        SNumber number;
        number.points = points;
        number.named = port->index == look.named;
        number.box = DrawnMarks::room(QString::number(port->index + 1), points, true);
        number.box.moveCenter(
            placing.map(number.named ? wall.middleOf(look.black) : wall.middle(port->index)));
        number.plate = number.box.adjusted(-Air, 0, Air, 0);
        numbers.insert(port->index, number);
    }
    return numbers;
}

/// Whether each number lies within its port, and none over another.
bool isRoomy(const Numbers &numbers, const CWall &wall, const SPlacing &placing)
{
    QVector<QRectF> taken;
    for (auto it = numbers.cbegin(); it != numbers.cend(); ++it) {
        const QSizeF room = placing.map(wall.bounds(*wall.processor().port(it.key()))).size();
        if (it->plate.width() > room.width() || it->plate.height() > room.height() ||
            std::any_of(taken.begin(), taken.end(),
                        [&](const QRectF &other) { return other.intersects(it->plate); }))
            return false;
        taken << it->plate;
    }
    return true;
}

/// Every so many-th port, as close as numbers do not touch; always the named one.
Numbers thinned(const Numbers &numbers, const QRectF &area)
{
    for (int step : {1, 2, 5, 10, 20, 50, 100}) {
        Numbers some;
        bool touching = false;
        for (auto it = numbers.cbegin(); it != numbers.cend(); ++it) {
            if (!it->named && it.key() > 0 && (it.key() + 1) % step != 0)
                continue;
            const QRectF plate = it->plate.adjusted(-Air, -Air, Air, Air);
            const auto hit = std::find_if(some.begin(), some.end(), [&](const SNumber &other) {
                return other.plate.adjusted(-Air, -Air, Air, Air).intersects(plate);
            });
            if (!area.contains(it->box) || (hit != some.end() && hit->named))
                continue;
            if (hit != some.end() && it->named)
                some.erase(hit);
            else if (hit != some.end())
                touching = true;
            some.insert(it.key(), *it);
        }
        if (!touching)
            return some;
    }
    return {};
}

/// The numbers of the ports; where there is no room for all of them, of some.
void drawNumbers(SSheet &sheet, const CWall &wall, const SPlacing &placing, const WallSketch::SLook &look)
{
    using SheetMarks::CaptionPoints;
    using SheetMarks::TablePoints;
    Numbers numbers = numbersOf(wall, placing, look, TablePoints);
    if (!isRoomy(numbers, wall, placing))
        numbers = numbersOf(wall, placing, look, CaptionPoints);
    const bool all = isRoomy(numbers, wall, placing);
    if (!all)
        numbers = thinned(numbers, placing.target());
    for (auto it = numbers.cbegin(); it != numbers.cend(); ++it) {
        const QRectF plate = it->plate.adjusted(-Air, -Air, Air, Air);
        if (it->named)
            SheetMarks::fill(sheet, it->plate.intersected(placing.target()), Qt::black);
        else if (look.hatched || !all) // may reach over the lines around its port
            SheetMarks::fill(sheet, (all ? plate : it->plate).intersected(placing.target()), Qt::white);
        DrawnMarks::text(sheet, it->box, QString::number(it.key() + 1), it->points, true, EMark::Caption,
                         it->named ? Qt::white : Qt::black);
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
