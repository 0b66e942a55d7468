// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/CPortPanel.h"

#include "layout/printing/graphics/CPortDrawing.h"
#include "layout/printing/graphics/DrawnMarks.h"
#include "layout/printing/graphics/WallSketch.h"
#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/SheetMarks.h"
#include "layout/printing/sheets/SheetNumbers.h"

#include <QMap>

#include <algorithm>
#include <cstdlib>

namespace {

using SheetMarks::FactPoints;
using SheetMarks::NotePoints;
using SheetMarks::TablePoints;

// Millimetres.
constexpr double HeadingHeight = 7;
constexpr double MapHeight = 32;
constexpr double HighestMap = 60;
constexpr double LowestMap = 18; // above the others
constexpr double CaptionHeight = 6;
constexpr double FactStep = 4.7;
constexpr double FactsBottom = 2;
constexpr double ValueLeft = 29;
constexpr double SignStep = 4.6;
constexpr double MeaningLeft = 15;
constexpr double TicksHeight = 7;
constexpr double TickBox = 4.2;
constexpr double BlockGap = 3;
constexpr double ColumnGap = 8;
constexpr double NarrowestColumn = 76;
constexpr double SignPoints = 8;

/// How the cables of a port are told apart.
enum ECableSign { FeedSign, HopSign, JumpSign, StubSign, LoopSign, EndsSign };

/// The signs that the sheets of a port have.
QVector<ECableSign> cableSigns(const CWall &wall, const SPlanPort &port)
{
    QVector<ECableSign> signs{FeedSign, HopSign};
    bool near = false;
    bool far = false;
    for (int i = 1; i < port.chain.size(); ++i) {
        const SPlanCabinet &a = wall.cabinets().at(port.chain.at(i - 1));
        const SPlanCabinet &b = wall.cabinets().at(port.chain.at(i));
        if (wall.adjoin(port.chain.at(i - 1), port.chain.at(i)))
            continue;
        const bool drawn = std::abs(a.row - b.row) + std::abs(a.column - b.column) <= ChainRoute::Farthest;
        (drawn ? near : far) = true;
    }
    if (near)
        signs << JumpSign;
    if (far || near) // there may be no room for a jump
        signs << StubSign;
    if (port.looped)
        signs << LoopSign;
    return signs << EndsSign;
}

/// A total of which nothing, a part or all is known.
QString known(const QString &text, bool any, bool all)
{
    if (!any && !all)
        return QCoreApplication::translate("CPortPanel", "unknown");
    return all ? text : QCoreApplication::translate("CPortPanel", "%1 or more").arg(text);
}

} // namespace

