// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/CPortPanel.h"
#include "layout/printing/graphics/SheetSplit.h"
#include "layout/printing/sheets/SSheetArea.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>

/// Lays out the sheets of output ports: the drawing, and what stands below or beside it, whichever makes the
/// cabinets larger. A port whose cabinets would be too small is divided over several sheets.
class CPortSheets final
{
    Q_DECLARE_TR_FUNCTIONS(CPortSheets)

public:
    CPortSheets(const CWall &wall, const SSheetArea &area);

    /// The sheets of all ports in printing order; both views alternate. @p first is the number of the first.
    /// Fails if a cabinet is too large for the paper.
    CResult<QVector<SSheet>> sheets(int first) const;

private:
    /// How the sheets of a port are divided.
    struct SDivision
    {
        QVector<SWallPart> parts;
        bool beside = false;
    };

    QRectF drawingRoom(const CPortPanel &panel, bool beside) const;
    double fittingScale(const SPlanPort &port, const QVector<SWallPart> &parts, const QSizeF &room) const;
    SDivision division(const SPlanPort &port, const CPortPanel &panel) const;
    /// With a scale of at least @p least; without parts if there is none.
    SDivision division(const SPlanPort &port, const CPortPanel &panel, double least) const;
    SSheet sheet(const SPlanPort &port, const CPortPanel &panel, const SDivision &division, int part,
                 SSheet::View view, int first) const;
    /// Why no part of @p port can be drawn.
    QString problemOf(const SPlanPort &port) const;
    QString summary(const SPlanPort &port, int part, int parts) const;
    /// 0: the drawing fits the sheet; also where cabinets at the true scale could not be labelled.
    double trueScale(const SPlanPort &port) const;

    const CWall &m_wall;
    const SSheetArea &m_area;
    const QVector<SSheet::View> m_views;
};
