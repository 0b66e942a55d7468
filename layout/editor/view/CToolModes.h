// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>

class CCabinetGraphicsScene;
class CEditorToolBar;
class QGraphicsView;
class QString;

/// Applies the tool bar's mode; exactly one is in use at any time. GUI thread.
class CToolModes final
{
    Q_DECLARE_TR_FUNCTIONS(CToolModes)

public:
    /// Updates scene, drag mode and cursor to the checked mode. If none is checked, checks the arrow, or the
    /// hand if @p blocked.
    static void apply(QGraphicsView &view, CCabinetGraphicsScene &scene, CEditorToolBar &toolBar,
                      bool blocked);
    /// What the mouse does in that mode, or while cabinets wait to be placed.
    static QString hint(const CEditorToolBar &toolBar, bool appending);
};
