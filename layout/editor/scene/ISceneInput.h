// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/IItemMouse.h"

class QGraphicsSceneContextMenuEvent;
class QGraphicsSceneMouseEvent;
class QPainter;

/// Handles the mouse on the canvas, for the scene and its items. Implemented above the scene, which also
/// works without one. GUI thread.
class ISceneInput : public IItemMouse
{
public:
    // Each returns whether it has handled the event, so that no item gets it.
    virtual bool press(QGraphicsSceneMouseEvent &event) = 0;
    virtual bool move(const QGraphicsSceneMouseEvent &event) = 0;
    virtual bool release(const QGraphicsSceneMouseEvent &event) = 0;
    virtual bool doubleClick(QGraphicsSceneMouseEvent &event) = 0;
    virtual bool openMenu(QGraphicsSceneContextMenuEvent &event) = 0;

    /// Cancels a drag, a stroke or a rubber band in progress.
    virtual void cancel() = 0;
    /// Whether items are being dragged; a drag is not an edit before it ends.
    virtual bool isDragging() const = 0;
    /// Draws the gesture in progress, and the handles of an item that can be resized.
    virtual void paint(QPainter &painter) const = 0;
};
