// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/CBareScene.h"

#include <QGraphicsView>

/// The framework's side of a comparison: a plain view, shown, and the bare scene.
class CBareSide final
{
public:
    explicit CBareSide(CBareScene::Ports ports, CBareScene::Outlines outlines = CBareScene::NoOutlines);
    ~CBareSide();

    QGraphicsView &view() { return m_view; }
    CBareScene &scene() { return m_scene; }
    /// Builds @p layout and brings the scene's index up to date.
    void load(const CabinetLayout &layout);

private:
    CBareScene m_scene;
    QGraphicsView m_view;
};
