// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class CCabinetGraphicsScene;
class CEditorToolBar;
class QGraphicsView;

/// Applies the tool bar's mode; exactly one is in use at any time. GUI thread.
class CToolModes final
{
public:
    /// Updates scene, drag mode and cursor to the checked mode. If none is checked, checks the arrow, or the
    /// hand if @p blocked.
    static void apply(QGraphicsView &view, CCabinetGraphicsScene &scene, CEditorToolBar &toolBar,
                      bool blocked);
};
