// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/summary/CSummaryPainter.h"

#include "platform/widgets/ThemeColors.h"

#include <QPainter>

namespace {

constexpr int FrameWidth = 2; // pixels of the screen

QPen cosmeticPen(QRgb color, int width, Qt::PenStyle style)
{
    QPen pen(QColor(color), width, style, Qt::SquareCap, Qt::MiterJoin);
    pen.setCosmetic(true);
    return pen;
}

} // namespace

void CSummaryPainter::paintBackground(QPainter &painter, const QRectF &exposed)
{
    painter.fillRect(exposed, QColor(ThemeColors::Base));
    painter.setPen(cosmeticPen(ThemeColors::RaisedHover, 0, Qt::SolidLine));
    painter.drawLine(QLineF(exposed.left(), 0, exposed.right(), 0));
    painter.drawLine(QLineF(0, exposed.top(), 0, exposed.bottom()));
}

void CSummaryPainter::paintFrames(QPainter &painter, const QVector<QRectF> &selected, bool focused)
{
    const int width = FrameWidth * painter.device()->devicePixelRatio(); // cosmetic pens count device pixels
    painter.setBrush(Qt::NoBrush);
    painter.setPen(cosmeticPen(focused ? ThemeColors::Focus : ThemeColors::SoftText, width, Qt::SolidLine));
    painter.drawRects(selected);
}

void CSummaryPainter::paintEdges(QPainter &painter, const QRectF &exposed, const QVector<int> &across,
                                 const QVector<int> &down)
{
    painter.setPen(cosmeticPen(ThemeColors::Focus, 0, Qt::DashLine));
    for (const int x : across)
        painter.drawLine(QLineF(x, exposed.top(), x, exposed.bottom()));
    for (const int y : down)
        painter.drawLine(QLineF(exposed.left(), y, exposed.right(), y));
}
