// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/IMouseMode.h"

class CSceneOperations;

/// Head-to-tail exchange: a press on a receiver reverses the order in which the signal runs through those of
/// its cabinet, and selects the cabinet. That receiver becomes the selected cell.
class CExchangeMode final : public IMouseMode
{
public:
    explicit CExchangeMode(CSceneOperations &operations)
        : m_operations(operations)
    {
    }

    bool takesQuickClicks() const override { return false; } // the second click would undo the first
    bool pressCabinet(CGraphicsCabinetItem &cabinet, const QGraphicsSceneMouseEvent &event) override;

private:
    CSceneOperations &m_operations;
};