CPortPanel::CPortPanel(const CWall &wall, const SPlanPort &port, double besideHeight)
    : m_wall(wall)
    , m_port(port)
    , m_besideHeight(besideHeight)
{
    using namespace SheetNumbers;
    const SPlanTotals &totals = port.totals;
    const int volts = wall.processor().config.supply.volts;
    const auto amperes = [&](qint64 watts) { return decimal(SPlanTotals::amperes(watts, volts), 1); };
    m_facts << qMakePair(tr("Cabinets"), cabinetsText(wall, port));
    m_facts << qMakePair(tr("Pixels"), port.capacity > 0
                                           ? tr("%1 of %2").arg(whole(port.charged), whole(port.capacity))
                                           : whole(totals.pixels));
    m_facts << qMakePair(tr("Load"), tr("%1 %").arg(port.load));
    m_facts << qMakePair(tr("Weight"), known(tr("%1 kg").arg(decimal(totals.kilograms, 1)),
                                             totals.kilograms > 0, totals.weightKnown));
    const bool anyPower = totals.wattsMaximum > 0 || totals.wattsAverage > 0;
    const bool powerKnown = totals.maximumKnown && totals.averageKnown;
    m_facts << qMakePair(
        tr("Power"),
        known(tr("%1 W max., %2 W average").arg(whole(totals.wattsMaximum), whole(totals.wattsAverage)),
              anyPower, powerKnown));
    m_facts << qMakePair(
        tr("Current, %1 V").arg(volts),
        known(tr("%1 A max., %2 A average").arg(amperes(totals.wattsMaximum), amperes(totals.wattsAverage)),
              anyPower, powerKnown));
    m_facts << qMakePair(tr("Signal cables"), cablesText(port));
    const QString redundancy = port.redundancyText();
    m_facts << qMakePair(tr("Redundancy"), redundancy.isEmpty() ? tr("none")
                                           : port.redundant     ? tr("for %1").arg(redundancy)
                                                                : redundancy);
    m_facts << qMakePair(tr("Lock"), port.locked ? tr("locked") : tr("not locked"));

    m_signs << qMakePair(tr("r3 c1; x, y"), tr("place and upper left pixel, from the front"));
    QVector<int> types;
    for (int index : CWall::cabinetsOf(port)) {
        const int type = wall.cabinets().at(index).type;
        if (types.contains(type))
            continue;
        types << type;
        const SPlanType &told = wall.plan().types.at(type);
        m_signs << qMakePair(
            told.letter,
            tr("%1, %2 × %3 px").arg(told.name).arg(told.pixels.width()).arg(told.pixels.height()));
        QString second = tr("%1 mm").arg(sides(told.millimetres));
        if (told.presumed)
            second += tr(" presumed from the pitch");
        else if (told.kilograms > 0 && told.wattsMaximum > 0)
            second += tr(", %1 kg, %2 W").arg(decimal(told.kilograms, 1)).arg(told.wattsMaximum);
        m_signs << qMakePair(QString(), second);
        if (types.size() == 3)
            break; // the cover has all
    }
}

QString CPortPanel::cabinetsText(const CWall &wall, const SPlanPort &port)
{
    QMap<int, int> counts;
    for (int index : CWall::cabinetsOf(port))
        ++counts[wall.cabinets().at(index).type];
    QStringList parts;
    for (auto type = counts.cbegin(); type != counts.cend(); ++type)
        parts << tr("%1 of type %2")
                     .arg(SheetNumbers::whole(*type))
                     .arg(wall.plan().types.at(type.key()).letter);
    return parts.join(tr(", "));
}

QString CPortPanel::cablesText(const SPlanPort &port)
{
    QMap<int, int> counts;
    for (const SCableRun &hop : port.hops)
        ++counts[hop.stock];
    if (!port.chain.isEmpty())
        ++counts[port.feed.stock];
    if (!port.chain.isEmpty() && port.looped)
        ++counts[port.loop.stock];
    QStringList parts;
    for (auto length = counts.cbegin(); length != counts.cend(); ++length)
        parts << (length.key() > 0 ? tr("%1 of %2 m").arg(*length).arg(length.key())
                                   : tr("%1 too long").arg(*length));
    return parts.isEmpty() ? tr("none") : parts.join(tr(", "));
}

int CPortPanel::countOf(double width)
{
    return int((width + ColumnGap) / (NarrowestColumn + ColumnGap));
}

CPortPanel::Columns CPortPanel::columns(double width) const
{
    const int count = countOf(width);
    if (count >= 3)
        return {{Map}, {Facts}, {Signs}};
    if (count == 2)
        return {{Map, Signs}, {Facts}};
    return {{Map, Facts, Signs}};
}

int CPortPanel::factLines(double width) const
{
    int lines = 0;
    for (const auto &fact : m_facts)
        lines += CSheetFont::lines(fact.second, FactPoints, true, width - ValueLeft).size();
    return lines;
}

double CPortPanel::heightOf(Block block, double width, bool low) const
{
    switch (block) {
    case Map: {
        double highest = MapHeight;
        if (low)
            highest = std::max(LowestMap, m_besideHeight - HeadingHeight - CaptionHeight - 2 * BlockGap -
                                              heightOf(Facts, width, low) - heightOf(Signs, width, low));
        const QSizeF wall = m_wall.bounds().size();
        return HeadingHeight + CaptionHeight +
               std::min({highest, HighestMap, width * wall.height() / wall.width()});
    }
    case Facts:
        return HeadingHeight + factLines(width) * FactStep + FactsBottom;
    case Signs:
        break;
    }
    return HeadingHeight + (cableSigns(m_wall, m_port).size() + m_signs.size()) * SignStep + TicksHeight;
}

