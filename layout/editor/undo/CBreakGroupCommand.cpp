// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/undo/CBreakGroupCommand.h"

#include "layout/editor/items/CGraphicsGroupItem.h"

#include <QGraphicsItem>

CBreakGroupCommand::CBreakGroupCommand(QGraphicsItem *item, QUndoCommand *parent)
    : CUndoCommandBase(
          BreakGroupId, item, [] { return tr("Ungroup"); }, false, parent)
{
    if (const CGraphicsGroupItem *group = resolvedGroup()) {
        for (const CGraphicsItemBase *member : group->members())
            m_members << member->uuid();
    }
}

void CBreakGroupCommand::undo()
{
    recreateGroup(m_members);
}

void CBreakGroupCommand::redo()
{
    dissolveGroup(ToPort);
}
