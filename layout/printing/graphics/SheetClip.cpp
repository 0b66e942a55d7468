// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/SheetClip.h"

#include <algorithm>
#include <optional>

namespace {

/// The shares of a line between which it is on the inner side of one edge. @p begin and @p end are how far
/// its ends are inside.
bool narrow(double begin, double end, double &from, double &to)
{
    if (begin < 0 && end < 0)
        return false;
    if (begin < 0)
        from = std::max(from, begin / (begin - end));
    else if (end < 0)
        to = std::min(to, begin / (begin - end));
    return from < to;
}

std::optional<QLineF> clipped(const QLineF &line, const QRectF &area)
{
    double from = 0;
    double to = 1;
    if (!narrow(line.x1() - area.left(), line.x2() - area.left(), from, to) ||
        !narrow(area.right() - line.x1(), area.right() - line.x2(), from, to) ||
        !narrow(line.y1() - area.top(), line.y2() - area.top(), from, to) ||
        !narrow(area.bottom() - line.y1(), area.bottom() - line.y2(), from, to))
        return {};
    return QLineF(line.pointAt(from), line.pointAt(to));
}

void clip(const SSheetStroke &stroke, const QRectF &area, const QPointF &offset, QVector<SSheetMark> &into)
{
    SSheetStroke rest = stroke;
    rest.path = QPainterPath();
    const double half = stroke.width / 2 + stroke.whiteEdge;
    const QRectF inner = area.adjusted(half, half, -half, -half);
    if (inner.contains(stroke.path.controlPointRect())) { // keeps its curves
        rest.path = stroke.path.translated(offset);
        into << rest;
        return;
    }
    for (const QPolygonF &line : stroke.path.toSubpathPolygons()) {
        for (int i = 0; i + 1 < line.size(); ++i) {
            const auto piece = clipped(QLineF(line[i], line[i + 1]), inner);
            if (!piece)
                continue;
            if (rest.path.isEmpty() || rest.path.currentPosition() != piece->p1() + offset)
                rest.path.moveTo(piece->p1() + offset);
            rest.path.lineTo(piece->p2() + offset);
        }
    }
    if (!rest.path.isEmpty())
        into << rest;
}

void clip(const SSheetFill &fill, const QRectF &area, const QPointF &offset, QVector<SSheetMark> &into)
{
    SSheetFill rest = fill;
    if (area.contains(fill.path.controlPointRect())) {
        rest.path.translate(offset);
        into << rest;
        return;
    }
    rest.path = QPainterPath();
    rest.path.setFillRule(fill.path.fillRule());
    for (const QPolygonF &polygon : fill.path.toSubpathPolygons()) {
        if (!polygon.boundingRect().intersects(area))
            continue;
        rest.path.addPolygon(polygon.intersected(area).translated(offset));
        rest.path.closeSubpath();
    }
    if (!rest.path.isEmpty())
        into << rest;
}

void clip(const SSheetText &text, const QRectF &area, const QPointF &offset, QVector<SSheetMark> &into)
{
    if (!area.contains(text.box))
        return;
    SSheetText moved = text;
    moved.box.translate(offset);
    into << moved;
}

} // namespace

QVector<SSheetMark> SheetClip::clipped(const QVector<SSheetMark> &marks, const QRectF &area,
                                       const QPointF &offset)
{
    QVector<SSheetMark> inside;
    for (const SSheetMark &mark : marks)
        std::visit([&](const auto &kind) { clip(kind, area, offset, inside); }, mark);
    return inside;
}