double CPortPanel::height(double width) const
{
    double highest = 0;
    const Columns all = columns(width);
    const double each = (width - (all.size() - 1) * ColumnGap) / all.size();
    for (const auto &column : all) {
        double height = (column.size() - 1) * BlockGap;
        for (Block block : column)
            height += heightOf(block, each, all.size() == 1);
        highest = std::max(highest, height);
    }
    return highest;
}

void CPortPanel::draw(SSheet &sheet, const QRectF &area, const QVector<int> &black) const
{
    const Columns all = columns(area.width());
    const double width = (area.width() - (all.size() - 1) * ColumnGap) / all.size();
    double left = area.left();
    for (const auto &column : all) {
        double top = area.top();
        if (left > area.left())
            SheetMarks::line(sheet, {left - ColumnGap / 2, top}, {left - ColumnGap / 2, area.bottom()}, 0.18);
        for (Block block : column) {
            const QRectF place(left, top, width, heightOf(block, width, all.size() == 1));
            if (block == Map)
                drawMap(sheet, place, black);
            else if (block == Facts)
                drawFacts(sheet, place);
            else
                drawSigns(sheet, place);
            top += place.height() + BlockGap;
        }
        left += width + ColumnGap;
    }
}

void CPortPanel::drawMap(SSheet &sheet, const QRectF &area, const QVector<int> &black) const
{
    DrawnMarks::startingAt(sheet, area.topLeft() + QPointF(0, 3), tr("Where this port is"), TablePoints, true,
                           EMark::Caption);
    const bool back = sheet.view == SSheet::Back;
    const QRectF room = area.adjusted(0.4, HeadingHeight, -0.4, -CaptionHeight);
    WallSketch::SLook look;
    look.black = black;
    look.named = m_port.index;
    const QRectF covered = WallSketch::draw(sheet, room, m_wall, back, look);
    const QString seen = back ? tr("%1, as seen from behind") : tr("%1, as seen from the front");
    const QString name = m_wall.processor().source.node.name;
    DrawnMarks::startingAt(
        sheet, QPointF(area.left(), covered.bottom() + 4),
        seen.arg(CSheetFont::elided(name, SignPoints, false,
                                    area.width() - CSheetFont::width(seen, SignPoints, false))),
        SignPoints, false, EMark::Caption);
}

void CPortPanel::drawFacts(SSheet &sheet, const QRectF &area) const
{
    double middle = area.top() + 3;
    DrawnMarks::startingAt(sheet, QPointF(area.left(), middle), tr("This port"), TablePoints, true,
                           EMark::Caption);
    middle += 5.5;
    for (const auto &fact : m_facts) {
        DrawnMarks::startingAt(sheet, QPointF(area.left(), middle), fact.first, FactPoints, false,
                               EMark::Fact);
        for (const QString &line :
             CSheetFont::lines(fact.second, FactPoints, true, area.width() - ValueLeft)) {
            DrawnMarks::startingAt(sheet, QPointF(area.left() + ValueLeft, middle), line, FactPoints, true,
                                   EMark::Fact);
            middle += FactStep;
        }
    }
}

