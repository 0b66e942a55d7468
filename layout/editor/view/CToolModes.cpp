// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CToolModes.h"

#include "layout/editor/content/CHighlights.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/scene/ToolMode.h"
#include "layout/editor/view/CEditorToolBar.h"

#include <QGraphicsView>

#include <algorithm>

namespace {

using Bar = CEditorToolBar;

QCursor pictureCursor(const char *name)
{
    return QCursor(QPixmap(QStringLiteral(":/Image/Layout/ToolBar/%1.svg").arg(QLatin1String(name))));
}

void showCursor(QWidget &viewport, const CEditorToolBar &toolBar)
{
    if (toolBar.tool(Bar::Pen)->isChecked())
        viewport.setCursor(pictureCursor("manual-wiring-mouse"));
    else if (toolBar.tool(Bar::HeadToTailExchange)->isChecked())
        viewport.setCursor(pictureCursor("head-to-tail-exchange_mouse"));
    else if (toolBar.tool(Bar::Calibrate)->isChecked())
        viewport.setCursor(Qt::PointingHandCursor);
    else if (toolBar.tool(Bar::Arrow)->isChecked())
        viewport.setCursor(Qt::ArrowCursor);
}

} // namespace

QString CToolModes::hint(const CEditorToolBar &toolBar, bool appending)
{
    if (appending)
        return tr("Click or drag to place; or arrow keys, with Shift for more, and Enter; Esc ends.");
    if (toolBar.tool(Bar::Hand)->isChecked())
        return tr("Drag to move the view.");
    if (toolBar.tool(Bar::Pen)->isChecked())
        return tr("Draw from cabinet to cabinet to wire them; Esc ends.");
    if (toolBar.tool(Bar::HeadToTailExchange)->isChecked())
        return tr("Click a receiver to reverse the order in its cabinet; Esc ends.");
    if (toolBar.tool(Bar::Calibrate)->isChecked())
        return tr("Click a cabinet to highlight it, Ctrl+click for more; Esc ends.");
    return tr("Drag to move or select; Alt suspends snapping, Shift keeps to one axis.");
}

void CToolModes::apply(QGraphicsView &view, CCabinetGraphicsScene &scene, CEditorToolBar &toolBar,
                       bool blocked)
{
    const auto isOn = [&toolBar](Bar::ETool tool) { return toolBar.tool(tool)->isChecked(); };
    const QVector<Bar::ETool> modes = {Bar::Arrow, Bar::Hand, Bar::Pen, Bar::HeadToTailExchange,
                                       Bar::Calibrate};
    if (std::none_of(modes.begin(), modes.end(), isOn)) {
        toolBar.chooseMode(blocked ? Bar::Hand : Bar::Arrow);
        return;
    }
    if (!isOn(Bar::Arrow))
        scene.backend().placing().endAppend();
    scene.backend().setToolMode(ToolMode::ManualWiring, isOn(Bar::Pen));
    scene.backend().setToolMode(ToolMode::HeadToTailExchange, isOn(Bar::HeadToTailExchange));
    scene.backend().setToolMode(ToolMode::Highlighting, isOn(Bar::Calibrate));
    if (isOn(Bar::Pen))
        scene.clearSelection();
    if (!isOn(Bar::Calibrate))
        scene.backend().highlights().clear();
    // The scene draws its own rubber band.
    view.setDragMode(isOn(Bar::Hand) ? QGraphicsView::ScrollHandDrag : QGraphicsView::NoDrag);
    view.setInteractive(!isOn(Bar::Hand) && !blocked);
    showCursor(*view.viewport(), toolBar);
}
