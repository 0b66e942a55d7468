// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/graphics/CUndoCommand.h"

#include "platform/graphics/CGraphicsScene.h"

#include <QGraphicsItem>

CUndoCommand::CUndoCommand(int id, QGraphicsItem *item, const QString &text, QUndoCommand *parent)
    : QUndoCommand(text, parent)
    , m_id(id)
    , m_scene(item ? qobject_cast<CGraphicsScene *>(item->scene()) : nullptr)
{
}

QGraphicsItem *CUndoCommand::item(const QUuid &uuid) const
{
    return m_scene ? m_scene->itemOf(uuid) : nullptr;
}
