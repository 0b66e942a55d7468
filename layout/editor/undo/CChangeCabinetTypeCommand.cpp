// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/undo/CChangeCabinetTypeCommand.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"

#include <QGraphicsItem>

CChangeCabinetTypeCommand::CChangeCabinetTypeCommand(QGraphicsItem *item, QUndoCommand *parent)
    : CUndoCommandBase(
          ChangeTypeId, item, [] { return tr("Change cabinet type"); }, false, parent)
{
}

void CChangeCabinetTypeCommand::undo()
{
    apply(startValue());
}

void CChangeCabinetTypeCommand::redo()
{
    apply(endValue());
}

void CChangeCabinetTypeCommand::apply(const QVariant &value)
{
    CGraphicsCabinetItem *cabinet = resolvedCabinet();
    if (!cabinet)
        return;
    const CItemChangeBlocker blocker(*cabinet);
    cabinet->setCabinet(qvariant_cast<CabinetLayout::CabinetPort::Cabinet>(value));
    const CGraphicsPortItem *owner = cabinet->portItem();
    if (endsHighlight() && owner && owner->resetsHighlightOnEdit())
        cabinet->setHighlighted(false);
    finishGeometry(*cabinet);
}
