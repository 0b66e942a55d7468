// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/CGraphicsItemBase.h"

class CGraphicsConnectionItem;

/// A cabinet on the canvas.
class CGraphicsCabinetItem final : public CGraphicsItemBase
{
public:
    /// A cabinet's place in its port's chain.
    enum ChainRole { NotInChain = 0, Head = 1, Middle = 2, Tail = 3 };
    static constexpr int NoPosition = -1;
    static constexpr int NoCell = -1;

    /// A cabinet with a new identity and an empty record.
    explicit CGraphicsCabinetItem(QGraphicsItem *parent);
    /// A cabinet that shows @p record, at its place below @p parent. It starts unwired, whatever its rank,
    /// and without highlight.
    CGraphicsCabinetItem(const Cabinet &record, QGraphicsItem *parent);

    int type() const override { return CabinetItemKind; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    /// Takes over @p record, its rectangle included; the wiring lines follow. Identity, port, group, rank and
    /// place in the saved mapping stay.
    void setCabinet(const Cabinet &record);
    void setPort(int port) override;
    /// The group that holds the cabinet, as its record names it.
    void setGroup(const QUuid &group) { record().group = group; }

    bool canResize() const override;
    QVector<CGraphicsCabinetItem *> concernedCabinets() override { return {this}; }
    void followGeometry() override;

    // Chain fields; the port's chain is their only writer.
    int chainPosition() const { return m_chainPosition; }
    void setChainPosition(int position);
    ChainRole chainRole() const { return m_chainRole; }
    void setChainRole(ChainRole role) { m_chainRole = role; }
    bool isInChain() const { return m_chainRole != NotInChain && m_chainPosition != NoPosition; }
    CGraphicsConnectionItem *incoming() const { return m_incoming; }
    void setIncoming(CGraphicsConnectionItem *connection) { m_incoming = connection; }
    CGraphicsConnectionItem *outgoing() const { return m_outgoing; }
    void setOutgoing(CGraphicsConnectionItem *connection) { m_outgoing = connection; }
    /// Marks a receiver area; gone when the cabinet leaves the chain.
    void setRectFlag(int index, bool on);
    bool rectFlag(int index) const { return m_rectFlags.value(index, false); }
    void clearRectFlags() { m_rectFlags.clear(); }

    /// Whether wiring lines meet the cabinet at its first and last receiver.
    bool isRectAnchored() const { return m_rectAnchored; }
    void setRectAnchored(bool anchored);
    /// Where wiring lines end and start, in scene coordinates.
    QPointF entryPoint() const;
    QPointF exitPoint() const;

    bool isHighlighted() const { return m_highlighted; }
    void setHighlighted(bool highlighted);

    /// The receiver area that the last press picked while picking is on; NoCell without one.
    int selectedCell() const { return m_selectedCell; }
    /// Makes the receiver at @p position, in the item's own pixels, the selected cell; gives whether there is
    /// one.
    bool pickCell(const QPointF &position);

    /// Draws both wiring lines anew.
    void routeWires();

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    int cellAt(const QPointF &position) const;
    void updateInnerLines();

    QVector<QLineF> m_innerLines; // between the receiver areas, in item coordinates
    QList<bool> m_rectFlags;
    CGraphicsConnectionItem *m_incoming = nullptr;
    CGraphicsConnectionItem *m_outgoing = nullptr;
    int m_chainPosition = NoPosition;
    ChainRole m_chainRole = NotInChain;
    int m_selectedCell = NoCell;
    bool m_rectAnchored = true;
    bool m_highlighted = false;
};
