// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/CPortDrawing.h"

#include "layout/printing/graphics/CPortFeed.h"
#include "layout/printing/graphics/CabinetLabels.h"
#include "layout/printing/graphics/DrawnMarks.h"
#include "layout/printing/graphics/PortFringe.h"
#include "layout/printing/graphics/WallRuler.h"
#include "layout/printing/sheets/SheetMarks.h"

#include <algorithm>
#include <cmath>

namespace {

// Millimetres.
constexpr double RulerHeight = 8;
constexpr double LeastMargin = 5; // also for numbers of the ruler
constexpr double OutlineWidth = 0.9;
constexpr double HopWidth = 0.8;
constexpr double ThinHopWidth = 0.5;
constexpr double CabinetWidth = 0.35;
constexpr double ThickSide = 12;      // of a cabinet with thick hops
constexpr double LineRoom = 1.2;      // that labels leave to a wire
constexpr double EdgeRoom = 0.8;      // to the middle of the wall's edge
constexpr double Lane = 1.3;          // beside the thickest border
constexpr double SmallestShare = 0.6; // of the largest number, for one that others follow
constexpr double BeyondBorder = 0.77; // of an arrow head
constexpr double SharedGap = 0.6;     // left and right of texts in cabinets of other sheets
constexpr double SharedAir = 0.3;     // around them
const QColor Shared(0xe2, 0xe2, 0xe2);

/// Half of the square at the end.
double endHalf(double side)
{
    return std::max(1.0, std::min(2.2, side * 0.1));
}

QRectF around(const QPointF &centre, double half)
{
    return QRectF(centre - QPointF(half, half), QSizeF(2 * half, 2 * half));
}

} // namespace

CPortDrawing::CPortDrawing(const CWall &wall, const SPlanPort &port, const SWallPart &part, bool back)
    : m_view{wall, port, part, {}}
{
    m_view.placing.source = wall.bounds(part.owned + part.sharedCabinets());
    m_view.placing.back = back;
    const Qt::Edges edges = PortFringe::sides(wall, port, part);
    const auto width = [&](Qt::Edge edge) { return edges.testFlag(edge) ? PortFringe::Width : 0; };
    m_fringe = QMarginsF(width(back ? Qt::RightEdge : Qt::LeftEdge), width(Qt::TopEdge),
                         width(back ? Qt::LeftEdge : Qt::RightEdge), width(Qt::BottomEdge));
}

QMarginsF CPortDrawing::margins() const
{
    QMarginsF margins = m_fringe + QMarginsF(0, RulerHeight, 0, 1);
    if (CPortFeed::hasBoxes(m_view)) {
        const double boxes = CPortFeed::BoxWidth + CPortFeed::Gap;
        margins += CPortFeed::isRight(m_view) ? QMarginsF(0, 0, boxes, 0) : QMarginsF(boxes, 0, 0, 0);
    }
    margins.setLeft(std::max(margins.left(), LeastMargin));
    margins.setRight(std::max(margins.right(), LeastMargin));
    return margins;
}

double CPortDrawing::fittingScale(const QSizeF &room) const
{
    const QMarginsF around = margins();
    const QSizeF wall = m_view.placing.source.size();
    const double largest =
        LargestSide / std::max(SPartView::shortestSide(m_view.wall, m_view.part.owned), 1.0);
    return std::min({(room.width() - around.left() - around.right()) / wall.width(),
                     (room.height() - around.top() - around.bottom()) / wall.height(), largest});
}

void CPortDrawing::place(const QRectF &room, double scale)
{
    const QRectF inner = room.marginsRemoved(margins());
    const QSizeF size = m_view.placing.source.size() * scale;
    m_view.placing.scale = scale;
    m_view.placing.corner =
        inner.topLeft() + QPointF((inner.width() - size.width()) / 2, (inner.height() - size.height()) / 2);
}

