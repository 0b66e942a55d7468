// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/CWall.h"

#include "layout/drawing/CPortColors.h"
#include "layout/printing/graphics/Hatching.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <utility>

namespace {

constexpr double TintShare = 0.72;

double overlap(double aFrom, double aTo, double bFrom, double bTo)
{
    return std::min(aTo, bTo) - std::max(aFrom, bFrom);
}

/// What is left of a stretch.
QVector<QPair<double, double>> uncovered(double from, double to, QVector<QPair<double, double>> covers)
{
    std::sort(covers.begin(), covers.end());
    QVector<QPair<double, double>> rest;
    for (const auto &cover : qAsConst(covers)) {
        if (cover.first - from > CWall::Tolerance)
            rest << qMakePair(from, std::min(cover.first, to));
        from = std::max(from, cover.second);
    }
    if (to - from > CWall::Tolerance)
        rest << qMakePair(from, to);
    return rest;
}

/// One side of a cabinet.
struct SSide
{
    bool upright;
    double place; // across
    double from;
    double to;
    bool far; // right or lower
};

std::array<SSide, 4> sidesOf(const QRectF &rect)
{
    return {{{true, rect.left(), rect.top(), rect.bottom(), false},
             {true, rect.right(), rect.top(), rect.bottom(), true},
             {false, rect.top(), rect.left(), rect.right(), false},
             {false, rect.bottom(), rect.left(), rect.right(), true}}};
}

/// Whether @p other continues the wall beyond the side.
bool continues(const SSide &side, const QRectF &other)
{
    const double near = side.upright ? other.left() : other.top();
    const double far = side.upright ? other.right() : other.bottom();
    return side.far ? near <= side.place + CWall::Tolerance && far > side.place + CWall::Tolerance
                    : far >= side.place - CWall::Tolerance && near < side.place - CWall::Tolerance;
}

} // namespace

CWall::CWall(const SPrintPlan &plan, int processor)
    : m_plan(plan)
    , m_processor(plan.processors.at(processor))
{
    for (const SPlanPort &port : m_processor.ports) {
        if (port.hasCabinets())
            m_ports << &port;
    }
    findTouching();
    QMap<int, QVector<int>> touchingPorts;
    for (const SPlanPort *port : qAsConst(m_ports)) {
        QVector<int> &others = touchingPorts[port->index];
        for (int cabinet : cabinetsOf(*port)) {
            for (int other : m_touching.at(cabinet)) {
                const int otherPort = cabinets().at(other).port;
                if (otherPort != port->index && !others.contains(otherPort))
                    others << otherPort;
            }
            m_outlines += borders(cabinet, false);
            m_edge += borders(cabinet, true);
        }
        const QVector<int> own = cabinetsOf(*port);
        m_places.insert(port->index, {bounds(own), middleOf(own)});
    }
    m_outlines = joined(m_outlines);
    m_edge = joined(m_edge);
    m_hatchings = Hatching::chosen(touchingPorts);
}

void CWall::findTouching()
{
    const auto &all = cabinets();
    m_touching.resize(all.size());
    QVector<int> order(all.size());
    for (int i = 0; i < all.size(); ++i)
        order[i] = i;
    const auto left = [&](int i) { return all.at(i).millimetres.left(); };
    std::sort(order.begin(), order.end(), [&](int a, int b) { return left(a) < left(b); });
    for (int i = 0; i < order.size(); ++i) {
        const QRectF near = all.at(order[i]).millimetres.adjusted(-CWall::Tolerance, -CWall::Tolerance,
                                                                  CWall::Tolerance, CWall::Tolerance);
        for (int j = i + 1; j < order.size() && left(order[j]) <= near.right(); ++j) {
            const QRectF &other = all.at(order[j]).millimetres;
            if (other.top() <= near.bottom() && other.bottom() >= near.top()) {
                m_touching[order[i]] << order[j];
                m_touching[order[j]] << order[i];
            }
        }
    }
    for (QVector<int> &others : m_touching)
        std::sort(others.begin(), others.end());
}

bool CWall::hasUnwired() const
{
    return std::any_of(m_ports.begin(), m_ports.end(),
                       [](const SPlanPort *port) { return !port->unwired.isEmpty(); });
}

