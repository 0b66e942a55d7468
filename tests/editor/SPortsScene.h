// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "tests/editor/CFixedPortStates.h"
#include "tests/editor/SceneParts.h"
#include "tests/editor/SmallWorlds.h"

/// A scene that shows some ports, without a view.
struct SPortsScene
{
    explicit SPortsScene(const QVector<SmallWorlds::Port> &ports)
        : data(SmallWorlds::data(ports))
    {
        scene.setLayoutData(SmallWorlds::node(data), data);
    }
    CabinetLayout layout() const
    {
        CabinetLayout layout;
        scene.getLayoutData(layout, data.processor);
        return layout;
    }
    QUndoStack &stack() const { return *scene.backend().recorder().stack(); }

    const LayoutData data;
    CFixedPortStates states;
    CCabinetGraphicsScene scene{states};
};
