// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CGesturePainter.h"

#include "layout/drawing/CosmeticPen.h"
#include "layout/drawing/LayoutColors.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int NoteFontSize = 12; // device pixels, as all that follows
constexpr QPointF NotePlace(16, 20);
constexpr QSizeF NoteMargin(8, 4);
constexpr QSizeF LargestNote(280, 24);

} // namespace

void CGesturePainter::paintBand(QPainter &painter, const QRectF &rect)
{
    painter.setPen(cosmeticPen(LayoutColors::Frame, 1, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect);
}

void CGesturePainter::paintStroke(QPainter &painter, const QPolygonF &path)
{
    painter.setPen(cosmeticPen(LayoutColors::Highlight, 3));
    painter.drawPolyline(path);
}

void CGesturePainter::paintGuides(QPainter &painter, const QVector<QLine> &lines)
{
    painter.setPen(cosmeticPen(LayoutColors::Highlight, 1));
    painter.drawLines(lines);
}

void CGesturePainter::paintPointedOut(QPainter &painter, const QVector<QRectF> &cabinets)
{
    painter.setPen(cosmeticPen(LayoutColors::Highlight, 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawRects(cabinets);
}

void CGesturePainter::paintHandles(QPainter &painter, const QVector<QRectF> &marks)
{
    const qreal rim = 1 / painter.worldTransform().m11();
    for (const QRectF &mark : marks) { // all of it inside the mark, as nothing beside it is repainted
        painter.fillRect(mark, LayoutColors::Rim);
        painter.fillRect(mark.adjusted(rim, rim, -rim, -rim), LayoutColors::Selection);
    }
}

void CGesturePainter::paintGhosts(QPainter &painter, const QVector<QRect> &cells, const QColor &fill)
{
    QColor glass = fill;
    glass.setAlphaF(0.45);
    painter.setPen(cosmeticPen(LayoutColors::Frame, 1, Qt::DashLine));
    painter.setBrush(glass);
    painter.drawRects(cells);
}

QSizeF CGesturePainter::noteReach()
{
    return LargestNote + QSizeF(NotePlace.x(), NotePlace.y());
}

void CGesturePainter::paintNote(QPainter &painter, const QPointF &place, const QString &text)
{
    if (text.isEmpty())
        return;
    QFont font = painter.font();
    font.setPixelSize(NoteFontSize);
    const QFontMetricsF metrics(font);
    const QSizeF size = QSizeF(metrics.horizontalAdvance(text) + 2 * NoteMargin.width(),
                               metrics.height() + 2 * NoteMargin.height())
                            .boundedTo(LargestNote);
    const QPointF cursor = painter.worldTransform().map(place);
    const QRectF shown = painter.viewport();
    QRectF note(cursor + NotePlace, size);
    if (note.right() > shown.right())
        note.moveRight(cursor.x() - NotePlace.x() / 2);
    if (note.bottom() > shown.bottom())
        note.moveBottom(cursor.y() - NotePlace.y() / 2);

    painter.save();
    painter.resetTransform(); // the same size at every scale
    painter.setFont(font);
    painter.setPen(QPen(QColor(LayoutColors::Frame), 1));
    painter.setBrush(QColor::fromRgba(LayoutColors::Plate));
    painter.drawRoundedRect(note, 3, 3);
    painter.setPen(QColor(LayoutColors::PlateText));
    painter.drawText(note, Qt::AlignCenter, text);
    painter.restore();
}
