// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/undo/CAppendCommand.h"

#include <QGraphicsItem>

CAppendCommand::CAppendCommand(QGraphicsItem *item, QUndoCommand *parent)
    : CUndoCommandBase(
          AppendId, item, [] { return tr("Append"); }, false, parent)
{
}

void CAppendCommand::undo()
{
    takeOut();
}

void CAppendCommand::redo()
{
    recreate(AtPosition);
}
