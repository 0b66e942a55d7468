// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CAppendMode.h"

#include "layout/editor/placing/CScenePlacing.h"

#include <QGraphicsSceneMouseEvent>

bool CAppendMode::press(QGraphicsSceneMouseEvent &event)
{
    if (event.button() == Qt::LeftButton)
        m_placing.press(event);
    event.accept();
    return true;
}

bool CAppendMode::move(const QGraphicsSceneMouseEvent &event)
{
    m_placing.move(event);
    return true;
}

bool CAppendMode::release(const QGraphicsSceneMouseEvent &event)
{
    if (event.button() == Qt::LeftButton && m_placing.release(event))
        m_placed();
    return true;
}
