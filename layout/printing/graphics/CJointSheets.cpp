// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/CJointSheets.h"

#include "layout/printing/graphics/DrawnMarks.h"
#include "layout/printing/graphics/DrawnViews.h"
#include "layout/printing/graphics/WallSketch.h"
#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/SheetMarks.h"
#include "layout/printing/sheets/SheetNumbers.h"

#include <algorithm>

namespace {

// Millimetres.
constexpr double JointHead = 17;
constexpr double CellGap = 8;
constexpr double CellHead = 11; // a wall's name and figures

} // namespace

CJointSheets::CJointSheets(const QVector<const CWall *> &walls, const SSheetArea &area)
    : m_walls(walls)
    , m_area(area)
    , m_room(area.content.adjusted(0, JointHead, 0, -1))
{
    arrange();
}

QSizeF CJointSheets::cell(int columns) const
{
    const int rows = (m_walls.size() + columns - 1) / columns;
    return {(m_room.width() - (columns - 1) * CellGap) / columns,
            (m_room.height() - (rows - 1) * CellGap) / rows};
}

void CJointSheets::arrange()
{
    for (int columns = 1; columns <= m_walls.size(); ++columns) {
        const QSizeF room = cell(columns) - QSizeF(1, CellHead + 1);
        double scale = 1e9;
        for (const CWall *wall : m_walls) {
            const QSizeF size = wall->bounds().size();
            if (!size.isEmpty())
                scale = std::min({scale, room.width() / size.width(), room.height() / size.height()});
        }
        if (scale > m_scale) {
            m_scale = scale;
            m_columns = columns;
        }
    }
}

void CJointSheets::drawWall(SSheet &sheet, const CWall &wall, const QRectF &cell) const
{
    const SPlanProcessor &processor = wall.processor();
    const QString figures =
        tr("%1, %2 mm").arg(DrawnViews::counted(wall), SheetNumbers::sides(processor.millimetres));
    using SheetMarks::NotePoints;
    using SheetMarks::TitleBlockPoints;
    DrawnMarks::startingAt(sheet, cell.topLeft() + QPointF(0, 2.2),
                           CSheetFont::elided(processor.name, TitleBlockPoints, true, cell.width()),
                           TitleBlockPoints, true, EMark::Note);
    DrawnMarks::startingAt(sheet, cell.topLeft() + QPointF(0, 7),
                           CSheetFont::elided(figures, NotePoints, false, cell.width()), NotePoints, false,
                           EMark::Note);
    WallSketch::SLook look;
    look.hatched = true;
    const QSizeF size = wall.bounds().size() * m_scale;
    WallSketch::draw(sheet, QRectF(cell.topLeft() + QPointF(0.5, CellHead), size), wall,
                     sheet.view == SSheet::Back, look);
}

SSheet CJointSheets::sheet(SSheet::View view) const
{
    SSheet sheet;
    sheet.title = tr("All processors");
    sheet.ports = tr("all");
    QStringList names;
    for (const CWall *wall : m_walls)
        names << wall->processor().name;
    sheet.processor = names.join(QStringLiteral(", "));
    sheet.size = m_area.size;
    sheet.frame = m_area.frame;
    sheet.view = view;
    sheet.scale = tr("to fit");
    const SPlanTotals &totals = m_walls.first()->plan().totals;
    SheetMarks::head(sheet, m_area.content, sheet.title,
                     tr("%1 processors, %2 ports, %3 cabinets")
                         .arg(m_walls.size())
                         .arg(SheetNumbers::whole(totals.ports), SheetNumbers::whole(totals.cabinets)),
                     true);
    const QSizeF size = cell(m_columns);
    for (int i = 0; i < m_walls.size(); ++i) {
        const int column = i % m_columns;
        // Behind them, the first is on the right.
        const int place = view == SSheet::Back ? m_columns - 1 - column : column;
        const QPointF corner(place * (size.width() + CellGap), i / m_columns * (size.height() + CellGap));
        drawWall(sheet, *m_walls.at(i), QRectF(m_room.topLeft() + corner, size));
    }
    return sheet;
}

QVector<SSheet> CJointSheets::sheets(const QVector<const CWall *> &walls, const SSheetArea &area)
{
    QVector<SSheet> all;
    if (walls.isEmpty())
        return all;
    const CJointSheets joint(walls, area);
    for (SSheet::View view : DrawnViews::of(walls.first()->plan().config))
        all << joint.sheet(view);
    return all;
}
