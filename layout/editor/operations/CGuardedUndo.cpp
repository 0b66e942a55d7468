// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/operations/CGuardedUndo.h"

#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditing.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/undo/CUndoCommandBase.h"

#include "platform/widgets/CMessageBox.h"

#include <QVector>

namespace {

/// The ports that a command and its children recorded, in order, each once.
void collectPorts(const QUndoCommand &command, QVector<int> &ports)
{
    const auto *own = dynamic_cast<const CUndoCommandBase *>(&command);
    if (own && !ports.contains(own->port()))
        ports << own->port();
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

void CGuardedUndo::run(QWidget *parent, bool undoing)
{
    m_editing.cancelGesture();
    if (!(undoing ? canUndo() : canRedo()))
        return;
    QUndoStack *stack = m_recorder.stack();
    const QUndoCommand *command = stack->command(undoing ? stack->index() - 1 : stack->index());
    const QString refused = refusal(*command, undoing);
    if (!refused.isEmpty()) {
        CMessageBox::information(parent, refused,
                                 tr("Unlock the output port, or choose \"Cancel redundancy\" for it, and try "
                                    "again."));
        return;
    }
    const CEditBatch batch(m_editing);
    if (undoing)
        stack->undo();
    else
        stack->redo();
    for (CGraphicsPortItem *port : m_content.portItems())
        port->refreshState();
    if (const CUndoCommandBase *own = ownCommand(command))
        m_picks.only(undoing ? own->selectionBefore() : own->selectionAfter());
}

QString CGuardedUndo::refusal(const QUndoCommand &command, bool undoing) const
{
    QVector<int> ports;
    collectPorts(command, ports);
    for (const int index : qAsConst(ports)) {
        const CGraphicsPortItem *port = m_content.portItem(index);
        if (!port)
            continue;
        if (port->isLocked()) {
            return undoing ? tr("Port %1 is locked and cannot be undone.").arg(index + 1)
                           : tr("Port %1 is locked and cannot be redone.").arg(index + 1);
        }
        if (port->isRedundant()) {
            return undoing ? tr("Port %1 is redundancy and cannot be undone.").arg(index + 1)
                           : tr("Port %1 is redundancy and cannot be redone.").arg(index + 1);
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
