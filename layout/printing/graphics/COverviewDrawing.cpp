// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/COverviewDrawing.h"

#include "layout/printing/graphics/DrawnMarks.h"
#include "layout/printing/graphics/SPartView.h"
#include "layout/printing/sheets/SheetMarks.h"

#include <QCoreApplication>

#include <algorithm>
#include <climits>

namespace {

// Millimetres.
constexpr double WallEdge = 1.4;
constexpr double PortOutline = 0.7;
constexpr double ThinCabinet = 0.18;
constexpr double ThinHop = 0.5;
constexpr double HopEdge = 0.5;      // white beside a hop
constexpr double ArrowSide = 4;      // of a cabinet with an arrow a hop
constexpr double RunArrowSide = 1.5; // of one with an arrow a straight run
constexpr double BorderSide = 3;     // of a cabinet with borders
constexpr double FinestHop = 0.25;
constexpr double PlateShare = 0.5; // of a port's width and height, on small cabinets
constexpr double PlatePadding = 1;
constexpr double PlateBorder = 0.35;
constexpr double EndNumberPoints = 7.5;
constexpr double EndNumberSide = 8; // of a cabinet with a number at the ends of its chain
const QVector<qreal> OverviewJump{2, 0.8, 0.5, 0.8};
const QColor CabinetBorder(0x70, 0x70, 0x70);
const QColor OtherSheet(0xe2, 0xe2, 0xe2);

} // namespace

COverviewDrawing::COverviewDrawing(const CWall &wall, const SWallPart &part, const SPlacing &placing)
    : m_wall(wall)
    , m_part(part)
    , m_placing(placing)
    , m_here(part.here())
    , m_side(SPartView::shortestSide(wall, part.owned) * placing.scale)
{
}

double COverviewDrawing::arrowLength(double side)
{
    return std::max(1.5, std::min(2.2, side * 0.375));
}

double COverviewDrawing::entryRadius(double side)
{
    return std::max(0.7, std::min(2.1, side * 0.3));
}

QPointF COverviewDrawing::mapped(const QPointF &direction) const
{
    return {m_placing.back ? -direction.x() : direction.x(), direction.y()};
}

QVector<int> COverviewDrawing::ownedOf(const SPlanPort &port) const
{
    QVector<int> owned = CWall::cabinetsOf(port);
    owned.erase(std::remove_if(owned.begin(), owned.end(), [&](int i) { return !m_here.contains(i); }),
                owned.end());
    return owned;
}

void COverviewDrawing::draw(SSheet &sheet, const std::function<int(int)> &sheetOf) const
{
    drawPorts(sheet);
    drawShared(sheet, sheetOf);
    for (const SPlanPort *port : m_wall.ports()) {
        drawChain(sheet, *port);
        for (int cabinet : port->unwired) {
            if (m_here.contains(cabinet))
                drawUnwired(sheet, m_placing.map(m_wall.cabinets().at(cabinet).millimetres.center()),
                            entryRadius(m_side) * 0.8);
        }
    }
    drawPlates(sheet);
}

void COverviewDrawing::drawPorts(SSheet &sheet) const
{
    QPainterPath borders;
    QVector<QLineF> outlines;
    QVector<QLineF> edges;
    for (const SPlanPort *port : m_wall.ports()) {
        QPainterPath area;
        for (int cabinet : ownedOf(*port)) {
            area.addRect(m_placing.map(m_wall.cabinets().at(cabinet).millimetres));
            outlines += m_wall.borders(cabinet, false);
            edges += m_wall.borders(cabinet, true);
        }
        DrawnMarks::fill(sheet, area, m_wall.fill(*port), m_wall.hatching(port->index));
        borders.addPath(area);
    }
    if (m_side >= BorderSide) // smaller, the lines would be all that is seen
        sheet.marks << SSheetStroke{borders, ThinCabinet, CabinetBorder, {}, 0};
    DrawnMarks::lines(sheet, m_placing.map(CWall::joined(outlines)), PortOutline);
    DrawnMarks::lines(sheet, m_placing.map(CWall::joined(edges)), WallEdge);
}

