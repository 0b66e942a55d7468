// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/drawing/CLayoutPainter.h"
#include "layout/editor/items/CGraphicsItemBase.h"

#include <memory>
#include <optional>

class CGraphicsConnectionItem;

/// A cabinet on the canvas.
class CGraphicsCabinetItem final : public CGraphicsItemBase
{
public:
    /// The role of a cabinet in its port's chain.
    enum ChainRole { NotInChain = 0, Head = 1, Middle = 2, Tail = 3 };
    static constexpr int NoPosition = -1;
    static constexpr int NoCell = -1;

    /// A cabinet with a new identity and an empty record.
    explicit CGraphicsCabinetItem(QGraphicsItem *parent);
    /// A cabinet that shows @p record at its position, as a child of @p parent. It starts unwired, whatever
    /// its rank, and not highlighted.
    CGraphicsCabinetItem(Cabinet record, QGraphicsItem *parent);

    int type() const override { return CabinetItemKind; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    /// Takes over @p record, including its rectangle; the wiring lines follow. Identity, port, group, rank
    /// and highlight stay unchanged.
    void setCabinet(const Cabinet &record);
    /// Takes over receiver areas and blanks of @p record only.
    void setAreas(const Cabinet &record);
    void setPort(int port) override;
    /// Sets the group that the record names as the cabinet's parent.
    void setGroup(const QUuid &group) { record().group = group; }

    bool canResize() const override;
    QVector<CGraphicsCabinetItem *> concernedCabinets() override { return {this}; }
    void followGeometry() override;

    // Chain state, written only by the port's CPortChain.
    int chainPosition() const { return m_chainPosition; }
    void setChainPosition(int position);
    ChainRole chainRole() const { return m_chainRole; }
    void setChainRole(ChainRole role) { m_chainRole = role; }
    bool isInChain() const { return m_chainRole != NotInChain && m_chainPosition != NoPosition; }
    CGraphicsConnectionItem *incoming() const { return m_incoming; }
    void setIncoming(CGraphicsConnectionItem *connection) { m_incoming = connection; }
    CGraphicsConnectionItem *outgoing() const { return m_outgoing; }
    void setOutgoing(CGraphicsConnectionItem *connection) { m_outgoing = connection; }
    /// Marks a receiver area; the mark is removed when the cabinet leaves the chain.
    void setRectFlag(int index, bool on);
    bool rectFlag(int index) const { return m_details && m_details->rectFlags.value(index, false); }
    void clearRectFlags();

    /// Whether wiring lines start and end at the cabinet's last and first receiver.
    bool isRectAnchored() const { return m_rectAnchored; }
    void setRectAnchored(bool anchored);
    /// Where the incoming line ends and the outgoing line starts, in scene coordinates.
    QPointF entryPoint() const;
    QPointF exitPoint() const;

    bool isHighlighted() const { return m_highlighted; }
    void setHighlighted(bool highlighted);

    /// What is wrong with the cabinet, the worst first; never anything in a redundancy port.
    CabinetFault fault() const;
    /// Sets which parts of the cabinet others cover, and which lie outside the canvas; item coordinates.
    void setFaults(const QVector<QRectF> &overlaps, const QVector<QRectF> &outside);

    /// The receiver area picked by the last press while picking was on; NoCell if there is none.
    int selectedCell() const { return m_selectedCell; }
    /// Makes the receiver at @p position (item coordinates) the selected cell. Returns whether there is one.
    bool pickCell(const QPointF &position);

    /// Recalculates both wiring lines.
    void routeWires();

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    int cellAt(const QPointF &position) const;
    const QVector<QLineF> &innerLines() const;
    void forgetInnerLines();

    /// What few cabinets have, of tens of thousands.
    struct SDetails
    {
        std::optional<QVector<QLineF>> innerLines; ///< borders of receivers; not known until they are seen
        QList<bool> rectFlags;
        QVector<QRectF> overlaps;
        QVector<QRectF> outside;
    };
    SDetails &details() const;
    bool hasFaults() const;

    mutable std::unique_ptr<SDetails> m_details; // null until there are any
    CGraphicsConnectionItem *m_incoming = nullptr;
    CGraphicsConnectionItem *m_outgoing = nullptr;
    int m_chainPosition = NoPosition;
    ChainRole m_chainRole = NotInChain;
    int m_selectedCell = NoCell;
    bool m_rectAnchored = true;
    bool m_highlighted = false;
};
