// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QKeySequence>

#include <functional>

class CGraphicsPortItem;
class CGuardedUndo;
class CSceneContent;
class CSceneOperations;
class CSelectionPicks;
class QAction;
class QMenu;
class QWidget;

/// Entries shared by the menus of the editor.
class CEditEntries final
{
    Q_DECLARE_TR_FUNCTIONS(CEditEntries)

public:
    /// Adds an entry to @p menu that calls @p triggered; @p icon may be empty.
    static QAction *add(QMenu &menu, const QString &text, const QString &icon,
                        const std::function<void()> &triggered);
    /// Disables @p entry unless @p reason is empty; its tool tip then is that reason.
    static void disableUnless(QAction &entry, const QString &reason);
    /// Disables @p entry if @p port refuses edits; its tool tip then says why.
    static void disableIfClosed(QAction &entry, const CGraphicsPortItem *port);
    /// Adds "Undo" and "Redo", enabled if there is a step; messages appear over @p parent.
    static void addHistory(QMenu &menu, CGuardedUndo &history, QWidget *parent);
    static void addSelectAll(QMenu &menu, CSelectionPicks &picks);
    /// Adds "Clear topology" for a port, which asks first.
    static void addClearTopology(QMenu &menu, CSceneContent &content, CSceneOperations &operations, int port,
                                 QWidget *parent);
};
