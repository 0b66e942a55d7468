// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CSelectMode.h"

#include "layout/editor/gestures/CItemLookup.h"
#include "layout/editor/gestures/CSceneGestures.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>

bool CSelectMode::press(QGraphicsSceneMouseEvent &event)
{
    if (event.button() != Qt::LeftButton || CItemLookup::isOnItem(m_scene, event.scenePos()))
        return false;
    m_gestures.beginBand(event.scenePos(), event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier));
    event.accept();
    return true;
}

bool CSelectMode::move(const QGraphicsSceneMouseEvent &event)
{
    if (!m_gestures.hasBand())
        return false;
    m_gestures.continueBand(event.scenePos());
    return true;
}

bool CSelectMode::release(const QGraphicsSceneMouseEvent &)
{
    if (!m_gestures.hasBand())
        return false;
    m_gestures.endBand();
    return true;
}
