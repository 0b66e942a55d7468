// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/menus/CCanvasMenu.h"

#include "layout/api/access/IPortStates.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/menus/CEditEntries.h"
#include "layout/editor/menus/IEditorCommands.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"

#include <QMenu>

void CCanvasMenu::fill(QMenu &menu, CCabinetGraphicsScene &scene, const QPointF &scenePos, QWidget *parent)
{
    menu.setToolTipsVisible(true);
    CEditEntries::addHistory(menu, scene, parent);
    menu.addSeparator();
    CEditEntries::addSelectAll(menu, scene);
    const int current = scene.portStates().currentPort();
    const CGraphicsPortItem *port = scene.portItem(current);
    if (port && !scene.pasteCache().isEmpty())
        CEditEntries::add(menu, scene, tr("Paste"), QString(), [&scene, scenePos, parent] {
            scene.pasteItems(scenePos, parent);
        })->setShortcuts(QKeySequence::Paste);
    if (port && port->chain().head())
        CEditEntries::addClearTopology(menu, scene, current, parent);
    if (scene.commands())
        addDialogs(menu, scene, parent);
}

void CCanvasMenu::addDialogs(QMenu &menu, CCabinetGraphicsScene &scene, QWidget *parent)
{
    IEditorCommands *commands = scene.commands();
    CEditEntries::add(menu, scene, tr("Max frame rate and color depth settings..."), QString(),
                      [commands, parent] { commands->setFrameRateAndColorDepth(parent); });
    const CanvasBlock block = scene.portStates().canvasBlock();
    QAction *size = CEditEntries::add(menu, scene, tr("Canvas size settings...") + reason(block), QString(),
                                      [commands, parent] { commands->setCanvasSize(parent); });
    size->setEnabled(block == CanvasBlock::None);
    if (!size->isEnabled())
        size->setToolTip(size->text());
    CEditEntries::add(menu, scene, tr("Canvas fill settings..."), QString(),
                      [commands, parent] { commands->setCanvasFill(parent); });
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
