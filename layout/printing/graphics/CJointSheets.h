// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/CWall.h"
#include "layout/printing/sheets/SSheet.h"
#include "layout/printing/sheets/SSheetArea.h"

#include <QCoreApplication>

/// Lays out the overview of a job with several processors: their walls side by side, at one scale.
class CJointSheets final
{
    Q_DECLARE_TR_FUNCTIONS(CJointSheets)

public:
    /// @p walls are in printing order, and of one plan. One sheet a view; both views alternate.
    static QVector<SSheet> sheets(const QVector<const CWall *> &walls, const SSheetArea &area);

private:
    CJointSheets(const QVector<const CWall *> &walls, const SSheetArea &area);
    SSheet sheet(SSheet::View view) const;
    void drawWall(SSheet &sheet, const CWall &wall, const QRectF &cell) const;
    /// Columns of cells in which the walls are largest, and their scale.
    void arrange();
    QSizeF cell(int columns) const;

    const QVector<const CWall *> &m_walls;
    const SSheetArea &m_area;
    const QRectF m_room;
    int m_columns = 1;
    double m_scale = 0;
};
