// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/ItemKinds.h"

#include <QGraphicsLineItem>

class CGraphicsCabinetItem;

/// The wiring line from a cabinet to the next of its chain; a child of the port item.
class CGraphicsConnectionItem final : public QGraphicsLineItem
{
public:
    /// Does not change the two cabinets: the port's chain stores the connection in them.
    CGraphicsConnectionItem(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to, QGraphicsItem *portItem);

    int type() const override { return ConnectionItemKind; }
    QRectF boundingRect() const override { return {m_left, m_top, m_width, m_height}; }
    QPainterPath shape() const override;
    bool contains(const QPointF &point) const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    CGraphicsCabinetItem *from() const { return m_from; } ///< null while the chain keeps a line without use
    CGraphicsCabinetItem *to() const { return m_to; }

    /// Makes it the line between these cabinets.
    void join(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to);
    /// Makes it a line without use, which is not drawn.
    void part() { m_from = m_to = nullptr; }

    /// Recalculates the line from the exit point of one cabinet to the entry point of the other.
    void route();
    /// Whether one of the cabinets has moved since route() was called.
    bool isStale() const { return m_stale; }
    void setStale() { m_stale = true; }

private:
    CGraphicsCabinetItem *m_from;
    CGraphicsCabinetItem *m_to;
    float m_left = 0; // of the bounds; tens of thousands of lines are kept
    float m_top = 0;
    float m_width = 0;
    float m_height = 0;
    bool m_stale = false;
};