void CPortPanel::drawCableSign(SSheet &sheet, int sign, const QPointF &from)
{
    const QPointF to = from + QPointF(12, 0);
    const QPolygonF line(QVector<QPointF>{from, to});
    const DrawnMarks::SArrow hop{4.4, 1.8};
    switch (sign) {
    case FeedSign:
        DrawnMarks::polyline(sheet, line, 1.4);
        DrawnMarks::arrow(sheet, to - QPointF(3, 0), {1, 0}, {5, 2.2});
        break;
    case HopSign:
        DrawnMarks::polyline(sheet, line, 0.8);
        DrawnMarks::arrow(sheet, to - QPointF(3, 0), {1, 0}, hop);
        break;
    case JumpSign:
        DrawnMarks::polyline(sheet, line, 0.8, CPortDrawing::jumpDashes());
        DrawnMarks::arrow(sheet, to, {1, 0}, hop);
        break;
    case StubSign:
        DrawnMarks::polyline(sheet, QVector<QPointF>{from, from + QPointF(4.5, 0)}, 0.8);
        DrawnMarks::arrow(sheet, from + QPointF(5, 0), {1, 0}, {3, 1.3});
        DrawnMarks::polyline(sheet, QVector<QPointF>{to - QPointF(4.5, 0), to}, 0.8);
        DrawnMarks::arrow(sheet, to - QPointF(1.5, 0), {1, 0}, {3, 1.3});
        break;
    case LoopSign:
        DrawnMarks::polyline(sheet, QVector<QPointF>{to, from}, 0.9, {3, 1.6});
        DrawnMarks::arrow(sheet, from, {-1, 0}, {4.4, 2, true});
        break;
    default:
        DrawnMarks::disc(sheet, from + QPointF(2, 0), 1.6);
        DrawnMarks::box(sheet, QRectF(from + QPointF(7, -1.4), QSizeF(2.8, 2.8)), Qt::white, 0.9);
    }
}

double CPortPanel::drawCableSigns(SSheet &sheet, const QRectF &area) const
{
    const QString meanings[] = {
        tr("feed cable from the processor"), tr("hop to the next cabinet"),
        tr("hop to a cabinet farther away"), tr("goes on where \"to\" and \"from\" say"),
        tr("loop back, redundancy"),         tr("START and END of the string")};
    double middle = area.top() + HeadingHeight + SignStep / 2;
    for (const ECableSign sign : cableSigns(m_wall, m_port)) {
        drawCableSign(sheet, sign, {area.left(), middle});
        DrawnMarks::startingAt(sheet, QPointF(area.left() + MeaningLeft, middle), meanings[sign], NotePoints,
                               false, EMark::Caption);
        middle += SignStep;
    }
    return middle;
}

void CPortPanel::drawSigns(SSheet &sheet, const QRectF &area) const
{
    DrawnMarks::startingAt(sheet, area.topLeft() + QPointF(0, 3), tr("Signs"), TablePoints, true,
                           EMark::Caption);
    double middle = drawCableSigns(sheet, area);
    for (const auto &sign : m_signs) {
        if (!sign.first.isEmpty())
            DrawnMarks::startingAt(sheet, QPointF(area.left(), middle), sign.first, SignPoints, false,
                                   EMark::Caption);
        DrawnMarks::startingAt(sheet, QPointF(area.left() + MeaningLeft, middle),
                               CSheetFont::elided(sign.second, NotePoints, false, area.width() - MeaningLeft),
                               NotePoints, false, EMark::Caption);
        middle += SignStep;
    }
    drawTicks(sheet, QRectF(area.left(), middle - SignStep / 2, area.width(), TicksHeight));
}

void CPortPanel::drawTicks(SSheet &sheet, const QRectF &area) const
{
    const double middle = area.bottom() - TickBox / 2 - 0.5;
    double left = area.left();
    for (const QString &text : {tr("Wired"), tr("Tested")}) {
        SheetMarks::rectangle(sheet, {left, middle - TickBox / 2, TickBox, TickBox}, 0.5);
        DrawnMarks::startingAt(sheet, QPointF(left + 6, middle), text, FactPoints, true, EMark::Caption);
        left += 8 + CSheetFont::width(text, FactPoints, true) + 4;
    }
    const QString initials = tr("Initials");
    DrawnMarks::startingAt(sheet, QPointF(left, middle), initials, TablePoints, false, EMark::Caption);
    left += CSheetFont::width(initials, TablePoints, false) + 2;
    SheetMarks::line(sheet, {left, middle + TickBox / 2}, {area.right(), middle + TickBox / 2}, 0.25);
}
