// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class CSceneBackend;
class QKeyEvent;
class QWidget;

/// The keys of the canvas. GUI thread.
class CCanvasKeys final
{
public:
    /// Carries out the edit that the key stands for; messages appear over @p parent. False for a
    /// key without one.
    static bool carryOut(const QKeyEvent &event, CSceneBackend &backend, QWidget *parent);
    /// Whether the key opens the menu that appends cabinets.
    /// Whether the key steps through the history, which needs no tool that edits.
    static bool isHistory(const QKeyEvent &event);
    static bool isAppend(const QKeyEvent &event);
};
