// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/menus/CCanvasMenu.h"

#include "layout/api/access/IPortStates.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/menus/CEditEntries.h"
#include "layout/editor/menus/IEditorCommands.h"
#include "layout/editor/placing/CScenePlacing.h"

#include <QMenu>

void CCanvasMenu::fill(const QPointF &scenePos)
{
    m_menu.setToolTipsVisible(true);
    CEditEntries::addHistory(m_menu, m_targets.history, m_parent);
    m_menu.addSeparator();
    CEditEntries::addSelectAll(m_menu, m_targets.picks);
    const int current = m_targets.states.currentPort();
    const CGraphicsPortItem *port = m_targets.content.portItem(current);
    if (port && !m_targets.placing.cache().isEmpty())
        addPaste(scenePos, *port);
    if (port && port->chain().head())
        CEditEntries::addClearTopology(m_menu, m_targets.content, m_targets.operations, current, m_parent);
    if (m_commands)
        addDialogs();
}

void CCanvasMenu::addPaste(const QPointF &scenePos, const CGraphicsPortItem &port)
{
    CScenePlacing &placing = m_targets.placing;
    QAction *paste =
        CEditEntries::add(m_menu, tr("Paste"), QString(),
                          [&placing, scenePos, parent = m_parent] { placing.paste(scenePos, parent); });
    paste->setShortcuts(QKeySequence::Paste);
    CEditEntries::disableIfClosed(*paste, &port);
}

void CCanvasMenu::addDialogs()
{
    IEditorCommands *commands = m_commands;
    QWidget *parent = m_parent;
    CEditEntries::add(m_menu, tr("Max frame rate and color depth settings..."), QString(),
                      [commands, parent] { commands->setFrameRateAndColorDepth(parent); });
    const CanvasBlock block = m_targets.states.canvasBlock();
    QAction *size = CEditEntries::add(m_menu, tr("Canvas size settings...") + reason(block), QString(),
                                      [commands, parent] { commands->setCanvasSize(parent); });
    size->setEnabled(block == CanvasBlock::None);
    if (!size->isEnabled())
        size->setToolTip(size->text());
    CEditEntries::add(m_menu, tr("Canvas fill settings..."), QString(),
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
