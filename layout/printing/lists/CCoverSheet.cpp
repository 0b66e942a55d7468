// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/lists/CCoverSheet.h"

#include "layout/printing/graphics/WallSketch.h"
#include "layout/printing/lists/CCoverCables.h"
#include "layout/printing/lists/CCoverTotals.h"
#include "layout/printing/lists/CPartsList.h"
#include "layout/printing/lists/ListSheets.h"
#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/SheetMarks.h"
#include "layout/printing/sheets/SheetNumbers.h"

#include <algorithm>

namespace {

using SheetNumbers::dash;
using SheetNumbers::decimal;
using SheetNumbers::whole;

constexpr double CoverHead = 19;
constexpr double BeneathBase = 6.4;     ///< of the line below the name
constexpr double TwoCoverColumns = 210; ///< millimetres that two columns take
constexpr double LeftShare = 0.53;
constexpr double CoverGap = 10;
constexpr double EntryHeight = 5.4; ///< of an entry of the list of sheets
constexpr double EntryLine = 3.8;   ///< of each further line of it
constexpr double EntryLeft = 23;
constexpr double PartTitle = 6.4;
constexpr double PartBase = 4.4;

/// Lines of at most @p width, smaller before they are more than @p most; at last their end is cut off.
QStringList fewLines(const QString &text, double &points, double least, bool bold, double width, int most)
{
    while (points > least && CSheetFont::lines(text, points, bold, width).size() > most)
        points -= 0.5;
    QStringList lines = CSheetFont::lines(text, points, bold, width);
    if (lines.size() > most) {
        lines = lines.mid(0, most);
        lines.last() = CSheetFont::elided(lines.last() + QStringLiteral(" \u2026"), points, bold, width);
    }
    return lines;
}

QString quotedNames(const SPrintPlan &plan)
{
    QStringList names;
    for (const SPlanProcessor &processor : plan.processors)
        names << QStringLiteral("\u201c%1\u201d").arg(processor.source.node.name);
    return names.join(QStringLiteral(", "));
}

/// A level line with arrow heads and a text in its middle.
void addDimension(SSheet &sheet, double left, double right, double y, const QString &text)
{
    const double width = CSheetFont::width(text, SheetMarks::CaptionPoints + 1, false);
    const double middle = (left + right) / 2;
    if (right - left < width + 8)
        return;
    SheetMarks::line(sheet, {left, y}, {middle - width / 2 - 1.5, y}, 0.18);
    SheetMarks::line(sheet, {middle + width / 2 + 1.5, y}, {right, y}, 0.18);
    SSheetFill heads;
    heads.color = Qt::black;
    heads.path.addPolygon(QVector<QPointF>{{left, y}, {left + 2, y - 0.6}, {left + 2, y + 0.6}, {left, y}});
    heads.path.addPolygon(
        QVector<QPointF>{{right, y}, {right - 2, y - 0.6}, {right - 2, y + 0.6}, {right, y}});
    sheet.marks << heads;
    SheetMarks::textAt(sheet, middle - width / 2, y + 1, text, SheetMarks::CaptionPoints + 1, false,
                       EMark::Ruler);
}

} // namespace

QVector<SSheet> CCoverSheet::sheets(const SPrintPlan &plan, const Walls &walls,
                                    const QVector<SCoverEntry> &entries, const SSheetArea &area)
{
    CCoverSheet cover(plan, walls, entries, area);
    CCoverTotals(plan, cover.m_flow).add();
    cover.addTypes();
    CCoverCables::add(cover.m_flow, cover.m_tally, plan.config);
    const QRectF right = cover.columns().last();
    if (cover.columns().size() > 1 && cover.m_flow.room().left() < right.left())
        cover.m_flow.nextColumn();
    cover.addWalls();
    cover.addEntries();
    cover.addNotes();
    return cover.m_flow.sheets();
}

