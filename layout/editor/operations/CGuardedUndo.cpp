// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/operations/CGuardedUndo.h"

#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditing.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/undo/CUndoCommandBase.h"
#include "layout/editor/undo/IHistoryStep.h"

#include "platform/widgets/CMessageBox.h"

#include <QVector>

#include <algorithm>

namespace {

/// The ports that a command and its children recorded, in order, each once.
void collectPorts(const QUndoCommand &command, QVector<int> &ports)
{
    const auto *own = dynamic_cast<const CUndoCommandBase *>(&command);
    if (own && !ports.contains(own->port()))
        ports << own->port();
    if (const auto *step = dynamic_cast<const IHistoryStep *>(&command))
        ports << step->ports();
    for (int i = 0; i < command.childCount(); ++i)
        collectPorts(*command.child(i), ports);
}

} // namespace

bool CGuardedUndo::canUndo() const
{
    return m_recorder.stack() && m_recorder.stack()->canUndo();
}

bool CGuardedUndo::canRedo() const
{
    return m_recorder.stack() && m_recorder.stack()->canRedo();
}

void CGuardedUndo::undo(QWidget *parent)
{
    m_editing.cancelGesture();
    if (canUndo())
        goTo(m_recorder.stack()->index() - 1, parent);
}

void CGuardedUndo::redo(QWidget *parent)
{
    m_editing.cancelGesture();
    if (canRedo())
        goTo(m_recorder.stack()->index() + 1, parent);
}

void CGuardedUndo::goTo(int index, QWidget *parent)
{
    m_editing.cancelGesture();
    QUndoStack *stack = m_recorder.stack();
    if (!stack || index < 0 || index > stack->count() || index == stack->index())
        return;
    const bool undoing = index < stack->index();
    for (int i = std::min(index, stack->index()); i < std::max(index, stack->index()); ++i) {
        const SRefusal refused = refusal(*stack->command(i), undoing);
        if (refused.text.isEmpty())
            continue;
        CMessageBox::information(parent, refused.text, refused.advice);
        return;
    }
    const CEditBatch batch(m_editing);
    const QUndoCommand *last = stack->command(undoing ? index : index - 1);
    while (stack->index() != index)
        undoing ? stack->undo() : stack->redo();
    for (CGraphicsPortItem *port : m_content.portItems())
        port->refreshState();
    if (const auto *step = dynamic_cast<const IHistoryStep *>(last))
        m_picks.only(step->selection());
    else if (const CUndoCommandBase *own = ownCommand(last))
        m_picks.only(undoing ? own->selectionBefore() : own->selectionAfter());
}

CGuardedUndo::SRefusal CGuardedUndo::refusal(const QUndoCommand &command, bool undoing) const
{
    QVector<int> ports;
    collectPorts(command, ports);
    for (const int index : qAsConst(ports)) {
        const CGraphicsPortItem *port = m_content.portItem(index);
        if (!port)
            continue;
        if (port->isLocked()) {
            return {(undoing ? tr("Port %1 is locked and cannot be undone.")
                             : tr("Port %1 is locked and cannot be redone."))
                        .arg(index + 1),
                    tr("Unlock the output port and try again.")};
        }
        if (port->isRedundant()) {
            return {(undoing ? tr("Port %1 is redundancy and cannot be undone.")
                             : tr("Port %1 is redundancy and cannot be redone."))
                        .arg(index + 1),
                    tr("Choose \"Cancel redundancy\" for the output port and try again.")};
        }
    }
    return {};
}

const CUndoCommandBase *CGuardedUndo::ownCommand(const QUndoCommand *command)
{
    if (!command)
        return nullptr;
    if (const auto *own = dynamic_cast<const CUndoCommandBase *>(command))
        return own;
    for (int i = 0; i < command->childCount(); ++i) {
        if (const CUndoCommandBase *own = ownCommand(command->child(i)))
            return own;
    }
    return nullptr;
}
