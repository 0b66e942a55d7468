// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QGraphicsScene;
class QPointF;

/// What lies at a place of the scene. O(log n).
class CItemLookup final
{
public:
    static bool isOnCabinet(const QGraphicsScene &scene, const QPointF &scenePos);
    /// A cabinet or a group.
    static bool isOnItem(const QGraphicsScene &scene, const QPointF &scenePos);
};
