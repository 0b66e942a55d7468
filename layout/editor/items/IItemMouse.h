// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Qt>

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
    /// The resize handle of the selected item that is shown at a place; CGraphicsItemBase::NoHandle without
    /// one.
    virtual int handleAt(const QPointF &scenePos) const = 0;
    /// Whether the user is drawing a rubber band.
    virtual bool hasRubberBand() const = 0;

    /// Begins, continues and ends the pending operation "Move" of the selection or "Scale" of one item. What
    /// stays within the distance of a click changes nothing. Refused silently where a port is locked. With
    /// @p joining that item, or the group that it is in, becomes selected as well when the move begins.
    virtual void beginMove(const QPointF &scenePos, CGraphicsItemBase *joining = nullptr) = 0;
    virtual void beginScale(CGraphicsItemBase &item, int handle, const QPointF &scenePos) = 0;
    /// A move catches at edges that are near; Alt suspends that, and Shift keeps to one axis.
    virtual void continueDrag(const QPointF &scenePos, Qt::KeyboardModifiers keys = {}) = 0;
    /// Returns whether the press was a drag, cancelled or not, and no click.
    virtual bool endDrag(const QPointF &scenePos) = 0;

    /// Opens the menu of a cabinet or a group, unless a tool is in use.
    virtual void openCabinetMenu(CGraphicsItemBase &item, QWidget *widget, const QPoint &screenPos) = 0;
};
