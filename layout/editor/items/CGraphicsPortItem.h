// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/data/records/CabinetLayout.h"
#include "layout/editor/items/CPortChain.h"
#include "layout/editor/items/ItemKinds.h"

#include <QGraphicsObject>

class CGraphicsGroupItem;
class IPortStates;

/// An output port on the canvas: parent of its cabinets, groups and wiring lines, and owner of its chain. It
/// lies at the scene's origin and has no area of its own.
class CGraphicsPortItem final : public QGraphicsObject
{
    Q_OBJECT

public:
    using Port = CabinetLayout::CabinetPort;

    /// Shows the port of @p record, whose groups are not built here; colours, locks and redundancy come from
    /// @p states.
    CGraphicsPortItem(const Port &record, const IPortStates &states);

    int type() const override { return PortItemKind; }
    QRectF boundingRect() const override { return m_bounds; }
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {}

    int port() const { return m_state.index; }
    CPortChain &chain() { return m_chain; }
    const CPortChain &chain() const { return m_chain; }

    /// The cabinets inside @p group; with null all of the port, through all groups.
    QVector<CGraphicsCabinetItem *> cabinets(const CGraphicsGroupItem *group) const;

    /// Whether the store marks the port as locked.
    bool isLocked() const;

    /// What the cabinets show of the port; follows the store when told to.
    bool isShownLocked() const { return m_state.locked; }
    bool isShownRedundant() const { return m_state.redundancy == Port::Redundant; }
    void setShownLocked(bool locked);
    void setColor(const QColor &color);
    /// Reads colour, lock and redundancy from the store anew.
    void refreshState();

    /// Takes the children's rectangle as its own; done once an operation.
    void updateBounds();

    /// The port's record without its groups.
    const Port &state() const { return m_state; }

Q_SIGNALS:
    void childItemPosChanged();

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    void adopt(QGraphicsItem &child);
    void colorChildren(const QGraphicsItem &parent);

    const IPortStates &m_states;
    Port m_state;
    QColor m_color;
    QRectF m_bounds;
    CPortChain m_chain;
};
