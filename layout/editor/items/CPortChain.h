// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsConnectionItem;
class QGraphicsItem;

/// Keeps one port's chain: the order in which its cabinets receive the signal. The only writer of chain
/// positions, chain roles and connections. GUI thread.
class CPortChain final
{
public:
    /// Connections become children of @p portItem.
    explicit CPortChain(QGraphicsItem &portItem)
        : m_portItem(portItem)
    {
    }
    CPortChain(const CPortChain &) = delete;
    CPortChain &operator=(const CPortChain &) = delete;

    /// Makes @p to follow @p from. Gives the connection between them: the one that stands, or a new one.
    CGraphicsConnectionItem &link(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to);

    /// Puts @p cabinet at the end of the chain; a cabinet that is in the chain stays where it is. O(1).
    void append(CGraphicsCabinetItem &cabinet);

    CGraphicsCabinetItem *head() const;           ///< null without a chain
    CGraphicsCabinetItem *tail() const;           ///< null for a chain of less than two
    CGraphicsCabinetItem *at(int position) const; ///< null outside the chain
    int length() const { return m_order.size(); }

private:
    void renumberFrom(CGraphicsCabinetItem &first);
    void rebuildOrder(CGraphicsCabinetItem &member);

    QGraphicsItem &m_portItem;
    QVector<CGraphicsCabinetItem *> m_order;
};