CCoverSheet::CCoverSheet(const SPrintPlan &plan, const Walls &walls, const QVector<SCoverEntry> &entries,
                         const SSheetArea &area)
    : m_plan(plan)
    , m_walls(walls)
    , m_entries(entries)
    , m_area(area)
    , m_tally(SPartsTally::of(plan))
    , m_head(head())
    , m_flow([this] { return headed(); }, columns())
{
}

QVector<QRectF> CCoverSheet::columns() const
{
    const QRectF body = m_area.content.adjusted(0, m_head.height, 0, 0);
    if (body.width() < TwoCoverColumns)
        return {body};
    const double left = (body.width() - CoverGap) * LeftShare;
    return {QRectF(body.left(), body.top(), left, body.height()),
            QRectF(body.left() + left + CoverGap, body.top(), body.width() - left - CoverGap, body.height())};
}

CCoverSheet::SHead CCoverSheet::head() const
{
    constexpr int MostLines = 3;
    const double width = m_area.content.width();
    SHead head;
    head.namePoints = SheetMarks::TitlePoints;
    const QString project = m_plan.config.project.isEmpty() ? tr("Wiring plan") : m_plan.config.project;
    while (head.namePoints > SheetMarks::ViewPoints &&
           CSheetFont::width(project, head.namePoints, true) > width)
        head.namePoints -= 1;
    head.name = fewLines(project, head.namePoints, SheetMarks::TitleBlockPoints, true, width, MostLines);
    const QString views = m_plan.config.views == PrintConfig::BothViews  ? tr("front and back views")
                          : m_plan.config.views == PrintConfig::BackView ? tr("back view")
                                                                         : tr("front view");
    const QString wall = m_plan.processors.size() == 1 ? tr("Wiring plan of the LED wall %1, %2")
                                                       : tr("Wiring plan of the LED walls %1, %2");
    QString beneath = wall.arg(quotedNames(m_plan), views);
    if (!m_plan.config.venue.isEmpty())
        beneath += QStringLiteral(" \u2013 ") + m_plan.config.venue;
    head.beneathPoints = 12;
    head.beneath = fewLines(beneath, head.beneathPoints, SheetMarks::TablePoints, false, width, MostLines);
    head.height = CoverHead + (head.name.size() - 1) * CSheetFont::lineHeight(head.namePoints) +
                  (head.beneath.size() - 1) * CSheetFont::lineHeight(head.beneathPoints);
    return head;
}

SSheet CCoverSheet::headed() const
{
    SSheet sheet;
    sheet.title = tr("Cover");
    sheet.ports = tr("all");
    sheet.processor = ListSheets::names(m_plan);
    sheet.view = m_plan.config.views == PrintConfig::BackView ? SSheet::Back : SSheet::Front;
    sheet.list = true;
    double base = m_area.content.top() + SheetMarks::HeadBase;
    for (const QString &line : m_head.name) {
        SheetMarks::textAt(sheet, m_area.content.left(), base, line, m_head.namePoints, true, EMark::Title);
        base += CSheetFont::lineHeight(m_head.namePoints);
    }
    base += BeneathBase - CSheetFont::lineHeight(m_head.namePoints);
    for (const QString &line : m_head.beneath) {
        SheetMarks::textAt(sheet, m_area.content.left(), base, line, m_head.beneathPoints, false,
                           EMark::Title);
        base += CSheetFont::lineHeight(m_head.beneathPoints);
    }
    return sheet;
}

