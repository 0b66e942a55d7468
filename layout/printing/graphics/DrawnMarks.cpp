// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/DrawnMarks.h"

#include "layout/drawing/CWirePainter.h"
#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/SheetMarks.h"

namespace {

constexpr double LetterRoom = 1.3; // of a capital's height: also what goes below the line
constexpr double OpenBorder = 0.6;

} // namespace

void DrawnMarks::path(SSheet &sheet, const QPainterPath &path, double width, const QVector<qreal> &dashes,
                      double whiteEdge)
{
    if (!path.isEmpty())
        sheet.marks << SSheetStroke{path, width, Qt::black, dashes, whiteEdge};
}

void DrawnMarks::lines(SSheet &sheet, const QVector<QLineF> &lines, double width, const QColor &color)
{
    QPainterPath path;
    for (const QLineF &line : lines) {
        path.moveTo(line.p1());
        path.lineTo(line.p2());
    }
    if (!path.isEmpty())
        sheet.marks << SSheetStroke{path, width, color, {}, 0};
}

void DrawnMarks::polyline(SSheet &sheet, const QPolygonF &points, double width, const QVector<qreal> &dashes,
                          double whiteEdge)
{
    QPainterPath line;
    line.addPolygon(points);
    path(sheet, line, width, dashes, whiteEdge);
}

void DrawnMarks::fill(SSheet &sheet, const QPainterPath &path, const QColor &color, int hatching)
{
    if (!path.isEmpty() && (color.isValid() || hatching > 0))
        sheet.marks << SSheetFill{path, color, hatching};
}

void DrawnMarks::box(SSheet &sheet, const QRectF &rect, const QColor &color, double width,
                     const QColor &border)
{
    QPainterPath outline;
    outline.addRect(rect);
    fill(sheet, outline, color);
    sheet.marks << SSheetStroke{outline, width, border, {}, 0};
}

void DrawnMarks::disc(SSheet &sheet, const QPointF &centre, double radius, const QColor &color)
{
    QPainterPath circle;
    circle.addEllipse(centre, radius, radius);
    fill(sheet, circle, color);
}

QPolygonF DrawnMarks::arrowHead(const QPointF &tip, const QPointF &direction, const SArrow &arrow)
{
    const auto head =
        CWirePainter::arrowHead(tip - direction * arrow.length, direction, arrow.length, arrow.halfWidth);
    return QPolygonF(QVector<QPointF>{head[0], head[1], head[2]});
}

void DrawnMarks::arrow(SSheet &sheet, const QPointF &tip, const QPointF &direction, const SArrow &arrow)
{
    QPainterPath head;
    head.addPolygon(arrowHead(tip, direction, arrow));
    head.closeSubpath();
    fill(sheet, head, arrow.open ? Qt::white : Qt::black);
    if (arrow.open)
        path(sheet, head, OpenBorder);
}

QRectF DrawnMarks::room(const QString &text, double points, bool bold)
{
    return QRectF(0, 0, CSheetFont::width(text, points, bold), CSheetFont::capHeight(points) * LetterRoom);
}

void DrawnMarks::text(SSheet &sheet, const QRectF &box, const QString &text, double points, bool bold,
                      EMark mark, const QColor &color, double whiteEdge)
{
    SSheetText letters = SheetMarks::text(box, text, points, bold, mark);
    letters.color = color;
    letters.whiteEdge = whiteEdge;
    sheet.marks << letters;
}

void DrawnMarks::centred(SSheet &sheet, const QPointF &centre, const QString &text, double points, bool bold,
                         EMark mark, const QColor &color)
{
    QRectF box = room(text, points, bold);
    box.moveCenter(centre);
    DrawnMarks::text(sheet, box, text, points, bold, mark, color);
}

void DrawnMarks::startingAt(SSheet &sheet, const QPointF &start, const QString &text, double points,
                            bool bold, EMark mark)
{
    const QRectF box = room(text, points, bold);
    DrawnMarks::text(sheet, box.translated(start - QPointF(0, box.height() / 2)), text, points, bold, mark);
}
