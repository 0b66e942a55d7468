// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/sheets/CSheetFrame.h"

#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/SheetMarks.h"
#include "layout/printing/sheets/SheetNumbers.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double FrameLine = 0.7;
constexpr double FieldLine = 0.25;
constexpr double FirstRow = 10.5;
constexpr double OtherRow = 8.75;
constexpr double FieldPadding = 1.2;
constexpr double ViewTextWidth = 46; ///< of the left part of the view box
constexpr double ViewTextNarrow = 41;
constexpr double LongestBar = 28; ///< of the wall in the picture of the view
constexpr double BarHeight = 2.2;
constexpr double LabelPoints = 8;

} // namespace

void CSheetFrame::add(SSheet &sheet, const SSheetArea &area, const STitleFacts &facts)
{
    sheet.size = area.size;
    sheet.frame = area.frame;
    CSheetFrame frame(sheet, area, facts);
    frame.addWatermark();
    frame.addTitleBlock();
    frame.addViewBox();
    frame.addFrame();
}

CSheetFrame::CSheetFrame(SSheet &sheet, const SSheetArea &area, const STitleFacts &facts)
    : m_sheet(sheet)
    , m_area(area)
    , m_facts(facts)
    , m_back(sheet.view == SSheet::Back)
{
}

void CSheetFrame::addFrame()
{
    constexpr double Tick = 2.5; // guides the punch
    const QRectF &frame = m_area.frame;
    SheetMarks::rectangle(m_sheet, frame, FrameLine);
    const double top = m_area.viewBox.top();
    SheetMarks::line(m_sheet, {frame.left(), top}, {frame.right(), top}, FrameLine);
    const double middle = m_area.size.height() / 2;
    if (m_facts.binding == PrintConfig::BindLeft && m_facts.reverse)
        SheetMarks::line(m_sheet, {frame.right() - Tick, middle}, {frame.right(), middle}, 0.5);
    else if (m_facts.binding == PrintConfig::BindLeft)
        SheetMarks::line(m_sheet, {frame.left(), middle}, {frame.left() + Tick, middle}, 0.5);
    else if (m_facts.binding == PrintConfig::BindTop)
        SheetMarks::line(m_sheet, {m_area.size.width() / 2, frame.top()},
                         {m_area.size.width() / 2, frame.top() + Tick}, 0.5);
}

void CSheetFrame::addField(double left, double top, const QSizeF &size, const QString &caption,
                           const QString &value, double points, bool bold)
{
    const QRectF box(m_area.titleBlock.topLeft() + QPointF(left, top), size);
    SheetMarks::rectangle(m_sheet, box, FieldLine);
    SheetMarks::textAt(m_sheet, box.left() + FieldPadding, box.top() + 3.1, caption,
                       SheetMarks::CaptionPoints, false, EMark::TitleBlock);
    SSheetText &title = std::get<SSheetText>(m_sheet.marks.last());
    title.color = QColor(0x40, 0x40, 0x40);
    const double room = size.width() - 2 * FieldPadding;
    while (points > SheetMarks::NotePoints && CSheetFont::width(value, points, bold) > room)
        points -= 0.5;
    SheetMarks::textAt(m_sheet, box.left() + FieldPadding, box.bottom() - 1.6,
                       CSheetFont::elided(value, points, bold, room), points, bold, EMark::TitleBlock);
}

