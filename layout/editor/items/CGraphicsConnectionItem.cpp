// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsConnectionItem.h"

#include "layout/drawing/CWirePainter.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>

CGraphicsConnectionItem::CGraphicsConnectionItem(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to,
                                                 QGraphicsItem *portItem)
    : m_from(&from)
    , m_to(&to)
{
    setPen(CWirePainter::pen());
    setZValue(ConnectionHeight); // outside a scene it costs nothing
    setAcceptedMouseButtons(Qt::NoButton);
    route();
    setParentItem(portItem);
}

void CGraphicsConnectionItem::join(CGraphicsCabinetItem &from, CGraphicsCabinetItem &to)
{
    m_from = &from;
    m_to = &to;
    route();
}

void CGraphicsConnectionItem::route()
{
    m_stale = false;
    if (!m_from)
        return;
    const QLineF routed(m_from->exitPoint(), m_to->entryPoint()); // the port item is at the scene's origin
    if (routed == line())
        return;
    setLine(routed); // prepares the change of its bounds, too
    const QRectF bounds = CWirePainter::bounds(routed);
    m_left = float(bounds.left());
    m_top = float(bounds.top());
    m_width = float(bounds.width());
    m_height = float(bounds.height());
}

QPainterPath CGraphicsConnectionItem::shape() const
{
    return {}; // clicks never hit a line
}

bool CGraphicsConnectionItem::contains(const QPointF &) const
{
    return false;
}

void CGraphicsConnectionItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *)
{
    if (m_from)
        CWirePainter::paint(*painter, line(), option->levelOfDetailFromTransform(painter->worldTransform()));
}
