// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLine>
#include <QPolygonF>
#include <QRectF>
#include <QSizeF>
#include <QVector>

class QColor;
class QPainter;
class QString;

/// Draws what a mouse gesture shows above the layout. Positions are in the painter's coordinates. GUI thread.
class CGesturePainter final
{
public:
    /// The rubber band, and the path of a pen stroke.
    static void paintBand(QPainter &painter, const QRectF &rect);
    static void paintStroke(QPainter &painter, const QPolygonF &path);
    /// Lines along the edges that something has snapped to.
    static void paintGuides(QPainter &painter, const QVector<QLine> &lines);
    /// The cabinets that a question is about.
    static void paintPointedOut(QPainter &painter, const QVector<QRectF> &cabinets);
    /// Resize handles.
    static void paintHandles(QPainter &painter, const QVector<QRectF> &marks);
    /// Cabinets that are about to be placed; @p fill is the colour that they will have.
    static void paintGhosts(QPainter &painter, const QVector<QRect> &cells, const QColor &fill);
    /// A note beside the cursor at @p place, kept inside the painter's viewport.
    static void paintNote(QPainter &painter, const QPointF &place, const QString &text);
    /// How far from the cursor paintNote() reaches at most, device pixels.
    static QSizeF noteReach();
};
