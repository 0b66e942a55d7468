// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/undo/CReszieCommand.h"

#include "layout/editor/items/CGraphicsItemBase.h"

#include <QGraphicsItem>

CReszieCommand::CReszieCommand(QGraphicsItem *item, QUndoCommand *parent)
    : CUndoCommandBase(
          ResizeId, item, [] { return tr("Resize"); }, true, parent)
{
}

void CReszieCommand::undo()
{
    resize(startValue());
}

void CReszieCommand::redo()
{
    resize(endValue());
}

void CReszieCommand::resize(const QVariant &value)
{
    CGraphicsItemBase *base = resolvedItem();
    if (!base)
        return;
    const CItemChangeBlocker blocker(*base);
    base->setSize(value.toSizeF());
    base->followGeometry();
    finishGeometry(*base);
}
