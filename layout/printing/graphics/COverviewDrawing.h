// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/ChainRoute.h"
#include "layout/printing/graphics/SPlacing.h"
#include "layout/printing/graphics/SheetSplit.h"
#include "layout/printing/sheets/SSheet.h"

/// Draws a part of the wall with all its ports: hatched, numbered, with the way of their signal. Millimetres
/// of the paper.
class COverviewDrawing final
{
public:
    static constexpr double SmallestPortWidth = 6;
    static constexpr double SmallestPortHeight = 4;

    COverviewDrawing(const CWall &wall, const SWallPart &part, const SPlacing &placing);

    void draw(SSheet &sheet, const std::function<int(int)> &sheetOf) const;

    /// The largest arrow head, and the radius of the mark of an entry, on cabinets with that side.
    static double arrowLength(double side);
    static double entryRadius(double side);
    /// The mark of a port's entry, and of the end of its string.
    static void drawEntry(SSheet &sheet, const QPointF &centre, const QPointF &direction, double radius);
    static void drawEnd(SSheet &sheet, const QPointF &centre, double half);
    /// The mark of a cabinet without wiring.
    static void drawUnwired(SSheet &sheet, const QPointF &centre, double half);
    /// The number of a port on its white plate.
    static void drawPlate(SSheet &sheet, const QPointF &centre, const QString &number, double points,
                          EMark mark);

private:
    void drawPorts(SSheet &sheet) const;
    void drawShared(SSheet &sheet, const std::function<int(int)> &sheetOf) const;
    void drawChain(SSheet &sheet, const SPlanPort &port) const;
    void drawArrows(SSheet &sheet, const QVector<SHop> &hops) const;
    void drawEnds(SSheet &sheet, const SPlanPort &port, const QVector<SHop> &hops) const;
    void drawPlates(SSheet &sheet) const;
    QVector<int> ownedOf(const SPlanPort &port) const;
    QPointF mapped(const QPointF &direction) const;

    const CWall &m_wall;
    const SWallPart &m_part;
    const SPlacing m_placing;
    const QSet<int> m_here;
    const double m_side; ///< the shorter of the smallest cabinet
};
