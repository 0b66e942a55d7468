// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/COverviewSheets.h"

#include "layout/printing/graphics/CTileSheets.h"
#include "layout/printing/graphics/DrawnMarks.h"
#include "layout/printing/graphics/DrawnViews.h"
#include "layout/printing/graphics/WallRuler.h"
#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/SheetMarks.h"
#include "layout/printing/sheets/SheetNumbers.h"

#include <algorithm>
#include <cmath>

namespace {

// Millimetres.
constexpr double OverviewHead = 17;
constexpr double LegendHeight = 26;
const QMarginsF RulerMargins(12, 5, 6, 9); // around the wall: rows, columns, dimensions
constexpr double RowNames = 4;             // from the wall to the middle of a row's name
constexpr double ColumnNames = 2.7;
constexpr double DimensionLeft = 9.5; // from the wall
constexpr double DimensionBelow = 5;
constexpr double DimensionWidth = 0.25;
const DrawnMarks::SArrow DimensionArrow{2.4, 0.6};
constexpr double LegendStep = 7;

/// A line with arrow heads at both ends, a text in its middle and lines that begin at the wall.
void drawDimension(SSheet &sheet, const QLineF &line, const QLineF &ends, const QString &text)
{
    const double room = CSheetFont::width(text, SheetMarks::NotePoints, false) + 4;
    const QPointF along = QPointF(line.dx(), line.dy()) / line.length();
    const QPointF outwards = ends.p1() - line.p1();
    QVector<QLineF> lines{QLineF(line.p1() - outwards * 0.2, ends.p1()),
                          QLineF(line.p2() - outwards * 0.2, ends.p2())};
    if (room + 2 * DimensionArrow.length < line.length()) {
        lines << QLineF(line.p1(), line.center() - along * room / 2)
              << QLineF(line.center() + along * room / 2, line.p2());
        DrawnMarks::arrow(sheet, line.p1(), -along, DimensionArrow);
        DrawnMarks::arrow(sheet, line.p2(), along, DimensionArrow);
    } else { // the text is longer
        lines.clear();
    }
    DrawnMarks::lines(sheet, lines, DimensionWidth);
    QRectF box = DrawnMarks::room(text, SheetMarks::NotePoints, false);
    box.moveCenter(line.center());
    SSheetText letters =
        SheetMarks::text(box, text, SheetMarks::NotePoints, false, EMark::Ruler, Qt::AlignCenter);
    if (std::abs(along.y()) > 0.5)
        letters.turned = 270;
    sheet.marks << letters;
}

/// From 1 on, a port of that size on the paper can be read.
double largeness(const QSizeF &port)
{
    return std::min(port.width() / COverviewDrawing::SmallestPortWidth,
                    port.height() / COverviewDrawing::SmallestPortHeight);
}

} // namespace

COverviewSheets::COverviewSheets(const CWall &wall, const SSheetArea &area)
    : m_wall(wall)
    , m_area(area)
{
}

QRectF COverviewSheets::drawingRoom() const
{
    return m_area.content.adjusted(0, OverviewHead, 0, -LegendHeight).marginsRemoved(RulerMargins);
}

double COverviewSheets::fittingScale(const SWallPart &part) const
{
    const QSizeF wall = m_wall.bounds(part.owned + part.sharedCabinets()).size();
    const QSizeF room = drawingRoom().size();
    return std::min(room.width() / wall.width(), room.height() / wall.height());
}

QSizeF COverviewSheets::smallestPort() const
{
    QSizeF smallest(1e9, 1e9);
    for (const SPlanPort *port : m_wall.ports())
        smallest = smallest.boundedTo(m_wall.bounds(*port).size());
    return smallest;
}

QVector<SWallPart> COverviewSheets::parts() const
{
    QVector<int> all(m_wall.cabinets().size());
    for (int i = 0; i < all.size(); ++i)
        all[i] = i;
    const QSizeF smallest = smallestPort();
    const auto quality = [&](const QVector<SWallPart> &tried) {
        double scale = 1e9;
        for (const SWallPart &part : tried)
            scale = std::min(scale, fittingScale(part));
        return largeness(smallest * scale);
    };
    // Smaller ports than can be read well are better than no overview.
    for (double least : {1.0, 0.5, 0.001}) {
        const QVector<SWallPart> divided = SheetSplit::fewest(m_wall, all, least, quality);
        if (!divided.isEmpty())
            return divided;
    }
    return {};
}

