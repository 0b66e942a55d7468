// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/scene/CSceneBackend.h"

#include "layout/editor/scene/ISceneInput.h"
#include "platform/graphics/CGraphicsScene.h"

CSceneBackend::CSceneBackend(CGraphicsScene &scene, const IPortStates &states,
                             std::function<void(const CPendingEdits &)> finish,
                             std::function<void(const QString &)> tell, std::function<void()> faultsChanged)
    : m_scene(scene)
    , m_states(states)
    , m_content(scene, *this, states)
    , m_batches(
          std::move(finish), [this] { cancelGesture(); }, std::move(tell))
    , m_picks(scene, m_batches, m_content, m_selection)
    , m_recorder([this] { return m_selection.uuids(); })
    , m_history(m_batches, m_content, m_recorder, m_picks)
    , m_operations(m_batches, m_content, m_selection, m_recorder)
    , m_shape(m_batches, m_selection, m_recorder)
    , m_placing(scene, m_batches, states, m_content, m_selection, m_recorder)
    , m_highlights(m_batches)
    , m_faults(m_content, std::move(faultsChanged))
{
}

IItemMouse *CSceneBackend::mouse()
{
    return m_input;
}

bool CSceneBackend::isDragging() const
{
    return m_input && m_input->isDragging();
}

void CSceneBackend::cancelGesture()
{
    if (m_input)
        m_input->cancel();
}

void CSceneBackend::setToolMode(ToolMode mode, bool on)
{
    cancelGesture();
    if (on)
        m_toolModes.insert(mode);
    else
        m_toolModes.remove(mode);
    m_scene.updateViews(); // handles appear or disappear
}

void CSceneBackend::noteHighlighted(CGraphicsCabinetItem &cabinet, bool highlighted)
{
    m_highlights.note(cabinet, highlighted);
    m_batches.noteHighlight();
}
