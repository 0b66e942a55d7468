// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/sheets/SheetMarks.h"

#include "layout/printing/sheets/CSheetFont.h"

#include <QCoreApplication>

namespace SheetMarks {

namespace {

constexpr double HeadHeight = 17; ///< of a sheet's name with its room

constexpr double BesidePoints = 12; ///< of what stands beside the name
constexpr double SignPoints = 14;
constexpr double SignHeight = 10;
constexpr double SignPadding = 2.8;
constexpr double Gap = 6;

QString viewText(const SSheet &sheet)
{
    return sheet.view == SSheet::Back ? QCoreApplication::translate("SheetMarks", "BACK VIEW")
                                      : QCoreApplication::translate("SheetMarks", "FRONT VIEW");
}

/// The sign at the right end of @p content. Returns where it begins.
double addSign(SSheet &sheet, const QRectF &content)
{
    const QString text = viewText(sheet);
    const double width = CSheetFont::width(text, SignPoints, true) + 2 * SignPadding;
    const QRectF box(content.right() - width, content.top() - 0.5, width, SignHeight);
    const bool back = sheet.view == SSheet::Back;
    if (back)
        fill(sheet, box, Qt::black);
    else
        rectangle(sheet, box, 0.5);
    SSheetText sign = SheetMarks::text(box, text, SignPoints, true, EMark::Title, Qt::AlignCenter);
    sign.color = back ? Qt::white : Qt::black;
    sheet.marks << sign;
    return box.left();
}

} // namespace

void line(SSheet &sheet, const QPointF &from, const QPointF &to, double width)
{
    SSheetStroke stroke;
    stroke.path.moveTo(from);
    stroke.path.lineTo(to);
    stroke.width = width;
    sheet.marks << stroke;
}

void rectangle(SSheet &sheet, const QRectF &rect, double width)
{
    SSheetStroke stroke;
    stroke.path.addRect(rect);
    stroke.width = width;
    sheet.marks << stroke;
}

void fill(SSheet &sheet, const QRectF &rect, const QColor &color, int hatching)
{
    SSheetFill area;
    area.path.addRect(rect);
    area.color = color;
    area.hatching = hatching;
    sheet.marks << area;
}

SSheetText text(const QRectF &box, const QString &text, double points, bool bold, EMark mark,
                Qt::Alignment alignment)
{
    SSheetText made;
    made.box = box;
    made.alignment = alignment;
    made.points = points;
    made.bold = bold;
    made.text = text;
    made.mark = mark;
    return made;
}

double textAt(SSheet &sheet, double left, double base, const QString &text, double points, bool bold,
              EMark mark)
{
    const double width = CSheetFont::width(text, points, bold);
    const double height = CSheetFont::lineHeight(points);
    const double centre = base - CSheetFont::capHeight(points) / 2;
    sheet.marks << SheetMarks::text({left, centre - height / 2, width, height}, text, points, bold, mark);
    return left + width;
}

void move(SSheet &sheet, const QPointF &by)
{
    sheet.frame.translate(by);
    for (SSheetMark &mark : sheet.marks) {
        if (auto *text = std::get_if<SSheetText>(&mark))
            text->box.translate(by);
        else if (auto *stroke = std::get_if<SSheetStroke>(&mark))
            stroke->path.translate(by);
        else
            std::get<SSheetFill>(mark).path.translate(by);
    }
}

QRectF head(SSheet &sheet, const QRectF &content, const QString &name, const QString &beside, bool viewSign)
{
    const double base = content.top() + HeadBase;
    const double right = viewSign ? addSign(sheet, content) - Gap : content.right();
    const QString whole = CSheetFont::elided(name, TitlePoints, true, right - content.left());
    const double end = textAt(sheet, content.left(), base, whole, TitlePoints, true, EMark::Title);
    const double room = right - end - Gap;
    if (room > 0)
        textAt(sheet, end + Gap, base, CSheetFont::elided(beside, BesidePoints, false, room), BesidePoints,
               false, EMark::Title);
    return content.adjusted(0, HeadHeight, 0, 0);
}

} // namespace SheetMarks
