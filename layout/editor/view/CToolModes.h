// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class CCabinetGraphicsScene;
class CEditorToolBar;
class QGraphicsView;

/// The modes among the tools, of which always one is in use. GUI thread.
class CToolModes final
{
public:
    /// Brings scene, drag mode and cursor in step with the mode that is checked; without one it is the arrow.
    /// A @p blocked editor can be looked at only.
    static void apply(QGraphicsView &view, CCabinetGraphicsScene &scene, CEditorToolBar &toolBar,
                      bool blocked);
};
