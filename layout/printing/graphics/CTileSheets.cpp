// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/CTileSheets.h"

#include "layout/printing/graphics/COverviewDrawing.h"
#include "layout/printing/graphics/DrawnMarks.h"
#include "layout/printing/graphics/DrawnViews.h"
#include "layout/printing/graphics/SheetClip.h"
#include "layout/printing/graphics/WallRuler.h"
#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/SheetMarks.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

// Millimetres.
constexpr double FieldSide = 6;    // from the frame, left and right
constexpr double FieldTop = 20;    // below the frame, for the sheet's name
constexpr double FieldHeight = 32; // what is not field, of the frame without title block
constexpr double BarLength = 100;
constexpr double BarBelow = 5; // the field
constexpr double CrossHalf = 3;
constexpr double TileMapBelow = 1.5; // the field
constexpr double TileMapHeight = 8.5;
constexpr double TileMapWidth = 40;
constexpr double Rounding = 1e-6;

/// A, B, … Z, AA …
QString crossName(int index)
{
    const QString last(QLatin1Char(char('A' + index % 26)));
    return index < 26 ? last : crossName(index / 26 - 1) + last;
}

} // namespace

CTileSheets::CTileSheets(const CWall &wall, const SSheetArea &area)
    : m_wall(wall)
    , m_area(area)
    , m_scale(1.0 / std::max(wall.processor().config.scale, 1))
    , m_field(field(area))
    , m_columns(count(wall.bounds().width() * m_scale, m_field.width()))
    , m_rows(count(wall.bounds().height() * m_scale, m_field.height()))
{
}

QRectF CTileSheets::field(const SSheetArea &area)
{
    const QRectF &frame = area.frame;
    const double bottom = area.viewBox.top();
    return QRectF(frame.left() + FieldSide, frame.top() + FieldTop, frame.width() - 2 * FieldSide,
                  bottom - frame.top() - FieldHeight);
}

int CTileSheets::count(double length, double field)
{
    return std::max(1, int(std::ceil((length - Overlap) / (field - Overlap) - Rounding)));
}

CResult<QVector<SSheet>> CTileSheets::sheets() const
{
    for (const SPlanCabinet &cabinet : m_wall.cabinets()) {
        const QSizeF size = cabinet.millimetres.size() * m_scale;
        if (size.width() > m_field.width() || size.height() > m_field.height())
            return CResult<QVector<SSheet>>::failure(tr("At 1:%1, cabinet %2 of %3 is larger than a sheet of "
                                                        "%4. Choose larger paper or a smaller scale.")
                                                         .arg(m_wall.processor().config.scale)
                                                         .arg(cabinet.place(), m_wall.processor().name,
                                                              SSheetArea::nameOf(m_wall.processor().config)));
    }
    SWallPart part;
    part.owned.resize(m_wall.cabinets().size());
    std::iota(part.owned.begin(), part.owned.end(), 0);
    const QVector<SSheet::View> views = DrawnViews::of(m_wall.processor().config);
    QVector<QVector<SSheetMark>> drawings;
    for (SSheet::View view : views) {
        SSheet whole;
        COverviewDrawing(m_wall, part, {m_wall.bounds(), {0, 0}, m_scale, view == SSheet::Back})
            .draw(whole, [](int) { return 0; });
        drawings << whole.marks;
    }
    QVector<SSheet> all;
    for (int row = 0; row < m_rows; ++row) {
        for (int column = 0; column < m_columns; ++column) {
            for (int view = 0; view < views.size(); ++view)
                all << tile(drawings.at(view), views.at(view), row, column);
        }
    }
    return all;
}

SSheet CTileSheets::tile(const QVector<SSheetMark> &marks, SSheet::View view, int row, int column) const
{
    SSheet sheet = DrawnViews::sheet(m_wall, m_area, view, -1, true,
                                     tr("row %1 of %2, column %3 of %4 of the tiles")
                                         .arg(row + 1)
                                         .arg(m_rows)
                                         .arg(column + 1)
                                         .arg(m_columns));
    // From behind, the same part of the wall, which begins at the other side.
    const double left = column * (m_field.width() - Overlap);
    const double mirrored = m_wall.bounds().width() * m_scale - left - m_field.width();
    const QPointF corner(view == SSheet::Back ? mirrored : left, row * (m_field.height() - Overlap));
    // The edge of the wall is as thick on its outer side.
    sheet.marks += SheetClip::clipped(marks, QRectF(corner, m_field.size()).adjusted(-1, -1, 1, 1),
                                      m_field.topLeft() - corner);
    drawNames(sheet, {m_wall.bounds(), m_field.topLeft() - corner, m_scale, view == SSheet::Back});
    drawCrosses(sheet, row, column);
    drawMap(sheet, QRectF(corner, m_field.size()));
    drawBar(sheet);
    return sheet;
}

