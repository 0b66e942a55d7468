// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/graphics/CUndoCommand.h"

#include <QMap>
#include <QPointF>
#include <QRectF>
#include <QVector>

#include <functional>
#include <memory>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsItemBase;
class CGraphicsPortItem;
class IEditorScene;
class QGraphicsItem;

/// Base of all commands of the editor: what they recorded of their item, and the steps that undo and redo
/// consist of. A step does nothing if its item is not found or is of another kind.
class CUndoCommandBase : public CUndoCommand
{
public:
    /// Numbers returned by id().
    enum ECommandId {
        MoveId = 0,
        ResizeId = 1,
        AppendId = 2,
        RemoveId = 3,
        CreateGroupId = 4,
        BreakGroupId = 5,
        CreateWiringId = 6,
        BreakWiringId = 7,
        ChangeTypeId = 8
    };
    /// Returns an item of the recorded kind: the first time one that may exist already, a new one afterwards.
    using Factory = std::function<CGraphicsItemBase *()>;

    /// Output-port index of the item when the command was made.
    int port() const { return m_port; }
    const QUuid &uuid() const { return m_uuid; }
    /// The parent that the item had when the command was made; null if it is not found, or is a port, which
    /// has no identity.
    QGraphicsItem *parentItem() const { return m_parentUuid.isNull() ? nullptr : item(m_parentUuid); }

    void setFactory(const Factory &factory);

    /// Name of the operation that the command belongs to.
    const QString &operationName() const { return m_operationName; }
    void setOperationName(const QString &name) { m_operationName = name; }

    /// The selection before and after the operation. Set for the first command of an operation only.
    void setSelectionBefore(const QVector<QUuid> &uuids) { selections().before = uuids; }
    void setSelectionAfter(const QVector<QUuid> &uuids) { selections().after = uuids; }
    QVector<QUuid> selectionBefore() const { return m_selections ? m_selections->before : QVector<QUuid>(); }
    QVector<QUuid> selectionAfter() const { return m_selections ? m_selections->after : QVector<QUuid>(); }

protected:
    using Word = QString (*)();
    /// Records the state of @p item. The command's text is what @p word returns, a space, and if @p named,
    /// the item's name. Commands without a name share their text, which is translated once.
    CUndoCommandBase(ECommandId id, QGraphicsItem *item, Word word, bool named, QUndoCommand *parent);

    CGraphicsItemBase *resolvedItem() const;
    CGraphicsCabinetItem *resolvedCabinet() const; ///< null if the item is not a cabinet
    CGraphicsGroupItem *resolvedGroup() const;     ///< null if the item is not a group
    CGraphicsPortItem *portItem() const;

    // Steps. Each looks up its item itself.
    void takeOut();
    enum EPlace { AtPosition, AtScenePosition };
    void recreate(EPlace place);
    /// Moves the group's members to its port, or to the group's recorded parent, and deletes the group.
    enum EDissolveTo { ToPort, ToRecordedParent };
    void dissolveGroup(EDissolveTo target);
    void recreateGroup(const QVector<QUuid> &members);
    void appendToChain();
    void takeOutOfChain();
    /// Called after an item's geometry changed: updates the groups around it and repaints the scene.
    void finishGeometry(CGraphicsItemBase &item);
    void repaint();

private:
    CGraphicsItemBase *makeItem();
    void putIntoScene(CGraphicsItemBase &item);
    /// Unregisters the item and all its descendants, which are about to be deleted.
    void leaveWithMembers(CGraphicsItemBase &item);

    /// What only commands need that re-create their item.
    struct SOrigin
    {
        QPointF pos;
        QPointF scenePos;
        QRectF rect;
        QMap<int, QVariant> data; // by role, without the identity
        Factory factory;
    };
    struct SSelections
    {
        QVector<QUuid> before;
        QVector<QUuid> after;
    };
    static std::unique_ptr<SOrigin> originOf(const CGraphicsItemBase &item);
    SSelections &selections();

    // A step that moves everything consists of as many commands as there are cabinets: each byte counts.
    int m_port = 0;
    int m_itemType = 0;
    QUuid m_parentUuid;
    QUuid m_uuid;
    IEditorScene *m_editor = nullptr;
    QString m_operationName;
    std::unique_ptr<SOrigin> m_origin;
    std::unique_ptr<SSelections> m_selections;
};
