// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CPortChain.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsConnectionItem.h"

namespace {

CGraphicsCabinetItem *before(const CGraphicsCabinetItem &cabinet)
{
    return cabinet.incoming() ? cabinet.incoming()->from() : nullptr;
}

CGraphicsCabinetItem *after(const CGraphicsCabinetItem &cabinet)
{
    return cabinet.outgoing() ? cabinet.outgoing()->to() : nullptr;
}

} // namespace

CGraphicsConnectionItem &CPortChain::link(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to)
{
    if (after(from) == &to)
        return *from.outgoing();
    const bool extendsEnd = !m_order.isEmpty() && m_order.last() == &from && !to.incoming() && !to.outgoing();

    auto *connection = new CGraphicsConnectionItem(from, to, &m_portItem);
    from.setOutgoing(connection);
    to.setIncoming(connection);
    const CGraphicsCabinetItem *previous = before(from);
    from.setChainRole(previous ? CGraphicsCabinetItem::Middle : CGraphicsCabinetItem::Head);
    from.setChainPosition(previous ? previous->chainPosition() + 1 : 0);
    renumberFrom(to);

    if (extendsEnd)
        m_order << &to;
    else
        rebuildOrder(from);
    return *connection;
}

void CPortChain::append(CGraphicsCabinetItem &cabinet)
{
    if (cabinet.isInChain())
        return;
    if (!m_order.isEmpty()) {
        link(*m_order.last(), cabinet);
        return;
    }
    cabinet.setChainRole(CGraphicsCabinetItem::Head);
    cabinet.setChainPosition(0);
    m_order << &cabinet;
}

CGraphicsCabinetItem *CPortChain::head() const
{
    return m_order.isEmpty() ? nullptr : m_order.first();
}

CGraphicsCabinetItem *CPortChain::tail() const
{
    return m_order.size() < 2 ? nullptr : m_order.last();
}

CGraphicsCabinetItem *CPortChain::at(int position) const
{
    return m_order.value(position, nullptr);
}

void CPortChain::renumberFrom(CGraphicsCabinetItem &first)
{
    for (CGraphicsCabinetItem *cabinet = &first; cabinet; cabinet = after(*cabinet)) {
        cabinet->setChainPosition(before(*cabinet)->chainPosition() + 1);
        cabinet->setChainRole(after(*cabinet) ? CGraphicsCabinetItem::Middle : CGraphicsCabinetItem::Tail);
    }
}

void CPortChain::rebuildOrder(CGraphicsCabinetItem &member)
{
    CGraphicsCabinetItem *cabinet = &member;
    while (CGraphicsCabinetItem *previous = before(*cabinet))
        cabinet = previous;
    m_order.clear();
    for (; cabinet; cabinet = after(*cabinet))
        m_order << cabinet;
}
