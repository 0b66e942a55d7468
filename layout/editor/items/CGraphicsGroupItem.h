// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/CGraphicsItemBase.h"

/// A group of cabinets and sub-groups of one port. Its rectangle is always the union of its members'
/// rectangles.
class CGraphicsGroupItem final : public CGraphicsItemBase
{
public:
    /// An empty group that covers @p sceneRect. If @p uuid is null, it gets a new identity.
    CGraphicsGroupItem(const QUuid &uuid, const QRectF &sceneRect, QGraphicsItem *parent);

    int type() const override { return GroupItemKind; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    /// All cabinets in the group and its sub-groups.
    QVector<CGraphicsCabinetItem *> cabinets() const;
    /// The cabinets and groups that are direct children.
    QVector<CGraphicsItemBase *> members() const;

    /// Makes @p members children of the group; their scene positions do not change. They must be children of
    /// the group's parent.
    void gather(const QVector<CGraphicsItemBase *> &members);
    /// Makes the members children of @p newParent, without changing their scene positions, and selects them.
    /// The caller deletes the empty group.
    void dissolve(QGraphicsItem &newParent);

    /// Fits the rectangle to the members, whose scene positions do not change; then does the same for the
    /// groups around it.
    void recomputeBounds(bool repaint);
    /// The same for this group alone.
    void fitToMembers();

    bool canResize() const override;
    QVector<CGraphicsCabinetItem *> concernedCabinets() override { return cabinets(); }
    void followGeometry() override;

    bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    bool tilesItsRectangle() const;
    void adopt(QGraphicsItem &child, bool added);

    enum EHoverState { Unknown = 0, Resizable = 1, NotResizable = 2 };
    mutable EHoverState m_hoverState =
        Unknown; // cached result of canResize(); reset when members or selection change
};
