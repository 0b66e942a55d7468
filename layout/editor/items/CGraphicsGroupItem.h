// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/CGraphicsItemBase.h"

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
    /// The cabinets and groups directly in the group.
    QVector<CGraphicsItemBase *> members() const;

    /// Takes @p members in; they keep their places in the scene. They must lie in the group's parent.
    void gather(const QVector<CGraphicsItemBase *> &members);
    /// Hands the members to @p newParent, where they keep their places in the scene, and selects them. The
    /// group, empty then, is deleted by the caller.
    void dissolve(QGraphicsItem &newParent);

    /// Makes the group cover exactly its members, which keep their places; then does the same for the groups
    /// around it.
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
        Unknown; // what canResize() found; unknown again when members or selection change
};