void CCoverSheet::addTypes()
{
    constexpr double Row = 6.2;
    if (m_flow.room().height() < PartTitle + 4 * Row)
        m_flow.nextColumn();
    const auto right = Qt::AlignRight;
    QVector<STableColumn> columns{
        {tr("Type")},           {tr("Name")},         {tr("Pixels"), 0, right},
        {tr("mm"), 0, right},   {tr("kg"), 0, right}, {tr("W max. / avg."), 0, right},
        {tr("Count"), 0, right}};
    const int most = std::max(
        2, CSheetTable(columns, Row).capacity(m_flow.room().height() - PartTitle - CCoverCables::Height));
    m_shownTypes = m_plan.types.size() <= most ? m_plan.types.size() : most - 1;
    QVector<STableRow> rows;
    for (int i = 0; i < m_shownTypes; ++i) {
        const SPlanType &type = m_plan.types.at(i);
        STableRow row;
        row.cells = {type.letter,
                     type.name,
                     SheetNumbers::sides(type.pixels),
                     SheetNumbers::sides(type.millimetres),
                     type.kilograms > 0 ? decimal(type.kilograms, 1) : dash(),
                     type.wattsMaximum > 0
                         ? QStringLiteral("%1 / %2").arg(type.wattsMaximum).arg(type.wattsAverage)
                         : dash(),
                     whole(m_tally.cabinets.value(i))};
        rows << row;
    }
    columns = ListSheets::filled(columns, rows, 1, m_flow.room().width());
    m_nameWidth = columns.at(1).width - 3;
    if (m_shownTypes < m_plan.types.size()) {
        STableRow row;
        row.cells = {
            STableCell(tr("and %1 more, see the parts list").arg(m_plan.types.size() - m_shownTypes))};
        rows << row;
    }
    m_flow.addTable(tr("Cabinets by type"), CSheetTable(columns, Row), rows);
}

void CCoverSheet::addWalls()
{
    constexpr double Around = 20; // of a sketch: title, dimension, caption
    constexpr double Lowest = 14;
    constexpr double Highest = 75;
    const bool back = m_plan.config.views == PrintConfig::BackView;
    int lines = 0;
    for (const QString &note : notes())
        lines += CSheetFont::lines(note, SheetMarks::NotePoints, false, m_flow.room().width()).size();
    double needed = 22 + CTableFlow::NoteLine * (lines + 1); // below
    for (const SCoverEntry &entry : m_entries)
        needed += EntryHeight + (linesOf(entry, m_flow.room().width()).size() - 1) * EntryLine;
    for (int i = 0; i < m_walls.size(); ++i) {
        const CWall &wall = *m_walls.at(i);
        const QString view = back ? tr("back view") : tr("front view");
        const QString title = m_walls.size() > 1 ? tr("%1, %2").arg(wall.processor().source.node.name, view)
                                                 : tr("The wall, %1").arg(view);
        const QRectF room = m_flow.room();
        const QStringList titles = CSheetFont::lines(title, SheetMarks::TitleBlockPoints, true, room.width());
        const double step = CSheetFont::lineHeight(SheetMarks::TitleBlockPoints);
        const double more = (titles.size() - 1) * step;
        const double height =
            std::min(Highest, (room.height() - needed) / (m_walls.size() - i) - Around - more);
        if (height < Lowest || wall.cabinets().isEmpty())
            continue;
        SSheet &sheet = m_flow.sheet();
        for (int line = 0; line < titles.size(); ++line)
            SheetMarks::textAt(sheet, room.left(), room.top() + PartBase + line * step, titles.at(line),
                               SheetMarks::TitleBlockPoints, true, EMark::Title);
        WallSketch::SLook look;
        look.hatched = true;
        const QRectF drawn = WallSketch::draw(
            sheet, {room.left(), room.top() + 12 + more, room.width(), height}, wall, back, look);
        const QSizeF &size = wall.processor().millimetres;
        addDimension(sheet, drawn.left(), drawn.right(), drawn.top() - 2.6,
                     tr("%1 mm").arg(whole(qRound64(size.width()))));
        SheetMarks::textAt(
            sheet, room.left(), drawn.bottom() + 3.8,
            tr("height %1 mm, lower edge %2 mm above the floor")
                .arg(whole(qRound64(size.height())), whole(wall.processor().config.rack.lowerEdge)),
            SheetMarks::NotePoints, false, EMark::Note);
        m_flow.setTop(drawn.bottom() + 8);
    }
}

