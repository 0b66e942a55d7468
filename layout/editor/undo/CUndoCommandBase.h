// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/graphics/CUndoCommand.h"

#include <QMap>
#include <QPointF>
#include <QRectF>
#include <QVector>

#include <functional>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsItemBase;
class CGraphicsPortItem;
class IEditorScene;
class QGraphicsItem;

/// What all commands of the editor share: what they recorded of their item, and the changes of the scene that
/// undo and redo are made of. An item that cannot be found, or is of another kind, makes a step do nothing.
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
    /// Gives an item of the recorded kind: the one that exists already the first time, a new one afterwards.
    using Factory = std::function<CGraphicsItemBase *()>;

    /// Output-port index of the item when the command was made.
    int port() const { return m_port; }
    const QUuid &uuid() const { return m_uuid; }
    /// The item's parent when the command was made, if it is found; null also for a port, which has no
    /// identity.
    QGraphicsItem *parentItem() const { return m_parentUuid.isNull() ? nullptr : item(m_parentUuid); }

    void setFactory(const Factory &factory) { m_factory = factory; }

    /// Name of the compound edit that the command was made in.
    const QString &operationName() const { return m_operationName; }
    void setOperationName(const QString &name) { m_operationName = name; }

    /// What was selected before and after the operation whose first command this is.
    void setSelectionBefore(const QVector<QUuid> &uuids) { m_selectionBefore = uuids; }
    void setSelectionAfter(const QVector<QUuid> &uuids) { m_selectionAfter = uuids; }
    const QVector<QUuid> &selectionBefore() const { return m_selectionBefore; }
    const QVector<QUuid> &selectionAfter() const { return m_selectionAfter; }

protected:
    /// Records @p item as it is. The text is @p word and the item's name, if @p named, separated by a blank.
    CUndoCommandBase(ECommandId id, QGraphicsItem *item, const QString &word, bool named,
                     QUndoCommand *parent);

    CGraphicsItemBase *resolvedItem() const;
    CGraphicsCabinetItem *resolvedCabinet() const; ///< null when the item is no cabinet
    CGraphicsGroupItem *resolvedGroup() const;     ///< null when the item is no group
    CGraphicsPortItem *portItem() const;

    // Steps; each finds its item itself.
    void takeOut();
    enum EPlace { AtPosition, AtScenePosition };
    void recreate(EPlace place);
    /// Hands the group's members to its port, or to the group's recorded parent, and deletes it.
    enum EDissolveTo { ToPort, ToRecordedParent };
    void dissolveGroup(EDissolveTo target);
    void recreateGroup(const QVector<QUuid> &members);
    void appendToChain();
    void takeOutOfChain();
    /// After an item's geometry changed: the groups around it follow, and the scene is painted anew.
    void finishGeometry(CGraphicsItemBase &item);
    void repaint();

private:
    CGraphicsItemBase *makeItem();
    void putIntoScene(CGraphicsItemBase &item);
    /// The scene forgets the item and all below it, which are about to be deleted.
    void leaveWithMembers(CGraphicsItemBase &item);

    IEditorScene *m_editor = nullptr;
    int m_port = 0;
    QUuid m_parentUuid;
    QUuid m_uuid;
    int m_itemType = 0;
    QPointF m_pos;
    QPointF m_scenePos;
    QRectF m_rect;
    QMap<int, QVariant> m_data; // by role, without the identity
    Factory m_factory;
    QString m_operationName;
    QVector<QUuid> m_selectionBefore;
    QVector<QUuid> m_selectionAfter;
};
