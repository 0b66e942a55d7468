// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/editor/items/ItemKinds.h"
#include "platform/graphics/CItemChangeBlocker.h"

#include <QGraphicsRectItem>
#include <QMap>

#include <memory>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsPortItem;
class IEditorScene;
class IItemMouse;

/// Common base of cabinets and groups on the canvas: identity, port, record, resize handles, and the handling
/// of mouse events that select (through groups), move and resize them.
class CGraphicsItemBase : public QGraphicsRectItem, public CChangeBlockable
{
public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;
    static constexpr int NoHandle = -1;
    static constexpr int NotSelected = -1;

    /// The name shown to the user; the texts of undo steps end with it.
    const QString &name() const { return m_name; }
    void setName(const QString &name) { m_name = name; }

    const QUuid &uuid() const { return m_cabinet.uuid; }
    void setUuid(const QUuid &uuid);

    /// Output-port index of the item.
    int port() const { return m_port; }
    virtual void setPort(int port) { m_port = port; }

    /// The record that the item shows; a cabinet item keeps it up to date.
    const Cabinet &cabinet() const { return m_cabinet; }

    /// Defines the order in which records are read back: members of a group or of a port are sorted by
    /// ordinal. Ordinals are kept while the processor is out of view.
    qint64 ordinal() const { return m_ordinal; }
    void setOrdinal(qint64 ordinal) { m_ordinal = ordinal; }

    /// Index of the item in the scene's selection, so that it is found in O(1).
    int selectionPlace() const { return m_selectionPlace; }
    void setSelectionPlace(int place) { m_selectionPlace = place; }

    CGraphicsPortItem *portItem() const;   ///< null outside a port
    CGraphicsGroupItem *groupItem() const; ///< the nearest group around the item, or null
    /// Whether a group encloses the item; a group itself is not grouped.
    bool isGrouped() const;
    CGraphicsItemBase &outermost(); ///< the outermost group around the item, or the item itself

    /// Whether the item or any group around it is selected.
    bool isSelectedWithGroups() const;
    /// Selects or deselects the outermost group around the item, or the item itself if it is in no group.
    void selectOutermost(bool selected) { outermost().setSelected(selected); }

    /// Whether the item can be resized by its handles while it is selected.
    virtual bool canResize() const = 0;
    /// The cabinets that a change of the item affects: itself, or all cabinets of a group.
    virtual QVector<CGraphicsCabinetItem *> concernedCabinets() = 0;
    /// Updates records and wiring lines to the item's current geometry.
    virtual void followGeometry() = 0;

    /// Its position and its rectangle in scene coordinates; much cheaper than by transforms, which no item
    /// has.
    QPointF scenePlace() const;
    QRectF placement() const { return rect().translated(scenePlace()); }
    /// Moves its origin to @p scenePlace.
    void placeAt(const QPointF &scenePlace);

    QRectF boundingRect() const override { return m_grown ? *m_grown : rect(); }
    QPainterPath shape() const override;

    /// The handle shown at @p scenePos while the item is selected; NoHandle if there is none.
    int handleAt(const QPointF &scenePos);
    /// Sets the handle under the cursor; while it is hovered, the part that sticks out belongs to the item's
    /// bounds.
    void setHoveredHandle(int handle);
    /// Called on a press on a handle: removes the highlight of cabinets without a type, if the port is set to
    /// do so.
    void resetHighlights();

    /// Resizes the rectangle; the item's position stays.
    void setSize(const QSizeF &size);

protected:
    /// If @p uuid is null, the item gets a new identity. Derived classes set @p parent themselves, at the end
    /// of their construction, because it checks the type of a new child; @p scenePlace is where the item
    /// shall be then.
    CGraphicsItemBase(const QUuid &uuid, const QGraphicsItem *parent, const QPointF &scenePlace = {});

    Cabinet &record() { return m_cabinet; }
    IEditorScene *editor() const;  ///< null outside a port of an editing scene
    IItemMouse *itemMouse() const; ///< also null if no input is installed

    bool sceneEvent(QEvent *event) override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void hoverMoveEvent(QGraphicsSceneHoverEvent *event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    void updateHandles();
    bool selectByPress(const QGraphicsSceneMouseEvent &event);

    int m_port = 0;
    Cabinet m_cabinet; // also its identity: the data role would cost a lookup in Qt's table of all items
    QMap<int, QRectF> m_handles;     // by handle number, in item coordinates
    std::unique_ptr<QRectF> m_grown; // the bounds while a hovered handle sticks out of the rectangle
    int m_hoveredHandle = NoHandle;  // under the cursor
    int m_selectionPlace = NotSelected;
    qint64 m_ordinal = 0;
    QString m_name;
};
