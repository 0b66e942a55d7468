// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QUndoCommand>
#include <QUuid>
#include <QVariant>

class CGraphicsScene;
class QGraphicsItem;

/// An undo command for an item of a scene: holds identities and values, never items. GUI thread.
class CUndoCommand : public QUndoCommand
{
public:
    int id() const final { return m_id; }

    /// The value that undo applies, and the one that redo applies.
    void setStartValue(const QVariant &value) { m_startValue = value; }
    void setEndValue(const QVariant &value) { m_endValue = value; }
    const QVariant &startValue() const { return m_startValue; }
    const QVariant &endValue() const { return m_endValue; }

protected:
    /// Remembers the scene of @p item, which may be null; the scene must outlive the command.
    CUndoCommand(int id, QGraphicsItem *item, const QString &text, QUndoCommand *parent);

    /// The scene's item with that identity in data role 0, or null.
    QGraphicsItem *item(const QUuid &uuid) const;
    CGraphicsScene *scene() const { return m_scene; }

private:
    int m_id;
    CGraphicsScene *m_scene;
    QVariant m_startValue;
    QVariant m_endValue;
};
