// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QKeyEvent;
class QWidget;
struct SEditTargets;

/// The keys of the canvas. GUI thread.
class CCanvasKeys final
{
public:
    /// Carries out the edit assigned to the key; messages appear over @p parent. Returns false if the key has
    /// none.
    static bool carryOut(const QKeyEvent &event, const SEditTargets &targets, QWidget *parent);
    /// Whether the key is undo or redo, which work with every tool.
    static bool isHistory(const QKeyEvent &event);
    /// Whether the key opens the menu that appends cabinets.
    static bool isAppend(const QKeyEvent &event);
};