SPlacing COverviewSheets::placing(const SWallPart &part, bool back) const
{
    SPlacing placing;
    placing.source = m_wall.bounds(part.owned + part.sharedCabinets());
    placing.scale = fittingScale(part);
    placing.back = back;
    const QSizeF slack = drawingRoom().size() - placing.source.size() * placing.scale;
    placing.corner = drawingRoom().topLeft() + QPointF(slack.width() / 2, slack.height() / 2);
    return placing;
}

QString COverviewSheets::summary(int part, int parts) const
{
    QString text = DrawnViews::counted(m_wall);
    const auto &cabinets = m_wall.cabinets();
    const int type = cabinets.isEmpty() ? -1 : cabinets.first().type;
    if (std::all_of(cabinets.begin(), cabinets.end(),
                    [&](const SPlanCabinet &cabinet) { return cabinet.type == type; }))
        text += tr(", type %1").arg(m_wall.plan().types.at(type).letter);
    if (parts > 1)
        text += tr(". Part %1 of %2").arg(part + 1).arg(parts);
    return text;
}

SSheet COverviewSheets::sheet(const QVector<SWallPart> &parts, int part, SSheet::View view, int first,
                              int firstPort) const
{
    SSheet sheet = DrawnViews::sheet(m_wall, m_area, view, -1, false, summary(part, parts.size()));
    const SPlacing place = placing(parts.at(part), view == SSheet::Back);
    const QVector<SSheet::View> all = DrawnViews::of(m_wall.processor().config);
    COverviewDrawing(m_wall, parts.at(part), place).draw(sheet, [&](int other) {
        return first + other * all.size() + all.indexOf(view);
    });
    drawRulers(sheet, parts.at(part), place);
    drawDimensions(sheet, parts.at(part), place);
    const QRectF &content = m_area.content;
    drawLegend(sheet, content.adjusted(0, content.height() - LegendHeight, 0, 0), firstPort);
    return sheet;
}

void COverviewSheets::drawRulers(SSheet &sheet, const SWallPart &part, const SPlacing &placing) const
{
    const QRectF wall = placing.target();
    WallRuler::drawNames(sheet, WallRuler::stretches(m_wall, part.owned, placing, true), true,
                         wall.top() - ColumnNames);
    const auto rows = WallRuler::stretches(m_wall, part.owned, placing, false);
    WallRuler::drawNames(sheet, rows, false, wall.left() - RowNames);
    WallRuler::drawNames(sheet, rows, false, wall.right() + RowNames);
}

void COverviewSheets::drawDimensions(SSheet &sheet, const SWallPart &part, const SPlacing &placing) const
{
    const QRectF wall = placing.target();
    const QSizeF size = placing.source.size();
    QRect pixels;
    for (int cabinet : part.owned + part.sharedCabinets())
        pixels |= m_wall.cabinets().at(cabinet).pixels;
    const auto text = [&](double millimetres, int count) {
        return tr("%1 mm, %2 px").arg(SheetNumbers::whole(qRound64(millimetres)), SheetNumbers::whole(count));
    };
    const double below = wall.bottom() + DimensionBelow;
    drawDimension(sheet, QLineF(wall.left(), below, wall.right(), below),
                  QLineF(wall.left(), wall.bottom() + 1.5, wall.right(), wall.bottom() + 1.5),
                  text(size.width(), pixels.width()));
    const double left = wall.left() - DimensionLeft;
    drawDimension(sheet, QLineF(left, wall.bottom(), left, wall.top()),
                  QLineF(left + 1.5, wall.bottom(), left + 1.5, wall.top()),
                  text(size.height(), pixels.height()));
}

QStringList COverviewSheets::notes() const
{
    const PrintConfig::SRack &rack = m_wall.processor().config.rack;
    QStringList notes;
    notes << (rack.right ? tr("Rack: %1 mm to the right of the wall, on the floor.")
                         : tr("Rack: %1 mm to the left of the wall, on the floor."))
                 .arg(SheetNumbers::whole(rack.distance));
    notes << tr("Lower edge of the wall: %1 mm above the floor.").arg(SheetNumbers::whole(rack.lowerEdge));
    const auto &ports = m_wall.ports();
    const auto count = [&ports](auto what) { return int(std::count_if(ports.begin(), ports.end(), what)); };
    const int looped = count([](auto *port) { return port->looped; });
    const bool one = looped > 0 && count([&ports](auto *port) {
                                       return port->redundancyShown == ports.first()->redundancyShown;
                                   }) == ports.size();
    if (one && looped == ports.size())
        notes << tr("Each string is looped back to %1.").arg(ports.first()->redundancyName);
    else if (looped > 0)
        notes << tr("%1 of %2 strings are looped back.").arg(looped).arg(ports.size());
    return notes;
}

