// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/ChainRoute.h"
#include "layout/printing/graphics/SPartView.h"
#include "layout/printing/sheets/SSheet.h"

#include <QCoreApplication>
#include <QMap>
#include <QMarginsF>
#include <QStringList>

#include <functional>

class CPortFeed;
struct SCabinetTag;

/// Draws a part of a port: its cabinets with their labels, the chain, neighbours, rulers, feed and loop.
/// Millimetres of the paper.
class CPortDrawing final
{
    Q_DECLARE_TR_FUNCTIONS(CPortDrawing)

public:
    /// Larger than this, nothing becomes easier to read.
    static constexpr double LargestSide = 60;

    CPortDrawing(const CWall &wall, const SPlanPort &port, const SWallPart &part, bool back);

    /// Of hops to cabinets that do not adjoin.
    static QVector<qreal> jumpDashes() { return {4, 1.2, 0.8, 1.2}; }

    /// The largest scale at which the drawing fits; 0 or less if it does not at all.
    double fittingScale(const QSizeF &room) const;
    /// Draws it in the middle of @p room. @p sheetOf gives the number of the sheet of another part.
    void draw(SSheet &sheet, const QRectF &room, double scale, const std::function<int(int)> &sheetOf);

private:
    QMarginsF margins() const;
    void place(const QRectF &room, double scale);
    void drawShared(SSheet &sheet, const std::function<int(int)> &sheetOf) const;
    /// In the cabinet where nothing is @p taken, in one line or a line for each word; left out if there is no
    /// room.
    static void placeShared(SSheet &sheet, const QRectF &cabinet, const QString &text, EMark mark,
                            QVector<QRectF> &taken);
    /// What is told in the cabinets of other sheets: where the chain goes on, and where it comes from.
    QMap<int, QStringList> sharedTags() const;
    void drawCabinets(SSheet &sheet) const;
    void drawChain(SSheet &sheet);
    void drawMarks(SSheet &sheet);
    void drawLabels(SSheet &sheet, const CPortFeed &feed, const QRectF &room) const;
    QVector<SCabinetTag> tagsOf(int cabinet) const;
    QPolygonF arrowOf(const SHop &hop) const;
    double arrowLength() const;

    SPartView m_view;
    QMarginsF m_fringe;
    QVector<SHop> m_hops;
    QVector<QRectF> m_obstacles;
};
