// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/gestures/CSceneInput.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "tests/editor/SceneParts.h"

/// The mouse of a scene without a view.
struct SInstalledInput
{
    explicit SInstalledInput(CCabinetGraphicsScene &handled)
        : scene(handled)
        , input(handled, handled.backend().inputTargets(), [&handled] { handled.leaveOperation(); })
    {
        scene.backend().setInput(&input);
    }
    ~SInstalledInput() { scene.backend().setInput(nullptr); }
    SInstalledInput(const SInstalledInput &) = delete;
    SInstalledInput &operator=(const SInstalledInput &) = delete;

    CCabinetGraphicsScene &scene;
    CSceneInput input;
};
