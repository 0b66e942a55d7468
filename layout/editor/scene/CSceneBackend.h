// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/IEditorScene.h"
#include "layout/editor/scene/ToolMode.h"

#include <QSet>

#include <functional>
#include <memory>

class CEditBatches;
class CGraphicsScene;
class CGuardedUndo;
class CHighlights;
class CLayoutFaults;
class CPendingEdits;
class CSceneContent;
class CSceneOperations;
class CScenePlacing;
class CSceneSelection;
class CSelectionPicks;
class CSelectionShape;
class CUndoRecorder;
class IPortStates;
class ISceneInput;
struct SEditTargets;
struct SInputTargets;

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
    ~CSceneBackend() override;

    CSceneContent &content();
    const CSceneSelection &selection() const;
    CSelectionPicks &picks();
    CEditBatches &batches();
    CUndoRecorder &recorder();
    CGuardedUndo &history();
    CSceneOperations &operations();
    CSelectionShape &shape();
    CScenePlacing &placing();
    CHighlights &highlights();
    CLayoutFaults &faults();
    const IPortStates &states() const { return m_states; }
    /// What menus and keys need of these.
    SEditTargets targets();
    /// What the mouse needs of them.
    SInputTargets inputTargets();

    /// Installs @p input, which handles mouse events; null: nobody does. The caller keeps ownership.
    void setInput(ISceneInput *input) { m_input = input; }
    ISceneInput *input() const { return m_input; }
    bool isDragging() const; ///< false if no input is installed

    void setToolMode(ToolMode mode, bool on);
    const QSet<ToolMode> &toolModes() const { return m_toolModes; }

    // IEditorScene
    IItemIndex &items() override;
    IEditing &editing() override;
    IItemNotes &notes() override { return *this; }
    IItemMouse *mouse() override;
    int selectedCount(int port) const override;

private:
    struct SParts;

    void noteCabinetMoved(CGraphicsCabinetItem &cabinet) override;
    void noteMembersChanged(CGraphicsGroupItem &group) override;
    void notePortChanged(CGraphicsPortItem &port) override;
    void noteWiringChanged(CGraphicsPortItem &port) override;
    void noteSelected(CGraphicsItemBase &item, bool selected) override;
    void noteRepaint() override;
    void noteHighlighted(CGraphicsCabinetItem &cabinet, bool highlighted) override;
    void cancelGesture();

    CGraphicsScene &m_scene;
    const IPortStates &m_states;
    ISceneInput *m_input = nullptr;
    QSet<ToolMode> m_toolModes;
    const std::unique_ptr<SParts> m_parts;
};
