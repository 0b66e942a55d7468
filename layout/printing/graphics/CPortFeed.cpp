// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/CPortFeed.h"

#include "layout/printing/graphics/DrawnMarks.h"
#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/SheetMarks.h"

#include <QLineF>

#include <algorithm>
#include <cmath>

namespace {

using SheetMarks::TablePoints;

// Millimetres.
constexpr double BoxHead = 6;
constexpr double BoxLine = 4.4;
constexpr double BoxBottom = 1.8; // below the last line
constexpr double BoxPadding = 1.6;
constexpr double BoxBorder = 0.7;
constexpr double FeedWidth = 1.4;
constexpr double LoopWidth = 0.9;
constexpr double NearBorder = 1;
constexpr double CableEdge = 0.4;  // white beside a cable that follows borders
constexpr double CableLane = 1.9;  // of a cable beside a border, which may be the wall's edge
constexpr double AloneShift = 1.6; // of feed and loop in a cabinet that has both, from its middle
constexpr double BoxDistance = 4;  // between two boxes
constexpr double BoxPortPoints = 10;
constexpr double PastBend = 1.3;   // of an arrow head
constexpr double HeadShare = 0.44; // half its width, of its length
const QVector<qreal> LoopDashes{3, 1.6};
const DrawnMarks::SArrow LoopArrow{4.4, 2, true};

/// A level or upright line with its width.
QRectF stripOf(const QPointF &a, const QPointF &b, double width)
{
    return QRectF(a, b).normalized().adjusted(-width / 2, -width / 2, width / 2, width / 2);
}

} // namespace

CPortFeed::CPortFeed(const SPartView &view, const QRectF &outer, QPair<double, double> reach,
                     const QVector<QPointF> &crossed)
    : m_view(view)
    , m_right(isRight(view))
    , m_near(m_right ? outer.right() + Gap : outer.left() - Gap)
{
    if (view.hasStart())
        m_cables << cable(false, crossed);
    if (hasLoop(view))
        m_cables << cable(true, crossed);
    separate(reach.first, reach.second);
    for (SCable &cable : m_cables)
        connectToBox(cable);
}

QStringList CPortFeed::textsOf(bool loop) const
{
    const SPlanPort &port = m_view.port;
    const QString name = loop ? port.redundancyName : m_view.wall.processor().source.node.name;
    const int number = loop ? port.redundancyPort : port.index;
    const SCableRun &run = loop ? port.loop : port.feed;
    QStringList texts = CSheetFont::lines(name, TablePoints, false, BoxWidth - 2 * BoxPadding);
    if (texts.size() > 2) // its middle goes
        texts = QStringList{texts.first(), CSheetFont::elided(name.mid(texts.first().size()).trimmed(),
                                                              TablePoints, false, BoxWidth - 2 * BoxPadding)};
    texts << tr("port %1").arg(number + 1);
    texts << tr("cable %1 m").arg(SCableRun::metres(run.stock, m_view.wall.processor().config.cables));
    return texts;
}

bool CPortFeed::isInTheWay(const QRectF &cabinet, double level) const
{
    const QRectF way = m_right ? QRectF(QPointF(cabinet.right(), level - 0.5), QPointF(m_near, level + 0.5))
                               : QRectF(QPointF(m_near, level - 0.5), QPointF(cabinet.left(), level + 0.5));
    for (int other : m_view.part.owned + m_view.part.sharedCabinets()) {
        if (m_view.rect(other).adjusted(0.1, 0.1, -0.1, -0.1).intersects(way))
            return true;
    }
    return false;
}

void CPortFeed::leadAlongBorders(SCable &cable, const QRectF &cabinet, const QVector<QPointF> &crossed) const
{
    const auto isFree = [&](const QPointF &border) {
        return std::none_of(crossed.begin(), crossed.end(), [&](const QPointF &other) {
            return QLineF(border, other).length() < NearBorder;
        });
    };
    const QPointF centre = cable.line.first();
    const bool freeAbove = isFree({centre.x(), cabinet.top()});
    const bool freeBelow = isFree({centre.x(), cabinet.bottom()});
    const bool above = cable.loop ? freeAbove && !freeBelow : freeAbove || !freeBelow;
    cable.level = above ? cabinet.top() + CableLane : cabinet.bottom() - CableLane;
    QPointF bend(centre.x(), cable.level);
    if (!freeAbove && !freeBelow) { // sideways
        bend = QPointF(m_right ? cabinet.right() - CableLane : cabinet.left() + CableLane, centre.y());
        cable.line << bend << QPointF(bend.x(), cable.level);
    } else {
        cable.line << bend;
    }
    const QLineF last(bend, centre);
    const double length = arrowLength();
    const double room = last.length() - m_view.startRadius();
    cable.inwards = QPointF(last.dx(), last.dy()) / last.length();
    cable.arrowTip = bend + cable.inwards * std::min(length * PastBend, room);
    if (room < length) { // before the bend
        cable.inwards = QPointF(m_right ? -1 : 1, 0);
        cable.arrowTip = QPointF(bend.x(), cable.level) - cable.inwards * NearBorder;
    }
}

