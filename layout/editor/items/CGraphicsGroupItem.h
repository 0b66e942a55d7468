// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/CGraphicsItemBase.h"

class CGraphicsCabinetItem;

/// A group of cabinets and further groups of one port. Its rectangle is always the union of its members'.
class CGraphicsGroupItem final : public CGraphicsItemBase
{
public:
    /// An empty group that covers @p sceneRect; with a null @p uuid it gets a new identity.
    CGraphicsGroupItem(const QUuid &uuid, const QRectF &sceneRect, QGraphicsItem *parent);

    int type() const override { return GroupItemKind; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    /// Every cabinet item below the group, through all sub-groups.
    QVector<CGraphicsCabinetItem *> cabinets() const;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
};
