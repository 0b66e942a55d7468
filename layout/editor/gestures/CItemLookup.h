// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QGraphicsScene;
class QPointF;

/// Finds out what is at a position of the scene. O(log n).
class CItemLookup final
{
public:
    static bool isOnCabinet(const QGraphicsScene &scene, const QPointF &scenePos);
    /// Whether a cabinet or a group is there.
    static bool isOnItem(const QGraphicsScene &scene, const QPointF &scenePos);
};