CPortFeed::SCable CPortFeed::cable(bool loop, const QVector<QPointF> &crossed) const
{
    const SPlanPort &port = m_view.port;
    const QRectF cabinet = m_view.rect(loop ? port.chain.last() : port.chain.first());
    QPointF centre = cabinet.center();
    if (port.looped && port.chain.size() == 1) {
        const double shift = std::min(AloneShift, cabinet.height() / 4);
        centre.ry() += loop ? shift : -shift;
    }
    SCable cable;
    cable.loop = loop;
    cable.level = centre.y();
    cable.line << centre;
    cable.alongBorders = isInTheWay(cabinet, cable.level);
    if (cable.alongBorders) { // of the others
        leadAlongBorders(cable, cabinet, crossed);
    } else {
        const QPointF border(m_right ? cabinet.right() : cabinet.left(), centre.y());
        cable.line << border;
        cable.inwards = QPointF(m_right ? -1 : 1, 0);
        cable.arrowTip = border + cable.inwards * arrowLength() * PastBend;
    }
    cable.texts = textsOf(loop);
    const double height = BoxHead + cable.texts.size() * BoxLine + BoxBottom;
    cable.box = QRectF(m_right ? m_near : m_near - BoxWidth, cable.level - height / 2, BoxWidth, height);
    return cable;
}

void CPortFeed::separate(double top, double bottom)
{
    if (m_cables.size() == 2) {
        SCable &upper = m_cables[m_cables[1].level < m_cables[0].level ? 1 : 0];
        SCable &lower = m_cables[m_cables[1].level < m_cables[0].level ? 0 : 1];
        const double missing = upper.box.bottom() + BoxDistance - lower.box.top();
        if (missing > 0) {
            upper.box.translate(0, -missing / 2);
            lower.box.translate(0, missing / 2);
        }
        const double over = lower.box.bottom() - bottom;
        if (over > 0) {
            lower.box.translate(0, -over);
            upper.box.moveBottom(std::min(upper.box.bottom(), lower.box.top() - BoxDistance));
        }
        const double under = top - upper.box.top();
        if (under > 0) {
            upper.box.translate(0, under);
            lower.box.moveTop(std::max(lower.box.top(), upper.box.bottom() + BoxDistance));
        }
        return;
    }
    for (SCable &cable : m_cables)
        cable.box.moveTop(std::max(top, std::min(cable.box.top(), bottom - cable.box.height())));
}

void CPortFeed::connectToBox(SCable &cable) const
{
    const double height = std::max(cable.box.top() + 2, std::min(cable.level, cable.box.bottom() - 2));
    if (std::abs(height - cable.level) > 0.01) {
        const double bend = m_near + (m_right ? -1 : 1) * (cable.loop ? 1.5 : 3.5);
        cable.line << QPointF(bend, cable.level) << QPointF(bend, height);
    }
    cable.line << QPointF(m_near, height);
    std::reverse(cable.line.begin(), cable.line.end());
}

double CPortFeed::arrowLength() const
{
    return std::max(1.5, std::min(5.0, m_view.shortestSide() * 0.2));
}

QVector<QRectF> CPortFeed::obstacles() const
{
    QVector<QRectF> areas;
    for (const SCable &cable : m_cables) {
        areas << cable.box;
        for (int i = 0; i + 1 < cable.line.size(); ++i)
            areas << stripOf(cable.line[i], cable.line[i + 1], FeedWidth);
        const double length = arrowLength();
        if (cable.loop)
            areas << DrawnMarks::arrowHead(cable.line.first(), QPointF(m_right ? 1 : -1, 0), LoopArrow)
                         .boundingRect();
        else
            areas << DrawnMarks::arrowHead(cable.arrowTip, cable.inwards, {length, length * HeadShare})
                         .boundingRect();
    }
    return areas;
}

void CPortFeed::drawCables(SSheet &sheet) const
{
    const double length = arrowLength();
    for (const SCable &cable : m_cables) {
        // On borders it would not be told from them.
        const double edge = cable.alongBorders ? CableEdge : 0;
        if (cable.loop) {
            DrawnMarks::polyline(sheet, cable.line, LoopWidth, LoopDashes, edge);
            DrawnMarks::arrow(sheet, cable.line.first(), QPointF(m_right ? 1 : -1, 0), LoopArrow);
        } else {
            DrawnMarks::polyline(sheet, cable.line, FeedWidth, {}, edge);
            DrawnMarks::arrow(sheet, cable.arrowTip, cable.inwards, {length, length * HeadShare});
        }
    }
}

void CPortFeed::drawBoxes(SSheet &sheet) const
{
    for (const SCable &cable : m_cables) {
        const QRectF head(cable.box.topLeft(), QSizeF(BoxWidth, BoxHead));
        DrawnMarks::box(sheet, cable.box, Qt::white, BoxBorder);
        DrawnMarks::box(sheet, head, cable.loop ? Qt::white : Qt::black, BoxBorder);
        const QString heading = cable.loop ? tr("LOOP to") : tr("FEED from");
        QRectF room = DrawnMarks::room(heading, TablePoints, true);
        room.moveCenter(head.center());
        room.moveLeft(head.left() + BoxPadding);
        DrawnMarks::text(sheet, room, heading, TablePoints, true, EMark::Tag,
                         cable.loop ? Qt::black : Qt::white);
        double middle = head.bottom() + BoxLine / 2 + 0.9;
        for (int i = 0; i < cable.texts.size(); ++i) {
            const bool port = i + 2 == cable.texts.size();
            DrawnMarks::startingAt(sheet, QPointF(head.left() + BoxPadding, middle), cable.texts[i],
                                   port ? BoxPortPoints : TablePoints, port, EMark::Note);
            middle += BoxLine;
        }
    }
}
