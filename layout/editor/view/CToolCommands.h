// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class CCabinetGraphicsScene;
class IEditorCommands;
class QWidget;

/// Carries out the tools that act at once; the others are modes. GUI thread.
class CToolCommands final
{
public:
    /// @p tool is a CEditorToolBar::ETool; for a mode nothing happens. Questions appear over @p view. @p
    /// commands may be null.
    static void carryOut(int tool, QWidget &view, CCabinetGraphicsScene &scene, IEditorCommands *commands);
};
