// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/IMouseMode.h"

class CSceneOperations;

/// Head-to-tail exchange: a press on a cabinet reverses the order in which the signal runs through its
/// receivers, and selects it.
class CExchangeMode final : public IMouseMode
{
public:
    enum EPick {
        Receiver, ///< only a press on a receiver counts; that receiver becomes the selected cell
        Anywhere
    };

    CExchangeMode(CSceneOperations &operations, EPick pick)
        : m_operations(operations)
        , m_pick(pick)
    {
    }

    bool takesQuickClicks() const override { return false; } // the second click would undo the first
    bool pressCabinet(CGraphicsCabinetItem &cabinet, const QGraphicsSceneMouseEvent &event) override;

private:
    CSceneOperations &m_operations;
    EPick m_pick;
};
