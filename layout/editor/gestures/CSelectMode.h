// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/IMouseMode.h"

class CGraphicsItemBase;
class CSceneGestures;
class CSceneSelection;
class IEditing;
class IItemMouse;
class QGraphicsScene;

/// The mode without a tool: selects, moves and resizes items; a press beside them begins a rubber band.
class CSelectMode final : public IMouseMode
{
public:
    CSelectMode(const QGraphicsScene &scene, IEditing &editing, const CSceneSelection &selection,
                IItemMouse &mouse, CSceneGestures &gestures)
        : m_scene(scene)
        , m_editing(editing)
        , m_selection(selection)
        , m_mouse(mouse)
        , m_gestures(gestures)
    {
    }

    bool press(QGraphicsSceneMouseEvent &event) override;
    bool move(const QGraphicsSceneMouseEvent &event) override;
    bool release(const QGraphicsSceneMouseEvent &event) override;
    bool edits() const override { return true; }

    /// Whether a resize handle of a cabinet (not of a group) is shown at @p scenePos.
    bool isOnCabinetHandle(const QPointF &scenePos) const;

private:
    CGraphicsItemBase *selectedItem() const; ///< null unless exactly one is selected
    bool pressHandle(const QGraphicsSceneMouseEvent &event);

    const QGraphicsScene &m_scene;
    IEditing &m_editing;
    const CSceneSelection &m_selection;
    IItemMouse &m_mouse;
    CSceneGestures &m_gestures;
    bool m_onHandle = false; // the button was pressed on one
};
