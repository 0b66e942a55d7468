// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <QVector>

class QGraphicsScene;

/// Finds what a rectangle can snap to while it is being placed. GUI thread.
class CNeighbours final
{
public:
    /// Whether selected cabinets are included; not while they are being moved.
    enum ESelected { WithSelected, WithoutSelected };

    /// The canvas, and the cabinets within @p reach of an edge of @p rect; canvas pixels. Cabinets in the
    /// middle of a large rectangle are not searched.
    static QVector<QRect> of(const QRect &rect, int reach, const QGraphicsScene &scene, const QSize &canvas,
                             ESelected selected);
};
