// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/undo/CCreateWiringCommand.h"

#include <QGraphicsItem>

CCreateWiringCommand::CCreateWiringCommand(QGraphicsItem *item, QUndoCommand *parent)
    : CUndoCommandBase(
          CreateWiringId, item, [] { return tr("Create wiring"); }, false, parent)
{
}

void CCreateWiringCommand::undo()
{
    takeOutOfChain();
}

void CCreateWiringCommand::redo()
{
    appendToChain();
}
