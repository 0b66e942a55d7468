// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/COverviewDrawing.h"
#include "layout/printing/sheets/SSheetArea.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QMarginsF>

/// Lays out the sheets that show the whole wall of a processor: fitted to one sheet, or to several where
/// ports would be too small.
class COverviewSheets final
{
    Q_DECLARE_TR_FUNCTIONS(COverviewSheets)

public:
    COverviewSheets(const CWall &wall, const SSheetArea &area);

    /// The sheets in printing order; both views alternate. @p first is the number of the first, @p firstPort
    /// that of the first port sheet, 0 if there are none. Fails if ports are too small however it is divided,
    /// or cabinets at a true scale too large.
    CResult<QVector<SSheet>> sheets(int first, int firstPort) const;

private:
    QRectF drawingRoom() const;
    double fittingScale(const SWallPart &part) const;
    /// Width and height that no port is below, millimetres of the wall.
    QSizeF smallestPort() const;
    QVector<SWallPart> parts() const;
    SPlacing placing(const SWallPart &part, bool back) const;
    SSheet sheet(const QVector<SWallPart> &parts, int part, SSheet::View view, int first,
                 int firstPort) const;
    void drawRulers(SSheet &sheet, const SWallPart &part, const SPlacing &placing) const;
    void drawDimensions(SSheet &sheet, const SWallPart &part, const SPlacing &placing) const;
    void drawLegend(SSheet &sheet, const QRectF &area, int firstPort) const;
    QStringList notes() const;
    QString beneath(int firstPort) const;
    QString summary(int part, int parts) const;

    const CWall &m_wall;
    const SSheetArea &m_area;
};
