// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/undo/CMoveCommand.h"

#include "layout/editor/items/CGraphicsItemBase.h"

#include <QGraphicsItem>

CMoveCommand::CMoveCommand(QGraphicsItem *item, QUndoCommand *parent)
    : CUndoCommandBase(MoveId, item, tr("Move"), true, parent)
{
}

void CMoveCommand::undo()
{
    place(startValue());
}

void CMoveCommand::redo()
{
    place(endValue());
}

void CMoveCommand::place(const QVariant &value)
{
    CGraphicsItemBase *base = resolvedItem();
    if (!base)
        return;
    {
        const CItemChangeBlocker blocker(*base);
        base->setPos(base->mapToParent(base->mapFromScene(value.toPointF())));
    }
    base->followGeometry();
    finishGeometry(*base);
}

bool CMoveCommand::mergeWith(const QUndoCommand *other)
{
    if (!resolvedItem() || other->id() != id())
        return false;
    const auto *next = dynamic_cast<const CMoveCommand *>(other);
    if (!next || !next->resolvedItem() || next->uuid() != uuid() || next->startValue() != endValue())
        return false;
    setEndValue(next->endValue());
    return true;
}
