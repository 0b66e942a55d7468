// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/IMouseMode.h"

#include <functional>

class CScenePlacing;

/// The mode while cabinets wait to be placed: all mouse events go to placing them.
class CAppendMode final : public IMouseMode
{
public:
    /// @p placed is called when no cabinets wait any more.
    CAppendMode(CScenePlacing &placing, std::function<void()> placed)
        : m_placing(placing)
        , m_placed(std::move(placed))
    {
    }

    bool press(QGraphicsSceneMouseEvent &event) override;
    bool move(const QGraphicsSceneMouseEvent &event) override;
    bool release(const QGraphicsSceneMouseEvent &event) override;

private:
    CScenePlacing &m_placing;
    std::function<void()> m_placed;
};
