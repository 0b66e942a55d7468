// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/ChainRoute.h"

#include <QLineF>

#include <algorithm>
#include <cmath>

namespace {

QPointF unit(const QPointF &from, const QPointF &to)
{
    const QLineF line(from, to);
    return line.length() > 0 ? QPointF(line.dx(), line.dy()) / line.length() : QPointF(1, 0);
}

/// Swaps the axes: what is above each other is then side by side.
QPointF turned(const QPointF &point)
{
    return {point.y(), point.x()};
}
QRectF turned(const QRectF &rect)
{
    return {rect.y(), rect.x(), rect.height(), rect.width()};
}

/// Between two cabinets side by side: straight, or with a bend along the border.
void stepAcross(SHop &hop, const QRectF &a, const QRectF &b)
{
    const QPointF from = a.center();
    const QPointF to = b.center();
    const double border = to.x() > from.x() ? (a.right() + b.left()) / 2 : (a.left() + b.right()) / 2;
    hop.line << from;
    if (!CWall::isSame(from.y(), to.y()))
        hop.line << QPointF(border, from.y()) << QPointF(border, to.y());
    hop.line << to;
    hop.border = QPointF(border, to.y());
}

void step(SHop &hop, const QRectF &a, const QRectF &b)
{
    const bool sideBySide =
        a.right() <= b.left() + CWall::Tolerance || b.right() <= a.left() + CWall::Tolerance;
    const bool stacked = a.bottom() <= b.top() + CWall::Tolerance || b.bottom() <= a.top() + CWall::Tolerance;
    if (sideBySide) {
        stepAcross(hop, a, b);
    } else if (stacked) {
        stepAcross(hop, turned(a), turned(b));
        for (QPointF &point : hop.line)
            point = turned(point);
        hop.border = turned(hop.border);
    } else { // they lie over each other
        hop.line << a.center() << b.center();
        hop.border = (a.center() + b.center()) / 2;
    }
    hop.direction = unit(hop.line.size() > 2 ? hop.border : hop.line.first(), hop.line.last());
}

/// Along the borders of the cabinets between; @p lane shifts it. Leaves and enters sideways; what is neither
/// left nor right of the other is passed on the right, or with @p flipped on the left.
void jumpSideways(SHop &hop, const QRectF &a, const QRectF &b, double lane, bool flipped)
{
    const QPointF from = a.center();
    const QPointF to = b.center();
    const bool right = to.x() > from.x() + CWall::Tolerance;
    const bool left = to.x() < from.x() - CWall::Tolerance;
    const bool above = to.y() < from.y() - CWall::Tolerance;
    const bool below = to.y() > from.y() + CWall::Tolerance;
    const double leave = (left || (!right && flipped) ? a.left() : a.right()) + lane;
    const double enter = (right || (!left && flipped) ? b.left() : b.right()) + lane;
    const double level = (above || (!below && flipped) ? b.bottom() : b.top()) + lane;
    hop.line << from << QPointF(leave, from.y());
    if (right || left)
        hop.line << QPointF(leave, level) << QPointF(enter, level);
    hop.line << QPointF(enter, to.y()) << to;
    hop.border = QPointF(enter, to.y());
    hop.direction = unit(hop.border, to);
}

/// The same upwards or downwards.
void jumpUpright(SHop &hop, const QRectF &a, const QRectF &b, double lane, bool flipped)
{
    jumpSideways(hop, turned(a), turned(b), lane, flipped);
    for (QPointF &point : hop.line)
        point = turned(point);
    hop.border = turned(hop.border);
    hop.direction = turned(hop.direction);
}

/// Whether two hops have more than points in common.
bool covers(const SHop &a, const SHop &b)
{
    for (int i = 0; i + 1 < a.line.size(); ++i) {
        const QRectF one = QRectF(a.line[i], a.line[i + 1]).normalized();
        for (int j = 0; j + 1 < b.line.size(); ++j) {
            const QRectF two = QRectF(b.line[j], b.line[j + 1]).normalized();
            const double width = std::min(one.right(), two.right()) - std::max(one.left(), two.left());
            const double height = std::min(one.bottom(), two.bottom()) - std::max(one.top(), two.top());
            if (std::min(width, height) > -CWall::Tolerance && std::max(width, height) > CWall::Tolerance)
                return true;
        }
    }
    return false;
}

/// The hops of one port while they are found.
class CFinder final
{
public:
    CFinder(const CWall &wall, const SPlanPort &port, const QSet<int> &here)
        : m_wall(wall)
        , m_port(port)
        , m_here(here)
    {
    }

    QVector<SHop> hops(int farthest, double lane)
    {
        QVector<int> far;
        for (int i = 0; i + 1 < m_port.chain.size(); ++i) {
            if (!isHere(i) || !isHere(i + 1) || !m_wall.adjoin(m_port.chain.at(i), m_port.chain.at(i + 1))) {
                far << i;
                continue;
            }
            SHop hop;
            hop.from = i;
            step(hop, rect(i), rect(i + 1));
            m_hops << hop;
        }
        QVector<int> stubs;
        for (int i : far) {
            if (!addJump(i, farthest, lane))
                stubs << i;
        }
        for (int i : stubs) {
            addStub(SHop::Leaving, i, lane);
            addStub(SHop::Entering, i, lane);
        }
        std::stable_sort(m_hops.begin(), m_hops.end(),
                         [](const SHop &a, const SHop &b) { return a.from < b.from; });
        return m_hops;
    }

private:
    bool isHere(int place) const { return m_here.contains(m_port.chain.at(place)); }
    const SPlanCabinet &cabinet(int place) const { return m_wall.cabinets().at(m_port.chain.at(place)); }
    const QRectF &rect(int place) const { return cabinet(place).millimetres; }
    bool isFree(const SHop &hop) const
    {
        return std::none_of(m_hops.begin(), m_hops.end(),
                            [&](const SHop &other) { return covers(hop, other); });
    }

