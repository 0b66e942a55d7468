// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/IMouseMode.h"

class CSceneGestures;
class QGraphicsScene;

/// Without a tool: items are selected, moved and resized; a press beside them begins a rubber band.
class CSelectMode final : public IMouseMode
{
public:
    CSelectMode(const QGraphicsScene &scene, CSceneGestures &gestures)
        : m_scene(scene)
        , m_gestures(gestures)
    {
    }

    bool press(QGraphicsSceneMouseEvent &event) override;
    bool move(const QGraphicsSceneMouseEvent &event) override;
    bool release(const QGraphicsSceneMouseEvent &event) override;
    bool edits() const override { return true; }

private:
    const QGraphicsScene &m_scene;
    CSceneGestures &m_gestures;
};