void CPortDrawing::draw(SSheet &sheet, const QRectF &room, double scale,
                        const std::function<int(int)> &sheetOf)
{
    place(room, scale);
    const QRectF outer = m_view.placing.target().marginsAdded(m_fringe);
    m_hops =
        ChainRoute::hops(m_view.wall, m_view.port, m_view.part.here(), ChainRoute::Farthest, Lane / scale);
    QVector<QPointF> crossed;
    for (const SHop &hop : qAsConst(m_hops))
        crossed << m_view.placing.map(hop.border);
    const CPortFeed feed(m_view, outer, {room.top() + RulerHeight, room.bottom()}, crossed);
    PortFringe::draw(sheet, m_view, feed.obstacles());
    WallRuler::drawColumns(sheet, m_view, outer.top());
    drawShared(sheet, sheetOf);
    drawCabinets(sheet);
    feed.drawCables(sheet);
    drawChain(sheet);
    drawMarks(sheet);
    drawLabels(sheet, feed, room);
    feed.drawBoxes(sheet);
}

QMap<int, QStringList> CPortDrawing::sharedTags() const
{
    const QVector<int> shared = m_view.part.sharedCabinets();
    QMap<int, QStringList> tags;
    for (const SHop &hop : m_hops) {
        if (hop.kind < SHop::Leaving)
            continue;
        const bool leaving = hop.kind == SHop::Leaving;
        const int other = m_view.chained(leaving ? hop.from + 1 : hop.from);
        if (shared.contains(other))
            tags[other] << (leaving ? tr("to %1").arg(hop.from + 2) : tr("from %1").arg(hop.from + 1));
    }
    return tags;
}

void CPortDrawing::drawShared(SSheet &sheet, const std::function<int(int)> &sheetOf) const
{
    const QMap<int, QStringList> tags = sharedTags();
    QVector<QRectF> heads; // which reach across the borders
    for (const SHop &hop : m_hops)
        heads << arrowOf(hop).boundingRect();
    for (const auto &part : m_view.part.shared) {
        // In a cabinet without tags, if there is one, near the middle.
        QVector<int> free = part.second;
        free.erase(std::remove_if(free.begin(), free.end(), [&](int i) { return tags.contains(i); }),
                   free.end());
        const int noted = free.isEmpty() ? part.second.at(part.second.size() / 2) : free.at(free.size() / 2);
        for (int cabinet : part.second) {
            const QRectF rect = m_view.rect(cabinet);
            DrawnMarks::box(sheet, rect, Shared, CabinetWidth);
            QVector<QRectF> taken = heads;
            if (cabinet == noted)
                placeShared(sheet, rect, tr("see sheet %1").arg(sheetOf(part.first)), EMark::Note, taken);
            for (const QString &tag : tags.value(cabinet))
                placeShared(sheet, rect, tag, EMark::Tag, taken);
        }
    }
}

void CPortDrawing::placeShared(SSheet &sheet, const QRectF &cabinet, const QString &text, EMark mark,
                               QVector<QRectF> &taken)
{
    using SheetMarks::CaptionPoints;
    const double height = DrawnMarks::room({}, CaptionPoints, false).height();
    const auto isFree = [&](const QRectF &box) {
        return std::none_of(taken.begin(), taken.end(), [&](const QRectF &other) {
            return other.intersects(box.adjusted(-SharedAir, -SharedAir, SharedAir, SharedAir));
        });
    };
    for (const QStringList &lines : {QStringList(text), text.split(QLatin1Char(' '))}) {
        double width = 0;
        for (const QString &line : lines)
            width = std::max(width, DrawnMarks::room(line, CaptionPoints, false).width());
        const QSizeF slack = cabinet.size() - QSizeF(width, height * lines.size());
        if (slack.width() < 2 * SharedGap || slack.height() < 2 * SharedAir)
            continue;
        for (double down : {0.5, 0.3, 0.7, 0.15, 0.85, 0.0, 1.0}) {
            for (double across : {0.5, 0.2, 0.8, 0.0, 1.0}) {
                const QPointF inset(SharedGap + across * (slack.width() - 2 * SharedGap),
                                    SharedAir + down * (slack.height() - 2 * SharedAir));
                QRectF box(cabinet.topLeft() + inset, QSizeF(width, height * lines.size()));
                if (!isFree(box))
                    continue;
                taken << box;
                for (const QString &line : lines) {
                    DrawnMarks::centred(sheet, {box.center().x(), box.top() + height / 2}, line,
                                        CaptionPoints, false, mark);
                    box.setTop(box.top() + height);
                }
                return;
            }
        }
    }
}