void CSheetFrame::addTitleBlock()
{
    const auto orDash = [](const QString &text) { return text.isEmpty() ? SheetNumbers::dash() : text; };
    const double large = SheetMarks::TitleBlockPoints;
    const double usual = SheetMarks::TablePoints;
    addField(0, 0, {70, FirstRow}, tr("Project"), orDash(m_facts.project), large, true);
    addField(70, 0, {80, FirstRow}, tr("Sheet title"), m_sheet.title, large, true);
    addField(150, 0, {30, FirstRow}, tr("Sheet"), tr("%1 of %2").arg(m_facts.number).arg(m_facts.count), 13,
             true);
    double top = FirstRow;
    addField(0, top, {62, OtherRow}, tr("Processor (address)"), m_sheet.processor, usual, true);
    addField(62, top, {18, OtherRow}, tr("Port"), orDash(m_sheet.ports), usual, true);
    addField(80, top, {70, OtherRow}, tr("Redundancy processor (address)"), orDash(m_facts.redundancy), usual,
             false);
    addField(150, top, {30, OtherRow}, tr("Paper, scale"),
             m_sheet.scale.isEmpty() ? m_facts.paper : tr("%1, %2").arg(m_facts.paper, m_sheet.scale), usual,
             false);
    top += OtherRow;
    addField(0, top, {40, OtherRow}, tr("Designer"), orDash(m_facts.designer), usual, false);
    addField(40, top, {40, OtherRow}, tr("Auditor"), orDash(m_facts.auditor), usual, false);
    addField(80, top, {28, OtherRow}, tr("Date"), m_facts.date.toString(Qt::ISODate), usual, false);
    addField(108, top, {42, OtherRow}, tr("Layout version"), m_facts.version, 10, true);
    addField(150, top, {30, OtherRow}, tr("Document"), tr("Wiring plan"), usual, false);
}

void CSheetFrame::addViewBox()
{
    const QRectF &box = m_area.viewBox;
    const double textWidth = box.width() < 80 ? ViewTextNarrow : ViewTextWidth;
    if (m_back)
        SheetMarks::fill(m_sheet, {box.topLeft(), QSizeF(textWidth, box.height())}, Qt::black);
    SheetMarks::line(m_sheet, box.topRight(), box.bottomRight(), 0.5);
    if (box.bottom() <= m_area.titleBlock.top() + 0.1)
        SheetMarks::line(m_sheet, box.bottomLeft(), box.bottomRight(), 0.5);
    const auto add = [&](double base, const QString &text, double points, bool bold) {
        SheetMarks::textAt(m_sheet, box.left() + 3, box.top() + base, text, points, bold, EMark::TitleBlock);
        std::get<SSheetText>(m_sheet.marks.last()).color = m_back ? Qt::white : Qt::black;
    };
    add(9, m_back ? tr("BACK VIEW") : tr("FRONT VIEW"), box.width() < 80 ? 16 : SheetMarks::ViewPoints, true);
    add(16, m_back ? tr("You stand behind the wall.") : tr("You stand before the wall."),
        SheetMarks::NotePoints, false);
    add(20.6, m_back ? tr("Column 1 is on your right.") : tr("Column 1 is on your left."),
        SheetMarks::NotePoints, false);
    add(25.2,
        m_sheet.list ? tr("Lists count from the front.")
        : m_back     ? tr("Cables in sight.")
                     : tr("LEDs in sight."),
        SheetMarks::NotePoints, false);
    addViewPicture(box.left() + textWidth);
}

