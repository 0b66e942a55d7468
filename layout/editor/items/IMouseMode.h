// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class CGraphicsCabinetItem;
class QGraphicsSceneMouseEvent;
class QPointF;

/// What the mouse does on the canvas: one class per tool, and one for when no tool is in use. GUI thread.
class IMouseMode
{
public:
    virtual ~IMouseMode() = default;

    // Each returns whether it has handled the event, so that no item gets it.
    virtual bool press(QGraphicsSceneMouseEvent &) { return false; }
    virtual bool move(const QGraphicsSceneMouseEvent &) { return false; }
    virtual bool release(const QGraphicsSceneMouseEvent &) { return false; }

    /// Called for a left press on a cabinet before it selects. Returns true if the press shall do nothing
    /// else.
    virtual bool pressCabinet(CGraphicsCabinetItem &, const QGraphicsSceneMouseEvent &) { return false; }

    /// A stroke from cabinet to cabinet, in scene coordinates. beginStroke() returns whether a stroke begins.
    virtual bool beginStroke(CGraphicsCabinetItem &, const QPointF &) { return false; }
    virtual void continueStroke(const QPointF &) {}
    virtual void endStroke(const QPointF &) {}

    /// Whether left presses select items.
    virtual bool selects() const { return true; }
    /// Whether the mouse moves and resizes selected items, and double clicks have a meaning.
    virtual bool edits() const { return false; }
    /// Whether right clicks open menus.
    virtual bool opensMenus() const { return edits(); }
    /// Where double clicks have no meaning: whether their second click counts as another click.
    virtual bool takesQuickClicks() const { return true; }
};
