// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/menus/CEditEntries.h"

#include "layout/api/access/IPortStates.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"

#include <QMenu>

QAction *CEditEntries::add(QMenu &menu, CCabinetGraphicsScene &scene, const QString &text,
                           const QString &icon, const std::function<void()> &triggered)
{
    QAction *action = menu.addAction(text);
    if (!icon.isEmpty())
        action->setIcon(QIcon(icon));
    QObject::connect(action, &QAction::triggered, &scene, triggered);
    return action;
}

void CEditEntries::addHistory(QMenu &menu, CCabinetGraphicsScene &scene, QWidget *parent)
{
    const QUndoStack *stack = scene.undoStack();
    QAction *undo = add(menu, scene, tr("Undo"), QStringLiteral(":/Image/Layout/Menu/undo.svg"),
                        [&scene, parent] { scene.undo(parent); });
    undo->setShortcuts(QKeySequence::Undo);
    undo->setEnabled(stack && stack->canUndo());
    QAction *redo = add(menu, scene, tr("Redo"), QStringLiteral(":/Image/Layout/Menu/redo.svg"),
                        [&scene, parent] { scene.redo(parent); });
    redo->setShortcuts(QKeySequence::Redo);
    redo->setEnabled(stack && stack->canRedo());
}

void CEditEntries::addSelectAll(QMenu &menu, CCabinetGraphicsScene &scene)
{
    add(menu, scene, tr("Select all"), QString(), [&scene] {
        scene.selectAllItem();
    })->setShortcuts(QKeySequence::SelectAll);
}

void CEditEntries::addClearTopology(QMenu &menu, CCabinetGraphicsScene &scene, int port, QWidget *parent)
{
    QAction *clear =
        add(menu, scene, tr("Clear topology"), QStringLiteral(":/Image/Layout/Menu/clear_topology.svg"),
            [&scene, port, parent] { scene.askToClearTopology(parent, port); });
    if (!scene.portStates().isPortLocked(port))
        return;
    clear->setEnabled(false);
    clear->setToolTip(tr("Port %1 is locked.").arg(port + 1));
}