void CSheetFrame::addViewPicture(double left)
{
    const QRectF &box = m_area.viewBox;
    const QString first = QStringLiteral("1");
    const QString last = m_facts.columns > 0 ? QString::number(m_facts.columns) : QString();
    const auto widthOf = [](const QString &text) { return CSheetFont::width(text, LabelPoints, true) + 0.8; };
    const double room = std::min(box.width() - (left - box.left()), 60.0);
    const double length = std::min(LongestBar, room - widthOf(first) - widthOf(last) - 2);
    const double centre =
        left + (room + (m_back ? widthOf(last) - widthOf(first) : widthOf(first) - widthOf(last))) / 2;
    const QRectF bar(centre - length / 2, box.top() + 9.2, length, BarHeight);

    SSheetStroke rays; // the LEDs, on the audience's side
    rays.width = FieldLine;
    const double side = m_back ? bar.top() : bar.bottom();
    for (double x = bar.left() + 1; x < bar.right(); x += 2) {
        rays.path.moveTo(x, side);
        rays.path.lineTo(x, side + (m_back ? -2 : 2));
    }
    m_sheet.marks << rays;
    if (m_back) {
        SSheetStroke cables;
        cables.width = 0.3;
        for (double x = bar.left() + 3; x + 4 < bar.right(); x += 4.8) {
            cables.path.moveTo(x, bar.bottom());
            cables.path.cubicTo(x, bar.bottom() + 2.4, x + 4, bar.bottom() + 2.4, x + 4, bar.bottom());
        }
        m_sheet.marks << cables;
    }
    SheetMarks::fill(m_sheet, bar, Qt::white);
    SheetMarks::rectangle(m_sheet, bar, 0.3);
    const double end = 2.8;
    SheetMarks::fill(m_sheet, {m_back ? bar.right() - end : bar.left(), bar.top(), end, BarHeight},
                     Qt::black);

    const double base = bar.bottom() + 0.1;
    const QString &atLeft = m_back ? last : first;
    SheetMarks::textAt(m_sheet, bar.left() - widthOf(atLeft), base, atLeft, LabelPoints, true,
                       EMark::TitleBlock);
    SheetMarks::textAt(m_sheet, bar.right() + 0.8, base, m_back ? first : last, LabelPoints, true,
                       EMark::TitleBlock);
    const auto caption = [&](const QString &text, double height) {
        const double width = CSheetFont::width(text, SheetMarks::CaptionPoints, false);
        SheetMarks::textAt(m_sheet, bar.center().x() - width / 2, box.top() + height, text,
                           SheetMarks::CaptionPoints, false, EMark::TitleBlock);
    };
    caption(m_back ? tr("audience side") : tr("backstage"), 3.6);
    caption(m_back ? tr("backstage") : tr("audience side"), 26.8);
    addReader(bar.center().x(), box.top() + 20.4);

    SSheetStroke sight;
    sight.width = FieldLine;
    sight.dashes = {1.2, 0.9};
    for (const double way : {-1.0, 1.0}) {
        sight.path.moveTo(bar.center().x() + way * 1.6, box.top() + 20.6);
        sight.path.lineTo(bar.center().x() + way * (length / 2 - 1), box.top() + 14.4);
    }
    m_sheet.marks << sight;
}

void CSheetFrame::addReader(double centre, double top)
{
    SSheetStroke shoulders;
    shoulders.width = 0.3;
    shoulders.path.moveTo(centre - 3.6, top + 3.2);
    shoulders.path.cubicTo(centre - 3.4, top + 1, centre + 3.4, top + 1, centre + 3.6, top + 3.2);
    shoulders.path.closeSubpath();
    m_sheet.marks << shoulders;
    SSheetFill headMark;
    headMark.color = Qt::black;
    headMark.path.addEllipse(QPointF(centre, top + 1.6), 1.6, 1.6);
    m_sheet.marks << headMark;
    SheetMarks::textAt(m_sheet, centre + 5, top + 2.8, tr("you"), LabelPoints, true, EMark::TitleBlock);
}

void CSheetFrame::addWatermark()
{
    if (m_facts.watermark.isEmpty())
        return;
    const QRectF &content = m_area.content;
    const double angle = std::atan2(content.height(), content.width());
    const double diagonal = std::hypot(content.width(), content.height());
    constexpr double Probe = 100; // points
    const double height = CSheetFont::lineHeight(1);
    const double width = CSheetFont::width(m_facts.watermark, Probe, true) / Probe;
    // The turned box stays within the content: its half height pushes its corners outward.
    double points = 0.9 * diagonal / width;
    points = std::min(points, 0.25 * std::min(content.width(), content.height()) / height);
    const QSizeF size(width * points, height * points);
    const double reach = (size.width() * std::cos(angle) + size.height() * std::sin(angle)) / content.width();
    const double rise = (size.width() * std::sin(angle) + size.height() * std::cos(angle)) / content.height();
    const double fit = 1 / std::max({1.0, reach, rise});
    SSheetText mark =
        SheetMarks::text({}, m_facts.watermark, points * fit, true, EMark::Watermark, Qt::AlignCenter);
    mark.box.setSize(size * fit);
    mark.box.moveCenter(content.center());
    mark.color = QColor(224, 224, 224); // 12 % black
    mark.turned = -angle * 180 / 3.14159265358979323846;
    m_sheet.marks.prepend(mark);
}