void CTileSheets::drawCrosses(SSheet &sheet, int row, int column) const
{
    QVector<QRectF> taken;
    for (const SSheetMark &mark : qAsConst(sheet.marks)) {
        if (const auto *text = std::get_if<SSheetText>(&mark))
            taken << text->box;
    }
    for (int corner = 0; corner < 4; ++corner) {
        const int right = corner % 2;
        const int lower = corner / 2;
        const double inset = Overlap / 2;
        const QPointF centre(right ? m_field.right() - inset : m_field.left() + inset,
                             lower ? m_field.bottom() - inset : m_field.top() + inset);
        QPainterPath cross;
        cross.moveTo(centre - QPointF(CrossHalf, 0));
        cross.lineTo(centre + QPointF(CrossHalf, 0));
        cross.moveTo(centre - QPointF(0, CrossHalf));
        cross.lineTo(centre + QPointF(0, CrossHalf));
        DrawnMarks::path(sheet, cross, 0.35, {}, 0.5);
        const int beyond = sheet.view == SSheet::Back ? 1 - right : right;
        const QString name = crossName((row + lower) * (m_columns + 1) + column + beyond);
        QRectF box = DrawnMarks::room(name, SheetMarks::TablePoints, true);
        for (const QPointF &side : {QPointF(1, -1), QPointF(-1, -1), QPointF(1, 1), QPointF(-1, 1)}) {
            box.moveCenter(centre + side * 2.4);
            if (std::none_of(taken.begin(), taken.end(),
                             [&](const QRectF &other) { return other.intersects(box); }))
                break;
        }
        DrawnMarks::text(sheet, box, name, SheetMarks::TablePoints, true, EMark::Caption, Qt::black, 0.4);
    }
}

void CTileSheets::drawNames(SSheet &sheet, const SPlacing &placing) const
{
    QVector<int> all(m_wall.cabinets().size());
    std::iota(all.begin(), all.end(), 0);
    for (bool columns : {true, false}) {
        const double from = columns ? m_field.left() : m_field.top();
        const double to = columns ? m_field.right() : m_field.bottom();
        QVector<WallRuler::SStretch> here;
        for (WallRuler::SStretch stretch : WallRuler::stretches(m_wall, all, placing, columns)) {
            const double whole = stretch.to - stretch.from;
            stretch.from = std::max(stretch.from, from);
            stretch.to = std::min(stretch.to, to);
            if (stretch.to - stretch.from > whole / 2) // the rest is on the next tile
                here << stretch;
        }
        WallRuler::drawNames(sheet, here, columns,
                             (columns ? m_field.top() : m_field.left()) - FieldSide / 2);
    }
}

void CTileSheets::drawMap(SSheet &sheet, const QRectF &field) const
{
    const QSizeF wall = m_wall.bounds().size() * m_scale;
    const double scale = std::min(TileMapWidth / wall.width(), TileMapHeight / wall.height());
    const QSizeF size = wall * scale;
    const QRectF map({m_area.content.right() - size.width(), m_field.bottom() + TileMapBelow}, size);
    const QRectF shown = field.intersected(QRectF({0, 0}, wall));
    SheetMarks::fill(sheet, QRectF(map.topLeft() + shown.topLeft() * scale, shown.size() * scale), Qt::black);
    QVector<QLineF> outlines = m_wall.outlines();
    SPlacing placing{m_wall.bounds(), map.topLeft(), m_scale * scale, sheet.view == SSheet::Back};
    DrawnMarks::lines(sheet, placing.map(outlines), 0.18, QColor(0x70, 0x70, 0x70));
    SheetMarks::rectangle(sheet, map, 0.35);
}

void CTileSheets::drawBar(SSheet &sheet) const
{
    const double level = m_field.bottom() + BarBelow;
    const double left = m_area.content.left();
    DrawnMarks::lines(sheet,
                      {QLineF(left, level, left + BarLength, level),
                       QLineF(left, level - 1.5, left, level + 1.5),
                       QLineF(left + BarLength, level - 1.5, left + BarLength, level + 1.5)},
                      0.35);
    const double text = left + BarLength + 4;
    const double room = m_area.content.right() - TileMapWidth - 4 - text;
    const QString notes[] = {
        tr("100 mm, if the printer keeps the scale. Glue so that equal letters coincide."),
        tr("100 mm, if the printer keeps the scale."), tr("100 mm")};
    using SheetMarks::NotePoints;
    for (const QString &note : notes) { // the longest that fits
        if (CSheetFont::width(note, NotePoints, false) > room)
            continue;
        DrawnMarks::startingAt(sheet, {text, level}, note, NotePoints, false, EMark::Note);
        break;
    }
}
