// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Qt>

class CGraphicsItemBase;
class IMouseMode;
class QPoint;
class QPointF;
class QWidget;

/// What items call when they get mouse events. GUI thread.
class IItemMouse
{
public:
    virtual ~IItemMouse() = default;

    /// The mouse mode that is in use.
    virtual IMouseMode &mouseMode() = 0;
    /// Whether exactly one item is selected.
    virtual bool isSingleSelection() const = 0;
    /// Whether resize handles are offered: exactly one item is selected, and no tool is in use.
    virtual bool offersHandles() const = 0;
    /// The resize handle of the selected item at @p scenePos; CGraphicsItemBase::NoHandle if there is none.
    virtual int handleAt(const QPointF &scenePos) const = 0;
    /// Whether the user is drawing a rubber band.
    virtual bool hasRubberBand() const = 0;

    /// Begin and end a move of the selection, or a resize of @p item by @p handle. Nothing changes until the
    /// mouse has moved farther than a click may, nor if a port concerned is locked. @p joining, or the
    /// outermost group around it, is added to the selection when the move begins.
    virtual void beginMove(const QPointF &scenePos, CGraphicsItemBase *joining = nullptr) = 0;
    virtual void beginScale(CGraphicsItemBase &item, int handle, const QPointF &scenePos) = 0;
    /// Continues the move or resize. A move snaps to near edges; Alt suspends snapping, Shift restricts the
    /// move to one axis.
    virtual void continueDrag(const QPointF &scenePos, Qt::KeyboardModifiers keys = {}) = 0;
    /// Returns true if the press was a drag, even a cancelled one, and false if it was a click.
    virtual bool endDrag(const QPointF &scenePos) = 0;

    /// Opens the menu of a cabinet or a group, unless a tool is in use.
    virtual void openCabinetMenu(CGraphicsItemBase &item, QWidget *widget, const QPoint &screenPos) = 0;
};