void COverviewDrawing::drawShared(SSheet &sheet, const std::function<int(int)> &sheetOf) const
{
    for (const auto &part : m_part.shared) {
        QPainterPath area;
        for (int cabinet : part.second)
            area.addRect(m_placing.map(m_wall.cabinets().at(cabinet).millimetres));
        DrawnMarks::fill(sheet, area, OtherSheet);
        sheet.marks << SSheetStroke{area, ThinCabinet, CabinetBorder, {}, 0};
        const QString text =
            QCoreApplication::translate("COverviewDrawing", "see sheet %1").arg(sheetOf(part.first));
        const QRectF room = area.boundingRect();
        QRectF box = DrawnMarks::room(text, SheetMarks::CaptionPoints, false);
        const bool upright = box.width() > room.width();
        if ((upright ? box.width() : box.height()) > std::max(room.height(), box.height()))
            continue; // a corner, which the neighbours name
        SSheetText note =
            SheetMarks::text(box, text, SheetMarks::CaptionPoints, false, EMark::Note, Qt::AlignCenter);
        if (upright) // read from the right
            note.turned = 270;
        note.box.moveCenter(room.center());
        note.whiteEdge = 0.3;
        sheet.marks << note;
    }
}

void COverviewDrawing::drawChain(SSheet &sheet, const SPlanPort &port) const
{
    // However far: here nothing is told beside a stub.
    const QVector<SHop> hops = ChainRoute::hops(m_wall, port, m_here, INT_MAX, 0.6 / m_placing.scale);
    const QTransform transform = m_placing.transform();
    const double width = m_side >= ArrowSide ? ThinHop : FinestHop;
    QPainterPath steps;
    for (const SHop &hop : hops) {
        if (hop.kind == SHop::Step)
            steps.addPolygon(transform.map(hop.line));
        else
            DrawnMarks::path(sheet, transform.map(ChainRoute::bridged(hop, hops, 0.8 / m_placing.scale)),
                             width, OverviewJump);
    }
    DrawnMarks::path(sheet, steps, width, {}, m_side >= ArrowSide ? HopEdge : width / 2);
    drawArrows(sheet, hops);
    drawEnds(sheet, port, hops);
}

void COverviewDrawing::drawArrows(SSheet &sheet, const QVector<SHop> &hops) const
{
    if (m_side < RunArrowSide)
        return;
    const double length = arrowLength(m_side);
    QPainterPath heads;
    heads.setFillRule(Qt::WindingFill); // what two heads share is black, too
    for (int i = 0; i < hops.size(); ++i) {
        const SHop &hop = hops.at(i);
        const bool runs = i + 1 < hops.size() && hops.at(i + 1).direction == hop.direction;
        if (m_side < ArrowSide && runs)
            continue; // one a straight run
        const QPointF direction = mapped(hop.direction);
        const QPointF tip = hop.tip(m_placing.map(hop.border), direction, length, 0.55);
        heads.addPolygon(DrawnMarks::arrowHead(tip, direction, {length, length * 0.43}));
        heads.closeSubpath();
    }
    DrawnMarks::fill(sheet, heads, Qt::black);
}

void COverviewDrawing::drawEntry(SSheet &sheet, const QPointF &centre, const QPointF &direction,
                                 double radius)
{
    DrawnMarks::disc(sheet, centre, radius * 1.15, Qt::white);
    DrawnMarks::disc(sheet, centre, radius);
    QPainterPath head;
    head.addPolygon(
        DrawnMarks::arrowHead(centre + direction * radius * 0.62, direction, {radius * 0.98, radius * 0.52}));
    DrawnMarks::fill(sheet, head, Qt::white);
}

void COverviewDrawing::drawEnd(SSheet &sheet, const QPointF &centre, double half)
{
    DrawnMarks::box(sheet, QRectF(centre - QPointF(half, half), QSizeF(2 * half, 2 * half)), Qt::white,
                    half * 0.4);
}

