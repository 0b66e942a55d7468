// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/sheets/SSheet.h"

#include <QLineF>
#include <QPolygonF>

/// What drawings are made of, beyond what other sheets need. Millimetres of the paper.
namespace DrawnMarks {

void lines(SSheet &sheet, const QVector<QLineF> &lines, double width, const QColor &color = Qt::black);
void polyline(SSheet &sheet, const QPolygonF &points, double width, const QVector<qreal> &dashes = {},
              double whiteEdge = 0);
void path(SSheet &sheet, const QPainterPath &path, double width, const QVector<qreal> &dashes = {},
          double whiteEdge = 0);
void fill(SSheet &sheet, const QPainterPath &path, const QColor &color, int hatching = 0);
/// A filled rectangle with a border.
void box(SSheet &sheet, const QRectF &rect, const QColor &color, double width,
         const QColor &border = Qt::black);
void disc(SSheet &sheet, const QPointF &centre, double radius, const QColor &color = Qt::black);

/// The size of an arrow head.
struct SArrow
{
    double length;
    double halfWidth;
    bool open = false; ///< white with a black border
};
/// The corners of an arrow head with its tip at @p tip that points along @p direction.
QPolygonF arrowHead(const QPointF &tip, const QPointF &direction, const SArrow &arrow);
void arrow(SSheet &sheet, const QPointF &tip, const QPointF &direction, const SArrow &arrow);

/// The room that the letters of one line take: as wide as the text, as high as its capitals with a little
/// air. Its upper left corner is the origin.
QRectF room(const QString &text, double points, bool bold);
/// A text in its room; @p box is as large as room() says.
void text(SSheet &sheet, const QRectF &box, const QString &text, double points, bool bold, EMark mark,
          const QColor &color = Qt::black, double whiteEdge = 0);
/// A text around @p centre.
void centred(SSheet &sheet, const QPointF &centre, const QString &text, double points, bool bold, EMark mark,
             const QColor &color = Qt::black);
/// A text that begins at @p start, which is half its height.
void startingAt(SSheet &sheet, const QPointF &start, const QString &text, double points, bool bold,
                EMark mark);

} // namespace DrawnMarks
