// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/CWall.h"
#include "layout/printing/sheets/SSheet.h"

#include <QCoreApplication>
#include <QPair>

/// What stands below or beside the drawing of a port: where the port is, its figures, the signs, and boxes to
/// tick. Millimetres of the paper.
class CPortPanel final
{
    Q_DECLARE_TR_FUNCTIONS(CPortPanel)

public:
    static constexpr double BesideWidth = 84;

    /// @p besideHeight is the room beside a drawing, which the map fills.
    CPortPanel(const CWall &wall, const SPlanPort &port, double besideHeight);

    /// How high it is in @p width.
    double height(double width) const;
    /// @p black are the cabinets that the sheet draws.
    void draw(SSheet &sheet, const QRectF &area, const QVector<int> &black) const;

    /// "15 of 1 m, 2 of 10 m"
    static QString cablesText(const SPlanPort &port);
    /// "16 of type A" or "10 of type A, 6 of type B".
    static QString cabinetsText(const CWall &wall, const SPlanPort &port);

private:
    enum Block { Map, Facts, Signs };
    using Columns = QVector<QVector<Block>>;

    Columns columns(double width) const;
    static int countOf(double width);
    int factLines(double width) const;
    /// @p low: the map is above the others and leaves room for them.
    double heightOf(Block block, double width, bool low) const;
    void drawMap(SSheet &sheet, const QRectF &area, const QVector<int> &black) const;
    void drawFacts(SSheet &sheet, const QRectF &area) const;
    void drawSigns(SSheet &sheet, const QRectF &area) const;
    /// Returns the middle of the next line.
    double drawCableSigns(SSheet &sheet, const QRectF &area) const;
    static void drawCableSign(SSheet &sheet, int sign, const QPointF &from);
    void drawTicks(SSheet &sheet, const QRectF &area) const;

    const CWall &m_wall;
    const SPlanPort &m_port;
    const double m_besideHeight;
    QVector<QPair<QString, QString>> m_facts;
    QVector<QPair<QString, QString>> m_signs; ///< sign and meaning; an empty sign continues the one before
};
