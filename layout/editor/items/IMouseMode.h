// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class CGraphicsCabinetItem;
class QGraphicsSceneMouseEvent;
class QPointF;

/// What the mouse does on the canvas while a tool is in use: a class a tool, and one for the time when none
/// is. GUI thread.
class IMouseMode
{
public:
    virtual ~IMouseMode() = default;

    // Each gives whether the event is taken, so that no item gets it.
    virtual bool press(QGraphicsSceneMouseEvent &) { return false; }
    virtual bool move(const QGraphicsSceneMouseEvent &) { return false; }
    virtual bool release(const QGraphicsSceneMouseEvent &) { return false; }

    /// A press with the left button on a cabinet, before it selects; gives whether that is all that it does.
    virtual bool pressCabinet(CGraphicsCabinetItem &, const QGraphicsSceneMouseEvent &) { return false; }

    /// A stroke from cabinet to cabinet, in scene coordinates. The first gives whether one begins.
    virtual bool beginStroke(CGraphicsCabinetItem &, const QPointF &) { return false; }
    virtual void continueStroke(const QPointF &) {}
    virtual void endStroke(const QPointF &) {}

    /// Whether presses with the left button select.
    virtual bool selects() const { return true; }
    /// Whether what is selected is moved and resized with the mouse, and double clicks count.
    virtual bool edits() const { return false; }
    /// Whether right clicks open menus.
    virtual bool opensMenus() const { return edits(); }
    /// Whether the second click of a double click, where double clicks do not count, is one more click.
    virtual bool takesQuickClicks() const { return true; }
};
