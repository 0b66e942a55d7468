// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsConnectionItem;
class CGraphicsPortItem;

/// Keeps one port's chain: the order in which its cabinets receive the signal. The only writer of chain
/// positions, chain roles and connections. Operations at the end of the chain are O(1), others O(length). GUI
/// thread.
class CPortChain final
{
public:
    /// Connections become children of @p port.
    explicit CPortChain(CGraphicsPortItem &port)
        : m_port(port)
    {
    }
    CPortChain(const CPortChain &) = delete;
    CPortChain &operator=(const CPortChain &) = delete;

    /// Makes @p to follow @p from, in place of what followed the one and preceded the other. Gives the
    /// connection between them: the one that stands, or a new one; null when either cabinet is null.
    CGraphicsConnectionItem *link(CGraphicsCabinetItem *from, CGraphicsCabinetItem *to);

    /// Takes @p cabinet out. With @p reconnect its neighbours close the gap; without, the chain stays cut
    /// there and they keep their roles and positions.
    void unlink(CGraphicsCabinetItem &cabinet, bool reconnect);

    /// Removes the connection between two neighbours; both leave the chain until they are linked again.
    /// Nothing happens when they are not linked directly.
    void unlinkPair(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to);

    /// Puts @p cabinet behind the tail, failing that behind the head, failing both makes it the head. A
    /// cabinet that is in the chain stays where it is.
    void append(CGraphicsCabinetItem &cabinet);

    /// Puts @p cabinet at @p position, between the cabinets at the position before and at it; with neither it
    /// is appended. Nothing happens for a negative position, for null, or when it is in the chain.
    void insert(int position, CGraphicsCabinetItem *cabinet);

    CGraphicsCabinetItem *head() const;           ///< null without a chain
    CGraphicsCabinetItem *tail() const;           ///< null without a chain, and for a chain of one
    CGraphicsCabinetItem *at(int position) const; ///< null outside the chain

    /// The cabinets in chain order; of a chain that was cut, in order of their positions.
    QVector<CGraphicsCabinetItem *> order() const;

private:
    void removeConnection(CGraphicsConnectionItem *connection);
    void leave(CGraphicsCabinetItem &cabinet);
    void renumberFrom(CGraphicsCabinetItem &first);
    void makeHead(CGraphicsCabinetItem &cabinet);
    void joinPair(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to);
    void checkOrder();
    QVector<CGraphicsCabinetItem *> wiredCabinets() const;

    CGraphicsPortItem &m_port;
    // The chain while it is one piece. A chain in pieces is searched instead, as it lasts for moments only.
    QVector<CGraphicsCabinetItem *> m_order;
    bool m_inPieces = false;
};
