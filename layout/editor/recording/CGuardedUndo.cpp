// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/recording/CGuardedUndo.h"

#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditorScene.h"
#include "layout/editor/undo/CUndoCommandBase.h"

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

QString CGuardedUndo::refusal(const IEditorScene &scene, const QUndoCommand &command, bool undoing)
{
    QVector<int> ports;
    collectPorts(command, ports);
    for (const int index : qAsConst(ports)) {
        const CGraphicsPortItem *port = scene.portItem(index);
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
