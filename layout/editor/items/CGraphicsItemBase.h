// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/editor/items/ItemKinds.h"
#include "platform/graphics/CItemChangeBlocker.h"

#include <QGraphicsRectItem>
#include <QMap>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsPortItem;
class IEditorScene;
class IItemMouse;

/// What cabinets and groups on the canvas share: identity, port, record, resize handles, and the mouse rules
/// by which they are selected through groups, moved and resized.
class CGraphicsItemBase : public QGraphicsRectItem, public CChangeBlockable
{
public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;
    static constexpr int NoHandle = -1;
    static constexpr int NotSelected = -1;

    /// The user's name for what the item shows; it ends the texts of its undo steps.
    const QString &name() const { return m_name; }
    void setName(const QString &name) { m_name = name; }

    const QUuid &uuid() const { return m_uuid; }
    void setUuid(const QUuid &uuid);

    /// Output-port index of the item.
    int port() const { return m_port; }
    virtual void setPort(int port) { m_port = port; }

    /// The record that the item shows; a cabinet item keeps it current.
    const Cabinet &cabinet() const { return m_cabinet; }

    /// Keeps records in their order when they are read back: members of a group, and of a port, stand in
    /// ascending ordinals. They stay the same while the processor is out of view.
    qint64 ordinal() const { return m_ordinal; }
    void setOrdinal(qint64 ordinal) { m_ordinal = ordinal; }

    /// Where the scene's selection keeps the item, so that it finds it at once.
    int selectionPlace() const { return m_selectionPlace; }
    void setSelectionPlace(int place) { m_selectionPlace = place; }

    CGraphicsPortItem *portItem() const;   ///< null outside a port
    CGraphicsGroupItem *groupItem() const; ///< the nearest group around the item, or null
    /// Whether a group encloses the item; a group itself is not grouped.
    bool isGrouped() const;
    CGraphicsItemBase &outermost(); ///< the outermost group around the item, or the item itself

    /// Whether the item or any group around it is selected.
    bool isSelectedWithGroups() const;
    /// Selects the outermost group around the item; an item outside any group itself.
    void selectOutermost(bool selected) { outermost().setSelected(selected); }

    /// Whether the selected item may be resized through its handles.
    virtual bool canResize() const = 0;
    /// The cabinets that a change of the item concerns: itself, or a group's.
    virtual QVector<CGraphicsCabinetItem *> concernedCabinets() = 0;
    /// Brings records and wiring lines in step with where the item lies now.
    virtual void followGeometry() = 0;

    QRectF boundingRect() const override { return m_bounds; }
    QPainterPath shape() const override;

    /// The handle that is shown at a place while the item is selected; NoHandle without one.
    int handleAt(const QPointF &scenePos);
    /// A handle that sticks out is part of the item while the cursor is on it.
    void setHoveredHandle(int handle);
    /// A press on a handle ends highlights of untyped cabinets, where the user wants that.
    void resetHighlights();

    /// Sets the rectangle to that size at the item's position.
    void setSize(const QSizeF &size);

protected:
    /// With a null @p uuid the item gets a new identity.
    CGraphicsItemBase(const QUuid &uuid, QGraphicsItem *parent);

    Cabinet &record() { return m_cabinet; }
    IEditorScene *editor() const;  ///< null outside a port of an editing scene
    IItemMouse *itemMouse() const; ///< null also while nobody follows the mouse

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

    QUuid m_uuid; // the same as in the data role, for which Qt searches a table of all items
    int m_port = 0;
    Cabinet m_cabinet;
    QMap<int, QRectF> m_handles;    // by handle number, in item coordinates
    int m_hoveredHandle = NoHandle; // under the cursor; it belongs to the bounds while it is
    QRectF m_bounds;
    qint64 m_ordinal = 0;
    int m_selectionPlace = NotSelected;
    QString m_name;
};
