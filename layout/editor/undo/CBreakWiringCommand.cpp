// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/undo/CBreakWiringCommand.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"

#include <QGraphicsItem>

CBreakWiringCommand::CBreakWiringCommand(QGraphicsItem *item, QUndoCommand *parent)
    : CUndoCommandBase(
          BreakWiringId, item, [] { return tr("Clear topology"); }, false, parent)
{
}

void CBreakWiringCommand::undo()
{
    CGraphicsCabinetItem *cabinet = resolvedCabinet();
    CGraphicsPortItem *owner = cabinet ? cabinet->portItem() : nullptr;
    if (!owner || cabinet->isInChain())
        return;
    const CItemChangeBlocker blocker(*cabinet);
    owner->chain().insert(startValue().toInt(), cabinet);
    repaint();
}

void CBreakWiringCommand::redo()
{
    takeOutOfChain();
}
