// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/Wall.h"
#include "layout/editor/view/CLayoutGraphicsView.h"

class CCabinetGraphicsScene;

/// The module's side of a comparison: its view, shown, and its scene.
class CEditorSide final
{
public:
    CEditorSide();
    ~CEditorSide();

    CLayoutGraphicsView &view() { return m_view; }
    CCabinetGraphicsScene &scene() { return m_view.cabinetScene(); }
    /// Shows @p data and brings the scene's index up to date.
    void load(const LayoutData &data);

private:
    CNoPortStates m_states;
    CLayoutGraphicsView m_view{m_states};
};
