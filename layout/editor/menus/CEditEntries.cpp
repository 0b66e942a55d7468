// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/menus/CEditEntries.h"

#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/items/CRefusal.h"
#include "layout/editor/menus/CClearTopology.h"
#include "layout/editor/operations/CGuardedUndo.h"

#include <QMenu>

QAction *CEditEntries::add(QMenu &menu, const QString &text, const QString &icon,
                           const std::function<void()> &triggered)
{
    QAction *action = menu.addAction(text);
    if (!icon.isEmpty())
        action->setIcon(QIcon(icon));
    QObject::connect(action, &QAction::triggered, action, triggered);
    return action;
}

void CEditEntries::addHistory(QMenu &menu, CGuardedUndo &history, QWidget *parent)
{
    QAction *undo = add(menu, tr("Undo"), QStringLiteral(":/Image/Layout/Menu/undo.svg"),
                        [&history, parent] { history.undo(parent); });
    undo->setShortcuts(QKeySequence::Undo);
    undo->setEnabled(history.canUndo());
    QAction *redo = add(menu, tr("Redo"), QStringLiteral(":/Image/Layout/Menu/redo.svg"),
                        [&history, parent] { history.redo(parent); });
    redo->setShortcut(Qt::CTRL | Qt::Key_Y); // as the tool bar says
    redo->setEnabled(history.canRedo());
}

void CEditEntries::addSelectAll(QMenu &menu, CSelectionPicks &picks)
{
    add(menu, tr("Select all"), QString(), [&picks] { picks.all(); })->setShortcuts(QKeySequence::SelectAll);
}

void CEditEntries::addClearTopology(QMenu &menu, CSceneContent &content, CSceneOperations &operations,
                                    int port, QWidget *parent)
{
    QAction *clear = add(
        menu, tr("Clear topology"), QStringLiteral(":/Image/Layout/Menu/clear_topology.svg"),
        [&content, &operations, port, parent] { CClearTopology::ask(parent, content, operations, port); });
    disableIfClosed(*clear, content.portItem(port));
}

void CEditEntries::disableIfClosed(QAction &entry, const CGraphicsPortItem *port)
{
    disableUnless(entry, CRefusal::reason(port));
}

void CEditEntries::disableUnless(QAction &entry, const QString &reason)
{
    if (reason.isEmpty())
        return;
    entry.setEnabled(false);
    entry.setToolTip(reason);
}
