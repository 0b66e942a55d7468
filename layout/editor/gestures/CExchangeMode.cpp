// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CExchangeMode.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/operations/CSceneOperations.h"

#include <QGraphicsSceneMouseEvent>

bool CExchangeMode::pressCabinet(CGraphicsCabinetItem &cabinet, const QGraphicsSceneMouseEvent &event)
{
    if (m_pick == Anywhere || cabinet.pickCell(event.pos()))
        m_operations.exchangeReceivers(cabinet.uuid());
    return false;
}
