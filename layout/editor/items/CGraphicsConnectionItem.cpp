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
    setAcceptedMouseButtons(Qt::NoButton);
    route();
    setParentItem(portItem);
}

void CGraphicsConnectionItem::route()
{
    const QLineF routed(m_from->exitPoint(), m_to->entryPoint()); // the port item is at the scene's origin
    if (routed == line())
        return;
    prepareGeometryChange();
    setLine(routed);
    m_bounds = CWirePainter::bounds(routed);
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
    CWirePainter::paint(*painter, line(), option->levelOfDetailFromTransform(painter->worldTransform()));
}
