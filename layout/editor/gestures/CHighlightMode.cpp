// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CHighlightMode.h"

#include "layout/editor/scene/CCabinetGraphicsScene.h"

#include <QGraphicsSceneMouseEvent>

bool CHighlightMode::pressCabinet(CGraphicsCabinetItem &cabinet, const QGraphicsSceneMouseEvent &event)
{
    m_scene.pressHighlight(cabinet, event.modifiers() & Qt::ControlModifier);
    return true;
}
