// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/view/CEditRule.h"

#include <optional>

class QKeyEvent;
class QWidget;
struct SEditTargets;

/// The keys of the canvas. GUI thread.
class CCanvasKeys final
{
public:
    /// What the key does; nothing if it is none of the canvas.
    static std::optional<EditKind> kindOf(const QKeyEvent &event);
    /// Carries out the edit assigned to the key; messages appear over @p parent. A key of another kind does
    /// nothing.
    static void carryOut(const QKeyEvent &event, const SEditTargets &targets, QWidget *parent);
};
