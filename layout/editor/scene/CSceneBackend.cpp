// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/scene/CSceneBackend.h"

#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CHighlights.h"
#include "layout/editor/content/CLayoutFaults.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/items/CGraphicsItemBase.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/operations/CGuardedUndo.h"
#include "layout/editor/operations/CSceneOperations.h"
#include "layout/editor/operations/CSelectionShape.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/scene/ISceneInput.h"
#include "layout/editor/scene/SInputTargets.h"
#include "platform/graphics/CGraphicsScene.h"

#include <utility>

struct CSceneBackend::SParts
{
    SParts(CSceneBackend &backend, CGraphicsScene &scene, const IPortStates &states,
           std::function<void(const CPendingEdits &)> finish, std::function<void(const QString &)> tell,
           std::function<void()> faultsChanged)
        : content(scene, backend, states)
        , batches(
              std::move(finish), [&backend] { backend.cancelGesture(); }, std::move(tell))
        , picks(scene, batches, content, selection)
        , recorder([this] { return selection.uuids(); })
        , history(batches, content, recorder, picks)
        , operations(batches, content, selection, recorder)
        , shape(batches, selection, recorder)
        , placing(scene, batches, states, content, selection, recorder)
        , highlights(batches)
        , faults(content, std::move(faultsChanged))
    {
    }

    CSceneContent content;
    CEditBatches batches;
    CSceneSelection selection;
    CSelectionPicks picks;
    CUndoRecorder recorder;
    CGuardedUndo history;
    CSceneOperations operations;
    CSelectionShape shape;
    CScenePlacing placing;
    CHighlights highlights;
    CLayoutFaults faults;
};

CSceneBackend::CSceneBackend(CGraphicsScene &scene, const IPortStates &states,
                             std::function<void(const CPendingEdits &)> finish,
                             std::function<void(const QString &)> tell, std::function<void()> faultsChanged)
    : m_scene(scene)
    , m_states(states)
    , m_parts(std::make_unique<SParts>(*this, scene, states, std::move(finish), std::move(tell),
                                       std::move(faultsChanged)))
{
}

CSceneBackend::~CSceneBackend() = default;

CSceneContent &CSceneBackend::content()
{
    return m_parts->content;
}

CSelectionPicks &CSceneBackend::picks()
{
    return m_parts->picks;
}

CEditBatches &CSceneBackend::batches()
{
    return m_parts->batches;
}

CUndoRecorder &CSceneBackend::recorder()
{
    return m_parts->recorder;
}

CGuardedUndo &CSceneBackend::history()
{
    return m_parts->history;
}

CSceneOperations &CSceneBackend::operations()
{
    return m_parts->operations;
}

CSelectionShape &CSceneBackend::shape()
{
    return m_parts->shape;
}

CScenePlacing &CSceneBackend::placing()
{
    return m_parts->placing;
}

CHighlights &CSceneBackend::highlights()
{
    return m_parts->highlights;
}

CLayoutFaults &CSceneBackend::faults()
{
    return m_parts->faults;
}

const CSceneSelection &CSceneBackend::selection() const
{
    return m_parts->selection;
}

SEditTargets CSceneBackend::targets()
{
    return {m_states,         m_parts->content,    m_parts->selection, m_parts->picks,
            m_parts->history, m_parts->operations, m_parts->placing};
}

SInputTargets CSceneBackend::inputTargets()
{
    return {targets(), m_parts->batches, m_parts->recorder, m_parts->highlights, m_toolModes};
}

IItemIndex &CSceneBackend::items()
{
    return m_parts->content;
}

IEditing &CSceneBackend::editing()
{
    return m_parts->batches;
}

int CSceneBackend::selectedCount(int port) const
{
    return m_parts->selection.count(port);
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

void CSceneBackend::noteCabinetMoved(CGraphicsCabinetItem &cabinet)
{
    m_parts->batches.noteCabinetMoved(cabinet);
}

void CSceneBackend::noteMembersChanged(CGraphicsGroupItem &group)
{
    m_parts->batches.noteMembersChanged(group);
}

void CSceneBackend::notePortChanged(CGraphicsPortItem &port)
{
    m_parts->batches.notePortChanged(port);
}

void CSceneBackend::noteWiringChanged(CGraphicsPortItem &)
{
    m_parts->batches.noteSelection();
}

void CSceneBackend::noteSelected(CGraphicsItemBase &item, bool selected)
{
    m_parts->selection.note(item, selected);
    if (CGraphicsPortItem *port = item.portItem())
        port->noteSelectionChanged();
}

void CSceneBackend::noteRepaint()
{
    // At the beginning, too: from then on items need not request it one by one.
    if (m_parts->batches.noteRepaint())
        m_scene.updateViews();
}

void CSceneBackend::noteHighlighted(CGraphicsCabinetItem &cabinet, bool highlighted)
{
    m_parts->highlights.note(cabinet, highlighted);
    m_parts->batches.noteHighlight();
}
