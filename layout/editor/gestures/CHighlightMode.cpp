// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CHighlightMode.h"

#include "layout/editor/content/CHighlights.h"

#include <QGraphicsSceneMouseEvent>

bool CHighlightMode::pressCabinet(CGraphicsCabinetItem &cabinet, const QGraphicsSceneMouseEvent &event)
{
    m_highlights.press(cabinet, event.modifiers() & Qt::ControlModifier);
    return true;
}
