// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/data/records/CabinetLayout.h"
#include "layout/editor/items/ItemKinds.h"

#include <QGraphicsRectItem>
#include <QMap>

class CGraphicsGroupItem;
class CGraphicsPortItem;

/// What cabinets and groups on the canvas share: identity, port, record and how they are selected through
/// groups.
class CGraphicsItemBase : public QGraphicsRectItem
{
public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;

    /// The user's name for what the item shows; it ends the texts of its undo steps.
    const QString &name() const { return m_name; }
    void setName(const QString &name) { m_name = name; }

    QUuid uuid() const { return data(IdentityRole).toUuid(); }
    void setUuid(const QUuid &uuid) { setData(IdentityRole, QVariant::fromValue(uuid)); }

    /// Output-port index of the item.
    int port() const { return m_port; }
    virtual void setPort(int port) { m_port = port; }

    /// The record that the item shows; a cabinet item keeps it current.
    const Cabinet &cabinet() const { return m_cabinet; }

    /// Keeps records in their order when they are read back: members of a group, and of a port, stand in
    /// ascending ordinals.
    qint64 ordinal() const { return m_ordinal; }
    void setOrdinal(qint64 ordinal) { m_ordinal = ordinal; }

    CGraphicsPortItem *portItem() const;   ///< null outside a port
    CGraphicsGroupItem *groupItem() const; ///< the nearest group around the item, or null
    /// Whether a group encloses the item; a group itself is not grouped.
    bool isGrouped() const;

    /// Whether the item or any group around it is selected.
    bool isSelectedWithGroups() const;
    /// Selects the outermost group around the item; an item outside any group itself.
    void selectOutermost(bool selected);

    QRectF boundingRect() const override { return rect(); }
    QPainterPath shape() const override;

protected:
    /// With a null @p uuid the item gets a new identity.
    CGraphicsItemBase(const QUuid &uuid, QGraphicsItem *parent);

    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    Cabinet &record() { return m_cabinet; }

private:
    int m_port = 0;
    Cabinet m_cabinet;
    qint64 m_ordinal = 0;
    QString m_name;
};
