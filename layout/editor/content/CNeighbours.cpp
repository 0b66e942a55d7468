// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CNeighbours.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"

#include <QGraphicsScene>

QVector<QRect> CNeighbours::of(const QRect &rect, int reach, const QGraphicsScene &scene, const QSize &canvas,
                               ESelected selected)
{
    const QRectF outer = QRectF(rect).adjusted(-reach, -reach, reach, reach);
    const qreal breadth = 2 * reach + 1; // what only touches a strip is not found
    const QSizeF across(outer.width(), breadth);
    const QSizeF down(breadth, outer.height());
    const QPointF farEdges = outer.bottomRight() - QPointF(breadth, breadth);
    QVector<QRect> neighbours;
    if (!canvas.isEmpty())
        neighbours << QRect(QPoint(), canvas);
    for (const QRectF &strip :
         {QRectF(outer.topLeft(), across), QRectF(QPointF(outer.left(), farEdges.y()), across),
          QRectF(outer.topLeft(), down), QRectF(QPointF(farEdges.x(), outer.top()), down)}) {
        const QList<QGraphicsItem *> items = scene.items(strip, Qt::IntersectsItemBoundingRect);
        for (const QGraphicsItem *item : items) {
            if (item->type() != CabinetItemKind)
                continue;
            const auto &cabinet = static_cast<const CGraphicsCabinetItem &>(*item);
            if (selected == WithSelected || !cabinet.isSelectedWithGroups())
                neighbours << cabinet.cabinet().rect;
        }
    }
    return neighbours;
}
