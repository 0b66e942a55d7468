// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintPlan.h"

#include <QLineF>
#include <QMap>
#include <QVector>

/// One processor's wall as its drawings need it: which cabinets touch, where ports and wall end. Computed
/// once for all sheets. Millimetres as seen from the front. The plan must outlive it. Any thread.
class CWall final
{
public:
    static constexpr double Tolerance = 1; ///< millimetres: what is as near as this touches
    static bool isSame(double a, double b) { return a - b <= Tolerance && b - a <= Tolerance; }

    CWall(const SPrintPlan &plan, int processor);

    const SPrintPlan &plan() const { return m_plan; }
    const SPlanProcessor &processor() const { return m_processor; }
    const QVector<SPlanCabinet> &cabinets() const { return m_processor.cabinets; }
    /// The ports that have cabinets on the wall, ascending.
    const QVector<const SPlanPort *> &ports() const { return m_ports; }
    /// Whether there are cabinets without wiring.
    bool hasUnwired() const;
    /// The cabinets of @p port, those without wiring last.
    static QVector<int> cabinetsOf(const SPlanPort &port) { return port.chain + port.unwired; }

    /// The cabinets that have an edge or a corner in common with @p cabinet.
    const QVector<int> &touching(int cabinet) const { return m_touching.at(cabinet); }
    /// Whether the two have an edge in common.
    bool adjoin(int cabinet, int other) const;
    /// Where the cabinet ends and none of its port follows, @p wallOnly: none at all.
    QVector<QLineF> borders(int cabinet, bool wallOnly) const;

    QRectF bounds() const { return QRectF(QPointF(0, 0), m_processor.millimetres); }
    QRectF bounds(const QVector<int> &cabinets) const;
    QRectF bounds(const SPlanPort &port) const { return m_places.value(port.index).bounds; }
    /// A place for a number: in the middle, or if that is not theirs, in the nearest cabinet.
    QPointF middleOf(const QVector<int> &cabinets) const;
    QPointF middle(int port) const { return m_places.value(port).middle; }
    /// Around the ports, and around the wall: the borders of the cabinets, joined.
    const QVector<QLineF> &outlines() const { return m_outlines; }
    const QVector<QLineF> &edge() const { return m_edge; }
    int hatching(int port) const { return m_hatchings.value(port, 1); }
    /// The fill beneath a port's hatching: light enough for black letters; invalid without colours.
    QColor fill(const SPlanPort &port) const;

    /// Joins lines, all level or upright, that continue each other.
    static QVector<QLineF> joined(const QVector<QLineF> &lines);

private:
    void findTouching();

    const SPrintPlan &m_plan;
    const SPlanProcessor &m_processor;
    QVector<const SPlanPort *> m_ports;
    QVector<QVector<int>> m_touching;
    struct SPlace
    {
        QRectF bounds;
        QPointF middle;
    };
    QMap<int, SPlace> m_places; ///< of the ports
    QVector<QLineF> m_outlines;
    QVector<QLineF> m_edge;
    QMap<int, int> m_hatchings;
};
