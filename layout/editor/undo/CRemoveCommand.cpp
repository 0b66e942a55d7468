// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/undo/CRemoveCommand.h"

#include <QGraphicsItem>

CRemoveCommand::CRemoveCommand(QGraphicsItem *item, QUndoCommand *parent)
    : CUndoCommandBase(
          RemoveId, item, [] { return tr("Remove"); }, false, parent)
{
}

void CRemoveCommand::undo()
{
    recreate(AtScenePosition);
}

void CRemoveCommand::redo()
{
    takeOut();
}