void COverviewDrawing::drawEnds(SSheet &sheet, const SPlanPort &port, const QVector<SHop> &hops) const
{
    if (port.chain.isEmpty())
        return;
    const double radius = entryRadius(m_side);
    const auto number = [&](int cabinet) {
        const QRectF rect = m_placing.map(m_wall.cabinets().at(cabinet).millimetres);
        const QString text = QString::number(m_wall.cabinets().at(cabinet).number);
        QRectF box = DrawnMarks::room(text, EndNumberPoints, false);
        const double above = rect.height() / 2 - radius - box.height(); // beside the mark
        box.moveTopLeft(rect.topLeft() + QPointF(0.9, std::min(1.1, above)));
        if (m_side < EndNumberSide || above < 0.3)
            return;
        SheetMarks::fill(sheet, box.adjusted(-0.4, -0.2, 0.4, 0.2), Qt::white);
        DrawnMarks::text(sheet, box, text, EndNumberPoints, false, EMark::CabinetNumber);
    };
    const int first = port.chain.first();
    const int last = port.chain.last();
    if (m_here.contains(last) && last != first) {
        drawEnd(sheet, m_placing.map(m_wall.cabinets().at(last).millimetres.center()), radius * 0.72);
        number(last);
    }
    if (m_here.contains(first)) {
        const QPointF direction = hops.isEmpty() ? QPointF(1, 0) : hops.first().direction;
        drawEntry(sheet, m_placing.map(m_wall.cabinets().at(first).millimetres.center()), mapped(direction),
                  radius);
        number(first);
    }
}

void COverviewDrawing::drawUnwired(SSheet &sheet, const QPointF &centre, double half)
{
    QPainterPath cross;
    for (double way : {-half, half}) {
        cross.moveTo(centre - QPointF(half, way));
        cross.lineTo(centre + QPointF(half, way));
    }
    DrawnMarks::path(sheet, cross, half * 0.3, {}, half * 0.2);
}

void COverviewDrawing::drawPlate(SSheet &sheet, const QPointF &centre, const QString &number, double points,
                                 EMark mark)
{
    const double padding = PlatePadding * points / SheetMarks::PortPoints;
    QRectF box = DrawnMarks::room(number, points, true);
    box.moveCenter(centre);
    DrawnMarks::box(sheet, box.adjusted(-2 * padding, -padding / 2, 2 * padding, padding / 2), Qt::white,
                    PlateBorder);
    DrawnMarks::text(sheet, box, number, points, true, mark);
}

void COverviewDrawing::drawPlates(SSheet &sheet) const
{
    const auto room = [&](const QVector<int> &cabinets) {
        return m_placing.map(m_wall.bounds(cabinets)).size();
    };
    const double share = m_side >= ArrowSide ? 1 : PlateShare; // leaves room for the wires
    // One size for all.
    double points = SheetMarks::PortPoints;
    for (const SPlanPort *port : m_wall.ports()) {
        const QVector<int> owned = ownedOf(*port);
        const QString number = QString::number(port->index + 1);
        while (!owned.isEmpty() && points > SheetMarks::CaptionPoints) {
            const double padding = PlatePadding * points / SheetMarks::PortPoints;
            const QRectF box = DrawnMarks::room(number, points, true);
            if (box.width() + 4 * padding + 1 <= room(owned).width() * share &&
                box.height() + padding + 1 <= room(owned).height() * share)
                break;
            points -= 1;
        }
    }
    points = std::max(points, SheetMarks::CaptionPoints);
    for (const SPlanPort *port : m_wall.ports()) {
        const QVector<int> owned = ownedOf(*port);
        if (!owned.isEmpty())
            drawPlate(sheet, m_placing.map(m_wall.middleOf(owned)), QString::number(port->index + 1), points,
                      EMark::PortName);
    }
}
