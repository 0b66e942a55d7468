// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointF>
#include <QUndoCommand>
#include <QUuid>
#include <QVariant>

#include <variant>

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
    QVariant startValue() const { return asVariant(m_startValue); }
    QVariant endValue() const { return asVariant(m_endValue); }
    /// The same for a position, which needs less memory so.
    void setStartValue(const QPointF &place) { m_startValue = place; }
    void setEndValue(const QPointF &place) { m_endValue = place; }

protected:
    /// Remembers the scene of @p item, which may be null; the scene must outlive the command.
    CUndoCommand(int id, QGraphicsItem *item, const QString &text, QUndoCommand *parent);

    /// The scene's item with that identity in data role 0, or null.
    QGraphicsItem *item(const QUuid &uuid) const;
    CGraphicsScene *scene() const { return m_scene; }

    // The values as positions; null if they are none.
    QPointF startPlace() const { return asPlace(m_startValue); }
    QPointF endPlace() const { return asPlace(m_endValue); }

private:
    using Value = std::variant<QVariant, QPointF>;
    static QVariant asVariant(const Value &value);
    static QPointF asPlace(const Value &value);

    CGraphicsScene *m_scene;
    Value m_startValue;
    Value m_endValue;
    int m_id; // last, so that members of derived classes fill the gap
};
