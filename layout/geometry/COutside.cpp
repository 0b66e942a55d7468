// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/COutside.h"

#include <algorithm>

QVector<QRectF> COutside::parts(const QRect &rect, const QSize &canvasSize)
{
    const QRectF canvas({0, 0}, QSizeF(canvasSize));
    const QRectF all(rect);
    if (canvas.isEmpty() || canvas.contains(all))
        return {};
    const QRectF inside = all & canvas;
    if (inside.isEmpty())
        return {QRectF(QPointF(), all.size())};
    QVector<QRectF> parts = {QRectF(all.topLeft(), QPointF(all.right(), inside.top())),
                             QRectF(QPointF(all.left(), inside.bottom()), all.bottomRight()),
                             QRectF(QPointF(all.left(), inside.top()), inside.bottomLeft()),
                             QRectF(inside.topRight(), QPointF(all.right(), inside.bottom()))};
    parts.erase(std::remove_if(parts.begin(), parts.end(), [](const QRectF &part) { return part.isEmpty(); }),
                parts.end());
    for (QRectF &part : parts)
        part.translate(-all.topLeft());
    return parts;
}