QStringList CCoverSheet::linesOf(const SCoverEntry &entry, double width) const
{
    return CSheetFont::lines(entry.name, SheetMarks::TablePoints, false, width - EntryLeft);
}

void CCoverSheet::addEntries()
{
    const auto endLine = [this](double width) {
        const QRectF room = m_flow.room();
        SheetMarks::line(m_flow.sheet(), room.topLeft(), room.topRight(), width);
    };
    if (m_flow.room().height() < PartTitle + 3 * EntryHeight)
        m_flow.nextColumn();
    SheetMarks::textAt(m_flow.sheet(), m_flow.room().left(), m_flow.room().top() + PartBase, tr("Sheets"),
                       SheetMarks::TitleBlockPoints, true, EMark::Title);
    m_flow.setTop(m_flow.room().top() + PartTitle);
    endLine(0.5);
    for (const SCoverEntry &entry : m_entries) {
        const QStringList lines = linesOf(entry, m_flow.room().width());
        const double height = EntryHeight + (lines.size() - 1) * EntryLine;
        if (m_flow.room().height() < height)
            m_flow.nextColumn();
        const QRectF room = m_flow.room();
        const QString numbers = entry.first == entry.last ? QString::number(entry.first)
                                : entry.first + 1 == entry.last
                                    ? tr("%1, %2").arg(entry.first).arg(entry.last)
                                    : tr("%1 to %2").arg(entry.first).arg(entry.last);
        const double width = CSheetFont::width(numbers, SheetMarks::TablePoints, true);
        double base = room.top() + 3.9;
        SheetMarks::textAt(m_flow.sheet(), room.left() + 20 - width, base, numbers, SheetMarks::TablePoints,
                           true, EMark::Fact);
        for (const QString &line : lines) {
            SheetMarks::textAt(m_flow.sheet(), room.left() + EntryLeft, base, line, SheetMarks::TablePoints,
                               false, EMark::Fact);
            base += EntryLine;
        }
        m_flow.setTop(room.top() + height);
        endLine(0.18);
    }
    m_flow.setTop(m_flow.room().top() + 3);
}

QStringList CCoverSheet::notes() const
{
    QStringList notes;
    if (!m_plan.config.notes.isEmpty())
        notes << m_plan.config.notes;
    for (const SPlanProcessor &processor : m_plan.processors) {
        if (m_plan.processors.size() == 1)
            notes << tr("A sheet whose layout version is not %1 belongs to another layout: do not wire from "
                        "it.")
                         .arg(processor.version);
        else
            notes << tr("%1: layout version %2.").arg(processor.name, processor.version);
    }
    for (const QString &name : m_plan.empty)
        notes << tr("%1 has no cabinets.").arg(name);
    const auto any = [this](bool SPlanType::*what) {
        return std::any_of(m_plan.types.begin(), m_plan.types.end(),
                           [what](const SPlanType &type) { return type.*what; });
    };
    for (const SPlanType &type : m_plan.types.mid(0, m_shownTypes)) {
        if (CSheetFont::width(type.name, SheetMarks::TablePoints, false) > m_nameWidth)
            notes << tr("Type %1: %2").arg(type.letter, type.name);
    }
    if (any(&SPlanType::alike))
        notes << tr(
            "\"like\": the cabinets have no type; these are the figures of a type of the same pixels.");
    return notes + ListSheets::pitchNotes(m_plan);
}

void CCoverSheet::addNotes()
{
    if (m_flow.room().height() < PartTitle + 8)
        m_flow.nextColumn();
    SheetMarks::textAt(m_flow.sheet(), m_flow.room().left(), m_flow.room().top() + PartBase, tr("Notes"),
                       SheetMarks::TitleBlockPoints, true, EMark::Title);
    m_flow.setTop(m_flow.room().top() + PartTitle);
    m_flow.addNotes(notes());
}
