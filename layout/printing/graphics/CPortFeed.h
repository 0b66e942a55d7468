// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/SPartView.h"
#include "layout/printing/sheets/SSheet.h"

#include <QCoreApplication>
#include <QPair>

/// The cables between rack and port: feed and loop, each with a box that tells where it leads. The boxes
/// stand on the rack's side. Millimetres of the paper.
class CPortFeed final
{
    Q_DECLARE_TR_FUNCTIONS(CPortFeed)

public:
    static constexpr double BoxWidth = 31;
    static constexpr double Gap = 7.5; ///< between a box and what is nearest, also for numbers of the ruler

    /// @p outer is what the boxes keep Gap away from; they stay within @p reach, from top to bottom. The
    /// cables do not enter a cabinet where a hop does: those points are @p crossed.
    CPortFeed(const SPartView &view, const QRectF &outer, QPair<double, double> reach,
              const QVector<QPointF> &crossed);

    /// Whether the part has a box at all, and where.
    static bool hasBoxes(const SPartView &view) { return view.hasStart() || hasLoop(view); }
    static bool hasLoop(const SPartView &view) { return view.port.looped && view.hasEnd(); }
    static bool isRight(const SPartView &view)
    {
        return view.wall.processor().config.rack.right != view.placing.back;
    }

    /// What other marks keep clear of.
    QVector<QRectF> obstacles() const;
    void drawCables(SSheet &sheet) const;
    void drawBoxes(SSheet &sheet) const;

private:
    struct SCable
    {
        bool loop = false;
        bool alongBorders = false; ///< passes other cabinets
        QRectF box;
        double level = 0;  ///< at which it leaves towards the box
        QPolygonF line;    ///< from the box to the cabinet's centre
        QPointF arrowTip;  ///< of the arrow head at the cabinet
        QPointF inwards;   ///< its direction there; length 1
        QStringList texts; ///< beneath the heading
    };

    SCable cable(bool loop, const QVector<QPointF> &crossed) const;
    QStringList textsOf(bool loop) const;
    /// Beside the borders of the cabinets between, where it is told from them.
    void leadAlongBorders(SCable &cable, const QRectF &cabinet, const QVector<QPointF> &crossed) const;
    void separate(double top, double bottom);
    void connectToBox(SCable &cable) const;
    bool isInTheWay(const QRectF &cabinet, double level) const;
    double arrowLength() const;

    const SPartView &m_view;
    const bool m_right;
    const double m_near; ///< the boxes' side towards the wall
    QVector<SCable> m_cables;
};
