// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/graphics/CUndoCommand.h"

#include "platform/graphics/CGraphicsScene.h"

#include <QGraphicsItem>

CUndoCommand::CUndoCommand(int id, QGraphicsItem *item, const QString &text, QUndoCommand *parent)
    : QUndoCommand(text, parent)
    , m_scene(item ? qobject_cast<CGraphicsScene *>(item->scene()) : nullptr)
    , m_id(id)
{
}

QVariant CUndoCommand::asVariant(const Value &value)
{
    const QPointF *place = std::get_if<QPointF>(&value);
    return place ? QVariant(*place) : std::get<QVariant>(value);
}

QPointF CUndoCommand::asPlace(const Value &value)
{
    const QPointF *place = std::get_if<QPointF>(&value);
    return place ? *place : std::get<QVariant>(value).toPointF();
}

QGraphicsItem *CUndoCommand::item(const QUuid &uuid) const
{
    return m_scene ? m_scene->itemOf(uuid) : nullptr;
}