    /// A jump that would lie on another hop could not be followed.
    bool addJump(int from, int farthest, double lane)
    {
        const SPlanCabinet &a = cabinet(from);
        const SPlanCabinet &b = cabinet(from + 1);
        if (!isHere(from) || !isHere(from + 1) ||
            std::abs(a.row - b.row) + std::abs(a.column - b.column) > farthest)
            return false;
        // Beside the border, which may be a thick outline.
        for (double shift : {-lane, lane}) {
            for (bool flipped : {false, true}) {
                for (const auto jump : {jumpSideways, jumpUpright}) {
                    SHop hop;
                    hop.kind = SHop::Jump;
                    hop.from = from;
                    jump(hop, a.millimetres, b.millimetres, shift, flipped);
                    if (isFree(hop)) {
                        m_hops << hop;
                        return true;
                    }
                }
            }
        }
        return false;
    }

    /// Towards the other cabinet, or where no other hop is.
    void addStub(SHop::Kind kind, int from, double lane)
    {
        const int own = kind == SHop::Leaving ? from : from + 1;
        const int other = kind == SHop::Leaving ? from + 1 : from;
        if (!isHere(own))
            return;
        const QRectF &area = rect(own);
        const QPointF centre = area.center();
        const QPointF away = rect(other).center() - centre;
        QVector<QPointF> sides{{area.left(), centre.y()},
                               {area.right(), centre.y()},
                               {centre.x(), area.top()},
                               {centre.x(), area.bottom()}};
        std::stable_sort(sides.begin(), sides.end(), [&](const QPointF &a, const QPointF &b) {
            return QPointF::dotProduct(unit(centre, a), away) > QPointF::dotProduct(unit(centre, b), away);
        });
        // An arrow across the border would lead to whatever cabinet is there.
        const bool inside = !m_wall.adjoin(m_port.chain.at(own), m_port.chain.at(other));
        if (inside) {
            for (QPointF &side : sides)
                side -= unit(centre, side) * std::min(lane, QLineF(centre, side).length() / 4);
        }
        for (const QPointF &side : sides) {
            SHop hop;
            hop.kind = kind;
            hop.from = from;
            hop.inside = inside;
            hop.border = side;
            hop.direction = kind == SHop::Leaving ? unit(centre, side) : unit(side, centre);
            hop.line << (kind == SHop::Leaving ? centre : side) << (kind == SHop::Leaving ? side : centre);
            if (isFree(hop) || side == sides.last()) {
                m_hops << hop;
                return;
            }
        }
    }

    const CWall &m_wall;
    const SPlanPort &m_port;
    const QSet<int> &m_here;
    QVector<SHop> m_hops;
};

/// Where @p line is crossed, as distances from its beginning, ascending.
QVector<double> crossings(const QLineF &line, const SHop &jump, const QVector<SHop> &all)
{
    QVector<double> places;
    for (const SHop &other : all) {
        if (&other == &jump || (other.kind == SHop::Jump && other.from < jump.from))
            continue; // of two jumps that cross, one has the bridge
        for (int i = 0; i + 1 < other.line.size(); ++i) {
            const QLineF piece(other.line[i], other.line[i + 1]);
            const bool parallel = CWall::isSame(line.dx(), 0) == CWall::isSame(piece.dx(), 0);
            QPointF point;
            if (!parallel && line.intersects(piece, &point) == QLineF::BoundedIntersection)
                places << QLineF(line.p1(), point).length();
        }
    }
    std::sort(places.begin(), places.end());
    return places;
}

} // namespace

QVector<SHop> ChainRoute::hops(const CWall &wall, const SPlanPort &port, const QSet<int> &here, int farthest,
                               double lane)
{
    return CFinder(wall, port, here).hops(farthest, lane);
}

QPainterPath ChainRoute::bridged(const SHop &jump, const QVector<SHop> &all, double radius)
{
    QPainterPath path(jump.line.first());
    for (int i = 0; i + 1 < jump.line.size(); ++i) {
        const QLineF line(jump.line[i], jump.line[i + 1]);
        const bool between = i > 0 && i + 2 < jump.line.size(); // not within the two cabinets
        const QPointF along = unit(line.p1(), line.p2());
        double passed = 0;
        for (double place : between ? crossings(line, jump, all) : QVector<double>()) {
            if (place - radius < passed || place + radius > line.length())
                continue;
            const QPointF centre = line.p1() + along * place;
            const QRectF circle(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
            path.lineTo(centre - along * radius);
            path.arcTo(circle, 180 + line.angle(), -180);
            passed = place + radius;
        }
        path.lineTo(line.p2());
    }
    return path;
}
