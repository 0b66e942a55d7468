// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/undo/CCreateGroupCommand.h"

#include "layout/editor/items/CGraphicsGroupItem.h"

#include <QGraphicsItem>

CCreateGroupCommand::CCreateGroupCommand(QGraphicsItem *item, QUndoCommand *parent)
    : CUndoCommandBase(
          CreateGroupId, item, [] { return tr("Group"); }, false, parent)
{
    if (const CGraphicsGroupItem *group = resolvedGroup()) {
        for (const CGraphicsItemBase *member : group->members())
            m_members << member->uuid();
    }
}

void CCreateGroupCommand::undo()
{
    dissolveGroup(ToRecordedParent);
}

void CCreateGroupCommand::redo()
{
    recreateGroup(m_members);
}