bool CWall::adjoin(int cabinet, int other) const
{
    if (!m_touching.at(cabinet).contains(other))
        return false;
    const QRectF &a = cabinets().at(cabinet).millimetres;
    const QRectF &b = cabinets().at(other).millimetres;
    return overlap(a.left(), a.right(), b.left(), b.right()) > CWall::Tolerance ||
           overlap(a.top(), a.bottom(), b.top(), b.bottom()) > CWall::Tolerance;
}

QVector<QLineF> CWall::borders(int cabinet, bool wallOnly) const
{
    const SPlanCabinet &own = cabinets().at(cabinet);
    QVector<QLineF> lines;
    for (const SSide &side : sidesOf(own.millimetres)) {
        QVector<QPair<double, double>> covers;
        for (int other : m_touching.at(cabinet)) {
            const SPlanCabinet &neighbour = cabinets().at(other);
            const QRectF &rect = neighbour.millimetres;
            if ((wallOnly || neighbour.port == own.port) && continues(side, rect))
                covers << (side.upright ? qMakePair(rect.top(), rect.bottom())
                                        : qMakePair(rect.left(), rect.right()));
        }
        for (const auto &rest : uncovered(side.from, side.to, covers)) {
            lines << (side.upright ? QLineF(side.place, rest.first, side.place, rest.second)
                                   : QLineF(rest.first, side.place, rest.second, side.place));
        }
    }
    return lines;
}

QRectF CWall::bounds(const QVector<int> &cabinets) const
{
    QRectF rect;
    for (int cabinet : cabinets)
        rect |= m_processor.cabinets.at(cabinet).millimetres;
    return rect;
}

QPointF CWall::middleOf(const QVector<int> &cabinets) const
{
    if (cabinets.isEmpty())
        return {};
    const auto rect = [&](int cabinet) -> const QRectF & {
        return m_processor.cabinets.at(cabinet).millimetres;
    };
    const QPointF middle = bounds(cabinets).center();
    const double air = std::min(rect(cabinets.first()).width(), rect(cabinets.first()).height()) / 4;
    const bool own = [&] {
        for (const QPointF &around :
             {QPointF(-air, -air), QPointF(air, -air), QPointF(-air, air), QPointF(air, air)}) {
            if (std::none_of(cabinets.begin(), cabinets.end(),
                             [&](int cabinet) { return rect(cabinet).contains(middle + around); }))
                return false;
        }
        return true;
    }();
    if (own)
        return middle;
    return rect(*std::min_element(cabinets.begin(), cabinets.end(),
                                  [&](int a, int b) {
                                      return QLineF(rect(a).center(), middle).length() <
                                             QLineF(rect(b).center(), middle).length();
                                  }))
        .center();
}

QColor CWall::fill(const SPlanPort &port) const
{
    if (m_processor.config.grey)
        return {};
    const QColor own = port.color.isValid() ? port.color : CPortColors::fill(port.index);
    return CPortColors::blended(own, Qt::white, TintShare);
}

QVector<QLineF> CWall::joined(const QVector<QLineF> &lines)
{
    // Level lines by height, upright ones by distance from the left, then along.
    struct SPiece
    {
        bool upright;
        double place, from, to;
    };
    QVector<SPiece> pieces;
    for (const QLineF &line : lines) {
        const bool upright = CWall::isSame(line.x1(), line.x2()) && !CWall::isSame(line.y1(), line.y2());
        if (upright)
            pieces << SPiece{true, line.x1(), std::min(line.y1(), line.y2()), std::max(line.y1(), line.y2())};
        else
            pieces << SPiece{false, line.y1(), std::min(line.x1(), line.x2()),
                             std::max(line.x1(), line.x2())};
    }
    const auto key = [](const SPiece &piece) {
        return std::make_tuple(piece.upright, std::round(piece.place / CWall::Tolerance), piece.from);
    };
    std::sort(pieces.begin(), pieces.end(),
              [&](const SPiece &a, const SPiece &b) { return key(a) < key(b); });
    QVector<SPiece> whole;
    for (const SPiece &piece : qAsConst(pieces)) {
        if (!whole.isEmpty() && whole.last().upright == piece.upright &&
            CWall::isSame(whole.last().place, piece.place) &&
            piece.from <= whole.last().to + CWall::Tolerance)
            whole.last().to = std::max(whole.last().to, piece.to);
        else
            whole << piece;
    }
    QVector<QLineF> result;
    for (const SPiece &piece : qAsConst(whole)) {
        result << (piece.upright ? QLineF(piece.place, piece.from, piece.place, piece.to)
                                 : QLineF(piece.from, piece.place, piece.to, piece.place));
    }
    return result;
}
