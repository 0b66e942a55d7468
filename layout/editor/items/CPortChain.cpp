// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CPortChain.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsConnectionItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"

#include <QGraphicsScene>

#include <algorithm>
#include <utility>

namespace {

CGraphicsCabinetItem *before(const CGraphicsCabinetItem &cabinet)
{
    return cabinet.incoming() ? cabinet.incoming()->from() : nullptr;
}

CGraphicsCabinetItem *after(const CGraphicsCabinetItem &cabinet)
{
    return cabinet.outgoing() ? cabinet.outgoing()->to() : nullptr;
}

template <typename Predicate>
CGraphicsCabinetItem *firstWith(const QVector<CGraphicsCabinetItem *> &cabinets, Predicate predicate)
{
    const auto found = std::find_if(cabinets.begin(), cabinets.end(), predicate);
    return found == cabinets.end() ? nullptr : *found;
}

} // namespace

CGraphicsConnectionItem *CPortChain::link(CGraphicsCabinetItem *from, CGraphicsCabinetItem *to)
{
    if (!from || !to || from == to)
        return nullptr;
    if (after(*from) == to)
        return from->outgoing();
    const bool extends =
        !m_inPieces && !m_order.isEmpty() && m_order.last() == from && !to->isInChain() && !to->outgoing();
    const bool begins = !m_inPieces && m_order.isEmpty() && !from->incoming() && !to->outgoing();

    joinPair(*from, *to);
    if (extends)
        m_order << to;
    else if (begins)
        m_order << from << to;
    else
        checkOrder();
    return from->outgoing();
}

void CPortChain::joinPair(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to)
{
    removeConnection(from.outgoing());
    removeConnection(to.incoming());
    CGraphicsConnectionItem *connection = newConnection(from, to);
    from.setOutgoing(connection);
    to.setIncoming(connection);

    const CGraphicsCabinetItem *previous = before(from);
    from.setChainRole(previous ? CGraphicsCabinetItem::Middle : CGraphicsCabinetItem::Head);
    from.setChainPosition(previous ? previous->chainPosition() + 1 : 0);
    renumberFrom(to);
    m_port.noteWiringChanged();
}

void CPortChain::unlink(CGraphicsCabinetItem &cabinet, bool reconnect)
{
    if (!cabinet.isInChain() && !cabinet.incoming() && !cabinet.outgoing()) {
        cabinet.clearRectFlags();
        return;
    }
    CGraphicsCabinetItem *previous = before(cabinet);
    CGraphicsCabinetItem *next = after(cabinet);
    const bool isEnd = !m_inPieces && !m_order.isEmpty() && m_order.last() == &cabinet;
    removeConnection(cabinet.incoming());
    removeConnection(cabinet.outgoing());
    leave(cabinet);

    if (reconnect && previous && next) {
        joinPair(*previous, *next);
    } else if (reconnect && previous && previous->chainRole() == CGraphicsCabinetItem::Middle) {
        previous->setChainRole(CGraphicsCabinetItem::Tail);
    } else if (reconnect && next) {
        makeHead(*next);
    }
    if (isEnd && (reconnect || m_order.size() == 1))
        m_order.removeLast();
    else
        checkOrder();
}

void CPortChain::unlinkPair(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to)
{
    if (after(from) != &to)
        return;
    removeConnection(from.outgoing());
    leave(from);
    leave(to);
    checkOrder();
}

void CPortChain::append(CGraphicsCabinetItem &cabinet)
{
    if (cabinet.isInChain())
        return;
    CGraphicsCabinetItem *end = tail();
    if (!end)
        end = head();
    if (end) {
        link(end, &cabinet);
        return;
    }
    makeHead(cabinet);
    if (m_inPieces || cabinet.outgoing()) // what is left of an unlinked pair
        checkOrder();
    else
        m_order << &cabinet;
}

void CPortChain::insert(int position, CGraphicsCabinetItem *cabinet)
{
    if (position < 0 || !cabinet || cabinet->isInChain())
        return;
    CGraphicsCabinetItem *previous = at(position - 1);
    CGraphicsCabinetItem *next = at(position);
    if (!previous && !next) {
        append(*cabinet);
        return;
    }
    if (previous && next)
        unlinkPair(*previous, *next);
    link(previous, cabinet);
    link(cabinet, next);
}

CGraphicsCabinetItem *CPortChain::head() const
{
    if (!m_inPieces)
        return m_order.isEmpty() ? nullptr : m_order.first();
    return firstWith(m_port.cabinets(nullptr), [](const CGraphicsCabinetItem *c) {
        return c->chainRole() == CGraphicsCabinetItem::Head;
    });
}

CGraphicsCabinetItem *CPortChain::tail() const
{
    if (!m_inPieces)
        return m_order.size() < 2 ? nullptr : m_order.last();
    return firstWith(m_port.cabinets(nullptr), [](const CGraphicsCabinetItem *c) {
        return c->chainRole() == CGraphicsCabinetItem::Tail;
    });
}

