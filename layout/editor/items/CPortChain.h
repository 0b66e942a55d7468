// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
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

    /// Lets @p to follow @p from in the chain; whatever followed @p from or preceded @p to before is cut off.
    /// Returns the existing or new connection between them; null if either cabinet is null.
    CGraphicsConnectionItem *link(CGraphicsCabinetItem *from, CGraphicsCabinetItem *to);

    /// Removes @p cabinet from the chain. With @p reconnect its neighbours are linked to each other;
    /// otherwise the chain stays cut there, and they keep their roles and positions.
    void unlink(CGraphicsCabinetItem &cabinet, bool reconnect);

    /// Removes the connection between two neighbours; both leave the chain until they are linked again.
    /// Nothing happens when they are not linked directly.
    void unlinkPair(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to);

    /// Appends @p cabinet after the tail, or after the head of a chain of one, or makes it the head of an
    /// empty chain. Does nothing if it is in the chain already.
    void append(CGraphicsCabinetItem &cabinet);

    /// Inserts @p cabinet at @p position, between the cabinets at @p position - 1 and @p position; if there
    /// are none, appends it. Does nothing for a negative position, for null, or if it is in the chain
    /// already.
    void insert(int position, CGraphicsCabinetItem *cabinet);

    CGraphicsCabinetItem *head() const;           ///< null if the chain is empty
    CGraphicsCabinetItem *tail() const;           ///< null if the chain has fewer than two cabinets
    CGraphicsCabinetItem *at(int position) const; ///< null outside the chain

    /// Makes room for so many cabinets.
    void reserve(int cabinets) { m_order.reserve(cabinets); }
    /// The cabinets in chain order; if the chain is cut, ordered by position.
    QVector<CGraphicsCabinetItem *> order() const;

    /// The lines of @p cabinet must be routed again: by finishLines().
    void noteMoved(const CGraphicsCabinetItem &cabinet);
    /// Routes the lines of all cabinets that have moved, and deletes the lines that were removed and not
    /// needed again. Called at the end of a batch.
    void finishLines();

private:
    void removeConnection(CGraphicsConnectionItem *connection);
    CGraphicsConnectionItem *newConnection(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to);
    void leave(CGraphicsCabinetItem &cabinet);
    void renumberFrom(CGraphicsCabinetItem &first);
    void makeHead(CGraphicsCabinetItem &cabinet);
    void joinPair(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to);
    void checkOrder();
    QVector<CGraphicsCabinetItem *> wiredCabinets() const;

    CGraphicsPortItem &m_port;
    // The chain while it is in one piece. A cut chain is searched instead; it exists only briefly.
    QVector<CGraphicsCabinetItem *> m_order;
    bool m_inPieces = false;

    // Lines that were removed in this batch, and their places by the cabinet in which they began: most wiring
    // joins many pairs again, and adding items to a scene costs more than all the rest.
    QVector<CGraphicsConnectionItem *> m_spares;
    QHash<const CGraphicsCabinetItem *, int> m_sparePlaces;
    QVector<CGraphicsConnectionItem *> m_stale;
};
