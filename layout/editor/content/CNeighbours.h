// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <QVector>

class QGraphicsScene;

/// Finds what a rectangle that is being placed can catch at. GUI thread.
class CNeighbours final
{
public:
    /// Whether selected cabinets count, too, which do not while they are what is moved.
    enum ESelected { WithSelected, WithoutSelected };

    /// The canvas, and the cabinets that lie within @p reach of an edge of @p rect; canvas pixels. What lies
    /// in the middle of a large rectangle is not looked at.
    static QVector<QRect> of(const QRect &rect, int reach, const QGraphicsScene &scene, const QSize &canvas,
                             ESelected selected);
};
