// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/gestures/CSceneGestures.h"
#include "layout/editor/items/IMouseMode.h"

/// The pen tool: strokes wire cabinets into chains.
class CPenMode final : public IMouseMode
{
public:
    explicit CPenMode(CSceneGestures &gestures)
        : m_gestures(gestures)
    {
    }

    bool beginStroke(CGraphicsCabinetItem &first, const QPointF &scenePos) override
    {
        m_gestures.beginStroke(first, scenePos);
        return true;
    }
    void continueStroke(const QPointF &scenePos) override { m_gestures.continueStroke(scenePos); }
    void endStroke(const QPointF &scenePos) override { m_gestures.endStroke(scenePos); }

private:
    CSceneGestures &m_gestures;
};