QString COverviewSheets::beneath(int firstPort) const
{
    QStringList parts;
    if (firstPort > 0)
        parts << tr("The ports' sheets begin at sheet %1.").arg(firstPort);
    if (m_wall.hasUnwired())
        parts << tr("Crossed cabinets are not wired.");
    QVector<int> types;
    for (const SPlanCabinet &cabinet : m_wall.cabinets()) {
        if (!types.contains(cabinet.type))
            types << cabinet.type;
    }
    for (int type : qAsConst(types)) {
        const SPlanType &told = m_wall.plan().types.at(type);
        parts << tr("Type %1: %2, %3 × %4 px, %5 mm.")
                     .arg(told.letter, told.name)
                     .arg(told.pixels.width())
                     .arg(told.pixels.height())
                     .arg(SheetNumbers::sides(told.millimetres));
        if (types.size() > 2)
            break;
    }
    parts << tr("r row, c column, counted from the front.");
    return parts.join(QLatin1Char(' '));
}

void COverviewSheets::drawLegend(SSheet &sheet, const QRectF &area, int firstPort) const
{
    using SheetMarks::NotePoints;
    SheetMarks::line(sheet, area.topLeft(), area.topRight(), 0.25);
    const double third = area.width() / 3;
    const double first = area.top() + 5.5;
    const double second = first + LegendStep;
    const double text = area.left() + 9;
    COverviewDrawing::drawEntry(sheet, {area.left() + 4, first}, {1, 0}, 2.1);
    DrawnMarks::startingAt(sheet, {text, first}, tr("Entry: feed cable, cabinet 1"), NotePoints, false,
                           EMark::Caption);
    COverviewDrawing::drawEnd(sheet, {area.left() + 4, second}, 1.5);
    DrawnMarks::startingAt(sheet, {text, second}, tr("End of the string, last cabinet"), NotePoints, false,
                           EMark::Caption);
    const double middle = area.left() + third * 0.9;
    DrawnMarks::polyline(sheet, QVector<QPointF>{{middle, first}, {middle + 10, first}}, 0.5);
    DrawnMarks::arrow(sheet, {middle + 6.5, first}, {1, 0}, {2.2, 0.95});
    DrawnMarks::startingAt(sheet, {middle + 13, first}, tr("Signal runs this way"), NotePoints, false,
                           EMark::Caption);
    COverviewDrawing::drawPlate(sheet, {middle + 5, second}, tr("n"), 14, EMark::Caption);
    DrawnMarks::startingAt(sheet, {middle + 13, second}, tr("Output port, hatched as in the table"),
                           NotePoints, false, EMark::Caption);
    double line = area.top() + 4.5;
    const double right = area.left() + third * 2;
    for (const QString &note : notes()) {
        DrawnMarks::startingAt(sheet, {right, line},
                               CSheetFont::elided(note, NotePoints, false, area.right() - right), NotePoints,
                               false, EMark::Note);
        line += 4.6;
    }
    DrawnMarks::startingAt(sheet, {area.left() + 2, area.bottom() - 5},
                           CSheetFont::elided(beneath(firstPort), NotePoints, false, area.width() - 4),
                           NotePoints, false, EMark::Note);
}

CResult<QVector<SSheet>> COverviewSheets::sheets(int first, int firstPort) const
{
    QVector<SSheet> all;
    if (m_wall.cabinets().isEmpty())
        return all;
    const int scale = m_wall.processor().config.scale;
    if (scale > 0 && largeness(smallestPort() / scale) >= 1)
        return CTileSheets(m_wall, m_area).sheets();
    const QVector<SWallPart> divided = parts();
    if (divided.isEmpty())
        return CResult<QVector<SSheet>>::failure(
            tr("The ports of %1 are too small for an overview on this paper. Choose larger paper.")
                .arg(m_wall.processor().name));
    for (int part = 0; part < divided.size(); ++part) {
        for (SSheet::View view : DrawnViews::of(m_wall.processor().config))
            all << sheet(divided, part, view, first, firstPort);
    }
    return all;
}