void CPortDrawing::drawCabinets(SSheet &sheet) const
{
    const QColor fill = m_view.wall.fill(m_view.port);
    QVector<QLineF> outline;
    for (int cabinet : m_view.part.owned) {
        DrawnMarks::box(sheet, m_view.rect(cabinet), fill.isValid() ? fill : QColor(Qt::white), CabinetWidth);
        outline += m_view.wall.borders(cabinet, false);
    }
    DrawnMarks::lines(sheet, m_view.placing.map(CWall::joined(outline)), OutlineWidth);
}

double CPortDrawing::arrowLength() const
{
    return std::max(1.5, std::min(4.4, m_view.shortestSide() * 0.2));
}

QPolygonF CPortDrawing::arrowOf(const SHop &hop) const
{
    const double length = arrowLength();
    const QPointF direction(m_view.placing.back ? -hop.direction.x() : hop.direction.x(), hop.direction.y());
    const QPointF tip = hop.tip(m_view.placing.map(hop.border), direction, length, BeyondBorder);
    return DrawnMarks::arrowHead(tip, direction, {length, length * 0.41});
}

void CPortDrawing::drawChain(SSheet &sheet)
{
    const double width = m_view.shortestSide() >= ThickSide ? HopWidth : ThinHopWidth;
    const double bridge = arrowLength() * 0.41 + 0.5;
    const QTransform transform = m_view.placing.transform();
    QPainterPath steps;
    QPainterPath heads;
    heads.setFillRule(Qt::WindingFill); // what two heads share is black, too
    for (const SHop &hop : qAsConst(m_hops)) {
        const QPolygonF line = transform.map(hop.line);
        for (int i = 0; i + 1 < line.size(); ++i)
            m_obstacles << QRectF(line[i], line[i + 1])
                               .normalized()
                               .adjusted(-LineRoom / 2, -LineRoom / 2, LineRoom / 2, LineRoom / 2);
        const QPolygonF head = arrowOf(hop);
        m_obstacles << head.boundingRect();
        heads.addPolygon(head);
        heads.closeSubpath();
        if (hop.kind == SHop::Step)
            steps.addPolygon(line);
        else
            DrawnMarks::path(sheet,
                             transform.map(ChainRoute::bridged(hop, m_hops, bridge / m_view.placing.scale)),
                             width, jumpDashes());
    }
    DrawnMarks::path(sheet, steps, width);
    DrawnMarks::fill(sheet, heads, Qt::black);
}

void CPortDrawing::drawMarks(SSheet &sheet)
{
    const double side = m_view.shortestSide();
    const double dot = side >= ThickSide ? 1.0 : 0.6;
    QPainterPath dots;
    for (int place = 0; place < m_view.port.chain.size(); ++place) {
        const int cabinet = m_view.chained(place);
        if (!m_view.part.owned.contains(cabinet))
            continue;
        const QPointF centre = m_view.rect(cabinet).center();
        if (place == 0)
            m_obstacles << around(centre, m_view.startRadius());
        else if (place + 1 == m_view.port.chain.size())
            m_obstacles << around(centre, endHalf(side) + 0.45);
        else
            dots.addEllipse(centre, dot, dot);
    }
    DrawnMarks::fill(sheet, dots, Qt::black);
    if (m_view.hasEnd()) {
        const QPointF centre = m_view.rect(m_view.port.chain.last()).center();
        const bool alone = m_view.port.chain.size() == 1;
        DrawnMarks::box(sheet, around(centre, endHalf(side) + (alone ? 1 : 0)), Qt::white, 0.9);
    }
    if (m_view.hasStart())
        DrawnMarks::disc(sheet, m_view.rect(m_view.port.chain.first()).center(), m_view.startRadius());
}

