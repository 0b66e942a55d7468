// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/common/CCustomPaint.h"

#include <QBrush>
#include <QImage>
#include <QPainter>

namespace {

constexpr int Square = 8;

QImage checkerTile()
{
    QImage tile(2 * Square, 2 * Square, QImage::Format_RGB32);
    tile.fill(QColor(44, 44, 48));
    QPainter painter(&tile);
    painter.fillRect(0, 0, Square, Square, QColor(54, 54, 58));
    painter.fillRect(Square, Square, Square, Square, QColor(54, 54, 58));
    return tile;
}

} // namespace

void CCustomPaint::paintCheckerBoard(QPainter &painter, const QRect &rect)
{
    static const QImage tile = checkerTile(); // an image, not a pixmap: it may outlive the application object
    const QPointF origin = painter.brushOrigin();
    painter.setBrushOrigin(rect.topLeft());
    painter.fillRect(rect, QBrush(tile));
    painter.setBrushOrigin(origin);
}
