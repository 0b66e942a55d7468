// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/undo/CMoveCommand.h"

#include "layout/editor/items/CGraphicsItemBase.h"

#include <QGraphicsItem>

CMoveCommand::CMoveCommand(QGraphicsItem *item, QUndoCommand *parent)
    : CUndoCommandBase(
          MoveId, item, [] { return tr("Move"); }, true, parent)
{
}

void CMoveCommand::undo()
{
    place(startPlace());
}

void CMoveCommand::redo()
{
    place(endPlace());
}

void CMoveCommand::place(const QPointF &scenePlace)
{
    CGraphicsItemBase *base = resolvedItem();
    if (!base)
        return;
    {
        const CItemChangeBlocker blocker(*base);
        base->placeAt(scenePlace);
    }
    base->followGeometry();
    finishGeometry(*base);
}

bool CMoveCommand::mergeWith(const QUndoCommand *other)
{
    const auto *next = other->id() == id() ? dynamic_cast<const CMoveCommand *>(other) : nullptr;
    if (!next || next->uuid() != uuid() || next->startValue() != endValue() || !resolvedItem() ||
        !next->resolvedItem())
        return false;
    setEndValue(next->endPlace());
    return true;
}