QVector<SCabinetTag> CPortDrawing::tagsOf(int cabinet) const
{
    QVector<SCabinetTag> tags;
    const QVector<int> &chain = m_view.port.chain;
    const QVector<int> shared = m_view.part.sharedCabinets(); // tell it themselves
    if (m_view.wall.cabinets().at(cabinet).number == 0)
        return {{{tr("not wired"), tr("not\nwired")}, SCabinetTag::Plain}};
    if (cabinet == chain.first())
        tags << SCabinetTag{{tr("START")}, SCabinetTag::Start};
    if (cabinet == chain.last())
        tags << SCabinetTag{{tr("END")}, SCabinetTag::End};
    for (const SHop &hop : m_hops) {
        if (hop.kind < SHop::Leaving || m_view.chained(hop.cabinet()) != cabinet ||
            shared.contains(m_view.chained(hop.kind == SHop::Leaving ? hop.from + 1 : hop.from)))
            continue;
        if (hop.kind == SHop::Entering) {
            tags << SCabinetTag{{tr("from %1").arg(hop.from + 1)}, SCabinetTag::Plain};
            continue;
        }
        const SPlanCabinet &next = m_view.wall.cabinets().at(m_view.chained(hop.from + 1));
        QStringList words{tr("to %1").arg(hop.from + 2), next.place()};
        if (m_view.port.hops.at(hop.from).stock > 0)
            words << tr("%1 m").arg(m_view.port.hops.at(hop.from).stock);
        tags << SCabinetTag{{words.join(tr(", ")), words.join(tr(",\n")), words.first()}, SCabinetTag::Plain};
    }
    return tags;
}

void CPortDrawing::drawLabels(SSheet &sheet, const CPortFeed &feed, const QRectF &room) const
{
    const QVector<QRectF> obstacles = m_obstacles + feed.obstacles();
    QVector<SCabinetLabels> all;
    QMap<double, double> points; // of the numbers, by the size of the cabinets
    for (int index : m_view.part.owned) {
        const SPlanCabinet &cabinet = m_view.wall.cabinets().at(index);
        SCabinetLabels labels;
        labels.rect = m_view.rect(index);
        labels.number = cabinet.number > 0 ? QString::number(cabinet.number) : QStringLiteral("–");
        labels.type = m_view.wall.plan().types.at(cabinet.type).letter;
        labels.place = cabinet.place();
        labels.pixel = QStringList{QStringLiteral("x %1").arg(cabinet.pixels.x()),
                                   QStringLiteral("y %1").arg(cabinet.pixels.y())};
        labels.tags = tagsOf(index);
        std::copy_if(obstacles.begin(), obstacles.end(), std::back_inserter(labels.obstacles),
                     [&](const QRectF &area) { return area.intersects(labels.rect); });
        const double largest = CabinetLabels::largestNumber(labels.rect);
        const double fitting = CabinetLabels::numberPoints(labels);
        if (fitting >= largest * SmallestShare && fitting > SheetMarks::CaptionPoints)
            points[largest] = std::min(points.value(largest, largest), fitting);
        all << labels;
    }
    for (const SCabinetLabels &labels : qAsConst(all)) {
        if (CabinetLabels::isTooSmall(labels))
            continue;
        const double usual =
            points.value(CabinetLabels::largestNumber(labels.rect), SheetMarks::NumberPoints);
        CabinetLabels::place(sheet, labels, std::min(usual, CabinetLabels::numberPoints(labels)));
    }
    QVector<QRectF> lines = obstacles;
    for (int cabinet : m_view.part.owned) {
        for (const QLineF &line : m_view.placing.map(m_view.wall.borders(cabinet, true)))
            lines << QRectF(line.p1(), line.p2())
                         .normalized()
                         .adjusted(-EdgeRoom, -EdgeRoom, EdgeRoom, EdgeRoom);
    }
    for (SCabinetLabels &labels : all) {
        if (!CabinetLabels::isTooSmall(labels))
            continue;
        labels.obstacles = lines;
        CabinetLabels::placeBeside(sheet, labels, room);
    }
}
