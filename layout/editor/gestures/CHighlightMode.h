// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/IMouseMode.h"

class CHighlights;

/// A press on a cabinet highlights it on the canvas and on the wall, and does nothing else.
class CHighlightMode final : public IMouseMode
{
public:
    explicit CHighlightMode(CHighlights &highlights)
        : m_highlights(highlights)
    {
    }

    bool pressCabinet(CGraphicsCabinetItem &cabinet, const QGraphicsSceneMouseEvent &event) override;
    bool selects() const override { return false; }
    bool opensMenus() const override { return true; }

private:
    CHighlights &m_highlights;
};
