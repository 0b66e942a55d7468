// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CNeighbours.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"

#include <QGraphicsScene>

QVector<QRect> CNeighbours::of(const QRect &rect, int reach, const QGraphicsScene &scene, const QSize &canvas,
                               ESelected selected)
{
    const QRectF outer = QRectF(rect).adjusted(-reach, -reach, reach, reach);
    const QSizeF across(outer.width(), 2 * reach);
    const QSizeF down(2 * reach, outer.height());
    const QPointF farEdges = outer.bottomRight() - QPointF(2 * reach, 2 * reach);
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
