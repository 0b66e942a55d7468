// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/content/CPendingEdits.h"

#include <functional>

/// Collects what items note while a batch runs, and has the work that follows done once, when the outermost
/// batch ends. What is noted without a batch makes one of its own. GUI thread.
class CEditBatches final
{
public:
    /// @p finish does the work; what it causes to be noted makes for another round.
    CEditBatches(IEditorScene &scene, std::function<void(const CPendingEdits &)> finish)
        : m_scene(scene)
        , m_finish(std::move(finish))
    {
    }

    void begin() { ++m_depth; }
    void end();
    void forget() { m_pending = CPendingEdits(); }

    void noteCabinetMoved(CGraphicsCabinetItem &cabinet);
    void noteMembersChanged(CGraphicsGroupItem &group);
    void notePortChanged(const CGraphicsPortItem &port);
    void noteSelection();
    void noteHighlight();

private:
    IEditorScene &m_scene;
    std::function<void(const CPendingEdits &)> m_finish;
    CPendingEdits m_pending;
    int m_depth = 0;
};
