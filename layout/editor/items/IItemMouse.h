// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class CGraphicsItemBase;
class IMouseMode;
class QPoint;
class QPointF;
class QWidget;

/// What items ask for when the mouse reaches them. GUI thread.
class IItemMouse
{
public:
    virtual ~IItemMouse() = default;

    /// What the mouse does now.
    virtual IMouseMode &mouseMode() = 0;
    /// Whether exactly one item is selected.
    virtual bool isSingleSelection() const = 0;
    /// Whether the selected item can be resized with the mouse: it is the only one, and no tool is in use.
    virtual bool offersHandles() const = 0;
    /// Whether the user is drawing a rubber band.
    virtual bool hasRubberBand() const = 0;

    /// Begins, continues and ends the pending operation "Move" of the selection or "Scale" of one item.
    /// Refused silently where a port is locked.
    virtual void beginMove(const QPointF &scenePos) = 0;
    virtual void beginScale(CGraphicsItemBase &item, int handle, const QPointF &scenePos) = 0;
    virtual void continueDrag(const QPointF &scenePos) = 0;
    /// Returns whether the press was a drag, cancelled or not, and no click.
    virtual bool endDrag(const QPointF &scenePos) = 0;

    /// Opens the menu of a cabinet or a group, unless a tool is in use.
    virtual void openCabinetMenu(CGraphicsItemBase &item, QWidget *widget, const QPoint &screenPos) = 0;
};
