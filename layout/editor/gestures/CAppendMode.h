// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/IMouseMode.h"

class CCabinetGraphicsScene;
class CScenePlacing;

/// Cabinets wait to be placed: nothing else gets the mouse.
class CAppendMode final : public IMouseMode
{
public:
    CAppendMode(CCabinetGraphicsScene &scene, CScenePlacing &placing)
        : m_scene(scene)
        , m_placing(placing)
    {
    }

    bool press(QGraphicsSceneMouseEvent &event) override;
    bool move(const QGraphicsSceneMouseEvent &event) override;
    bool release(const QGraphicsSceneMouseEvent &event) override;

private:
    CCabinetGraphicsScene &m_scene;
    CScenePlacing &m_placing;
};
