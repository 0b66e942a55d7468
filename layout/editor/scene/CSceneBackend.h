// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CHighlights.h"
#include "layout/editor/content/CLayoutFaults.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/items/IEditorScene.h"
#include "layout/editor/operations/CGuardedUndo.h"
#include "layout/editor/operations/CSceneOperations.h"
#include "layout/editor/operations/CSelectionShape.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/scene/SInputTargets.h"

#include <QSet>

class ISceneInput;

/// The backend of a scene: owns the parts that hold items, selection and history and that carry out edits,
/// and passes reports of items to them. Callers use the part that they need. GUI thread.
class CSceneBackend final : public IEditorScene, private IItemNotes
{
public:
    /// The backend of @p scene, which owns it; @p finish does the work at the end of a batch, @p tell shows a
    /// message in the status bar, @p faultsChanged tells that other cabinets are faulty. @p states must
    /// outlive it.
    CSceneBackend(CGraphicsScene &scene, const IPortStates &states,
                  std::function<void(const CPendingEdits &)> finish,
                  std::function<void(const QString &)> tell, std::function<void()> faultsChanged);

    CSceneContent &content() { return m_content; }
    const CSceneSelection &selection() const { return m_selection; }
    CSelectionPicks &picks() { return m_picks; }
    CEditBatches &batches() { return m_batches; }
    CUndoRecorder &recorder() { return m_recorder; }
    CGuardedUndo &history() { return m_history; }
    CSceneOperations &operations() { return m_operations; }
    CSelectionShape &shape() { return m_shape; }
    CScenePlacing &placing() { return m_placing; }
    CHighlights &highlights() { return m_highlights; }
    CLayoutFaults &faults() { return m_faults; }
    const IPortStates &states() const { return m_states; }
    /// What menus and keys need of these.
    SEditTargets targets()
    {
        return {m_states, m_content, m_selection, m_picks, m_history, m_operations, m_placing};
    }

    /// What the mouse needs of them.
    SInputTargets inputTargets() { return {targets(), m_batches, m_recorder, m_highlights, m_toolModes}; }

    /// Installs @p input, which handles mouse events; null: nobody does. The caller keeps ownership.
    void setInput(ISceneInput *input) { m_input = input; }
    ISceneInput *input() const { return m_input; }
    bool isDragging() const; ///< false if no input is installed

    void setToolMode(ToolMode mode, bool on);
    const QSet<ToolMode> &toolModes() const { return m_toolModes; }

    // IEditorScene
    IItemIndex &items() override { return m_content; }
    IEditing &editing() override { return m_batches; }
    IItemNotes &notes() override { return *this; }
    IItemMouse *mouse() override;

private:
    void noteCabinetMoved(CGraphicsCabinetItem &cabinet) override { m_batches.noteCabinetMoved(cabinet); }
    void noteMembersChanged(CGraphicsGroupItem &group) override { m_batches.noteMembersChanged(group); }
    void notePortChanged(CGraphicsPortItem &port) override { m_batches.notePortChanged(port); }
    void noteWiringChanged(CGraphicsPortItem &) override { m_batches.noteSelection(); }
    void noteSelected(CGraphicsItemBase &item, bool selected) override { m_selection.note(item, selected); }
    void noteHighlighted(CGraphicsCabinetItem &cabinet, bool highlighted) override;
    void cancelGesture();

    CGraphicsScene &m_scene;
    const IPortStates &m_states;
    ISceneInput *m_input = nullptr;
    QSet<ToolMode> m_toolModes;
    CSceneContent m_content;
    CEditBatches m_batches;
    CSceneSelection m_selection;
    CSelectionPicks m_picks;
    CUndoRecorder m_recorder;
    CGuardedUndo m_history;
    CSceneOperations m_operations;
    CSelectionShape m_shape;
    CScenePlacing m_placing;
    CHighlights m_highlights;
    CLayoutFaults m_faults;
};
