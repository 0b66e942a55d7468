// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CCanvasMenu.h"

#include "layout/editor/CCabinetGraphicsScene.h"
#include "layout/editor/items/CGraphicsPortItem.h"

#include <QMenu>

void CCanvasMenu::fill(QMenu &menu, CCabinetGraphicsScene &scene, int currentPort, CanvasBlock block,
                       QWidget *parent)
{
    menu.setToolTipsVisible(true);
    addHistory(menu, scene, parent);
    menu.addSeparator();
    QObject::connect(menu.addAction(tr("Select all")), &QAction::triggered, &scene,
                     &CCabinetGraphicsScene::selectAllItem);
    const CGraphicsPortItem *port = scene.portItem(currentPort);
    if (port && port->chain().head()) {
        QAction *clear = menu.addAction(QIcon(QStringLiteral(":/Image/Layout/Menu/clear_topology.svg")),
                                        tr("Clear topology"));
        QObject::connect(clear, &QAction::triggered, &scene,
                         [&scene, currentPort, parent] { scene.askToClearTopology(parent, currentPort); });
    }
    addDialogEntry(menu, tr("Max frame rate and color depth settings..."));
    addDialogEntry(menu, tr("Canvas size settings...") + reason(block));
    addDialogEntry(menu, tr("Canvas fill settings..."));
}

void CCanvasMenu::addHistory(QMenu &menu, CCabinetGraphicsScene &scene, QWidget *parent)
{
    const QUndoStack *stack = scene.undoStack();
    QAction *undo = menu.addAction(QIcon(QStringLiteral(":/Image/Layout/Menu/undo.svg")), tr("Undo"));
    undo->setEnabled(stack && stack->canUndo());
    QObject::connect(undo, &QAction::triggered, &scene, [&scene, parent] { scene.undo(parent); });
    QAction *redo = menu.addAction(QIcon(QStringLiteral(":/Image/Layout/Menu/redo.svg")), tr("Redo"));
    redo->setEnabled(stack && stack->canRedo());
    QObject::connect(redo, &QAction::triggered, &scene, [&scene, parent] { scene.redo(parent); });
}

void CCanvasMenu::addDialogEntry(QMenu &menu, const QString &text)
{
    QAction *action = menu.addAction(text);
    action->setEnabled(false);
    action->setToolTip(tr("Available in a later version"));
}

QString CCanvasMenu::reason(CanvasBlock block)
{
    switch (block) {
    case CanvasBlock::Frozen:
        return tr(" (Screen has freezed)");
    case CanvasBlock::ZeroFrameDelay:
        return tr(" (0 frame delay is enabled)");
    case CanvasBlock::Bypass:
        return tr(" (Bypass is enabled)");
    case CanvasBlock::Polling:
        return tr(" (Polling is enabled)");
    case CanvasBlock::HdmiOutput:
        return tr(" (HDMI video output is enabled)");
    case CanvasBlock::None:
        break;
    }
    return {};
}