CGraphicsCabinetItem *CPortChain::at(int position) const
{
    if (!m_inPieces)
        return m_order.value(position, nullptr);
    const CGraphicsCabinetItem *end = tail();
    if (position < 0 || (end && position > end->chainPosition()))
        return nullptr;
    return firstWith(m_port.cabinets(nullptr),
                     [position](const CGraphicsCabinetItem *c) { return c->chainPosition() == position; });
}

QVector<CGraphicsCabinetItem *> CPortChain::order() const
{
    if (!m_inPieces)
        return m_order;
    QVector<CGraphicsCabinetItem *> wired = wiredCabinets();
    std::stable_sort(wired.begin(), wired.end(),
                     [](const CGraphicsCabinetItem *a, const CGraphicsCabinetItem *b) {
                         return a->chainPosition() < b->chainPosition();
                     });
    return wired;
}

void CPortChain::removeConnection(CGraphicsConnectionItem *connection)
{
    if (!connection)
        return;
    connection->from()->setOutgoing(nullptr);
    connection->to()->setIncoming(nullptr);
    m_sparePlaces.insert(connection->from(), m_spares.size());
    m_spares << connection;
    connection->part();
}

CGraphicsConnectionItem *CPortChain::newConnection(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to)
{
    const auto place = m_sparePlaces.find(&from);
    if (place == m_sparePlaces.end())
        return new CGraphicsConnectionItem(from, to, &m_port);
    CGraphicsConnectionItem *connection = std::exchange(m_spares[*place], nullptr);
    m_sparePlaces.erase(place);
    connection->join(from, to);
    return connection;
}

void CPortChain::noteMoved(const CGraphicsCabinetItem &cabinet)
{
    for (CGraphicsConnectionItem *connection : {cabinet.incoming(), cabinet.outgoing()}) {
        if (!connection || connection->isStale())
            continue;
        connection->setStale();
        m_stale << connection;
    }
}

void CPortChain::finishLines()
{
    for (CGraphicsConnectionItem *connection : qAsConst(m_stale))
        connection->route();
    m_stale.clear();
    // In the order of removal, mostly from the end, which is the cheapest. Without removeItem() the port's
    // childrenBoundingRect() would not change.
    for (CGraphicsConnectionItem *connection : qAsConst(m_spares)) {
        if (connection && connection->scene())
            connection->scene()->removeItem(connection);
        delete connection;
    }
    m_spares.clear();
    m_sparePlaces.clear();
}

void CPortChain::leave(CGraphicsCabinetItem &cabinet)
{
    cabinet.setChainRole(CGraphicsCabinetItem::NotInChain);
    cabinet.setChainPosition(CGraphicsCabinetItem::NoPosition);
    cabinet.clearRectFlags();
    m_port.noteWiringChanged();
}

void CPortChain::makeHead(CGraphicsCabinetItem &cabinet)
{
    cabinet.setChainRole(CGraphicsCabinetItem::Head);
    cabinet.setChainPosition(0);
    if (CGraphicsCabinetItem *next = after(cabinet))
        renumberFrom(*next);
    m_port.noteWiringChanged();
}

void CPortChain::renumberFrom(CGraphicsCabinetItem &first)
{
    // Stops in a ring, which can exist for a moment between two links.
    for (CGraphicsCabinetItem *cabinet = &first; cabinet; cabinet = after(*cabinet)) {
        cabinet->setChainPosition(before(*cabinet)->chainPosition() + 1);
        cabinet->setChainRole(after(*cabinet) ? CGraphicsCabinetItem::Middle : CGraphicsCabinetItem::Tail);
        if (after(*cabinet) == &first)
            return;
    }
}

QVector<CGraphicsCabinetItem *> CPortChain::wiredCabinets() const
{
    QVector<CGraphicsCabinetItem *> wired = m_port.cabinets(nullptr);
    wired.erase(std::remove_if(wired.begin(), wired.end(),
                               [](const CGraphicsCabinetItem *c) { return !c->isInChain(); }),
                wired.end());
    return wired;
}

void CPortChain::checkOrder()
{
    // One piece: a single head, from which all wired cabinets are reached at consecutive positions, up to the
    // tail.
    const QVector<CGraphicsCabinetItem *> wired = wiredCabinets();
    m_order.clear();
    CGraphicsCabinetItem *cabinet = firstWith(
        wired, [](const CGraphicsCabinetItem *c) { return c->chainRole() == CGraphicsCabinetItem::Head; });
    while (cabinet && cabinet->chainPosition() == m_order.size() && m_order.size() < wired.size()) {
        m_order << cabinet;
        cabinet = after(*cabinet);
    }
    m_inPieces = cabinet || m_order.size() != wired.size() ||
                 (m_order.size() > 1 && m_order.last()->chainRole() != CGraphicsCabinetItem::Tail);
    if (m_inPieces)
        m_order.clear();
}
