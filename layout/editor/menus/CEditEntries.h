// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QKeySequence>

#include <functional>

class CCabinetGraphicsScene;
class QAction;
class QMenu;
class QWidget;

/// Entries that the menus of the editor share.
class CEditEntries final
{
    Q_DECLARE_TR_FUNCTIONS(CEditEntries)

public:
    /// An entry of @p menu that runs @p triggered for as long as @p scene lives; @p icon may be empty.
    static QAction *add(QMenu &menu, CCabinetGraphicsScene &scene, const QString &text, const QString &icon,
                        const std::function<void()> &triggered);
    /// "Undo" and "Redo", enabled where they can run; questions and messages appear over @p parent.
    static void addHistory(QMenu &menu, CCabinetGraphicsScene &scene, QWidget *parent);
    static void addSelectAll(QMenu &menu, CCabinetGraphicsScene &scene);
    /// "Clear topology" of a port, which asks first.
    static void addClearTopology(QMenu &menu, CCabinetGraphicsScene &scene, int port, QWidget *parent);
};
