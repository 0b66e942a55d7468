// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/IItemMouse.h"

class QGraphicsSceneContextMenuEvent;
class QGraphicsSceneMouseEvent;
class QPainter;

/// Follows the mouse on the canvas, for the scene and for its items. It stands above the scene, which does
/// without when none is installed. GUI thread.
class ISceneInput : public IItemMouse
{
public:
    // Each returns whether the event is taken, so that no item gets it.
    virtual bool press(QGraphicsSceneMouseEvent &event) = 0;
    virtual bool move(const QGraphicsSceneMouseEvent &event) = 0;
    virtual bool release(const QGraphicsSceneMouseEvent &event) = 0;
    virtual bool doubleClick(QGraphicsSceneMouseEvent &event) = 0;
    virtual bool openMenu(QGraphicsSceneContextMenuEvent &event) = 0;

    /// Puts a drag, a stroke or a rubber band that is in progress back to where it began.
    virtual void cancel() = 0;
    /// Whether items are being dragged: what moves is no edit before the drag ends.
    virtual bool isDragging() const = 0;
    /// Draws what is in progress, and the handles of an item that can be resized.
    virtual void paint(QPainter &painter) const = 0;
};
