// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CLayoutGraphicsView.h"

#include "layout/api/access/IPortStates.h"
#include "layout/api/records/EditRefusal.h"
#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CHighlights.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/gestures/CSceneInput.h"
#include "layout/editor/items/CFarPorts.h"
#include "layout/editor/menus/IEditorCommands.h"
#include "layout/editor/operations/CGuardedUndo.h"
#include "layout/editor/operations/CSelectionShape.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/scene/SInputTargets.h"
#include "layout/editor/view/CCanvasKeys.h"
#include "layout/editor/view/CEditorToolBar.h"
#include "layout/editor/view/CToolCommands.h"
#include "layout/editor/view/CToolModes.h"
#include "layout/editor/view/CWallSights.h"
#include "platform/graphics/CAerialView.h"
#include "platform/widgets/CStatusWords.h"

#include <QKeyEvent>
#include <QMetaMethod>
#include <QPaintEvent>
#include <QScrollBar>

namespace {

using Bar = CEditorToolBar;
using Scene = CCabinetGraphicsScene;

} // namespace

CLayoutGraphicsView::CLayoutGraphicsView(const IPortStates &ports, QWidget *parent)
    : CGraphicsView(parent)
    , m_scene(new CCabinetGraphicsScene(ports, this))
    , m_input(std::make_unique<CSceneInput>(*m_scene, m_scene->backend().inputTargets(),
                                            [this] { m_scene->leaveOperation(); }))
    , m_shown(*m_scene, [this](const SEditRecord &record) { Q_EMIT notifyEditRecorded(record); })
    , m_toolBar(new CEditorToolBar)
    , m_words(new CStatusWords(*this))
    , m_keys(std::make_unique<CCanvasKeys>(*this, *m_words))
    , m_sights(std::make_unique<CWallSights>(*this))
{
    buildUi();
    connectTools();
    connectScene();
    CToolModes::apply(*this, *m_scene, *m_toolBar, isBlocked());
}

CLayoutGraphicsView::~CLayoutGraphicsView()
{
    m_scene->backend().setInput(nullptr);
    m_input.reset();
    delete m_scene; // while the view can still receive its signals, and before the stacks that it uses
}

void CLayoutGraphicsView::buildUi()
{
    m_scene->backend().setInput(m_input.get());
    setScene(m_scene);
    setAccessibleName(tr("Layout canvas"));
    setToolBar(m_toolBar);
    onNotifyCanUndoChanged(false);
    onNotifyCanRedoChanged(false);
    onNotifySelectedChanged({}, false, false);
    viewport()->setMouseTracking(true); // ghosts follow the cursor over an empty canvas, too
}

void CLayoutGraphicsView::connectTools()
{
    connect(m_toolBar, &Bar::notifyToolClicked, this, &CLayoutGraphicsView::onToolButtonClicked);
    connect(m_toolBar, &Bar::notifyToolToggled, this, &CLayoutGraphicsView::onToolButtonToggled);
    connect(m_toolBar, &Bar::notifyHighlightKindChanged, this, &CLayoutGraphicsView::highlight);
    connect(this, &CGraphicsView::notifyScaleChanged, this, &CLayoutGraphicsView::onScaleChanged);
    for (const QScrollBar *bar : {horizontalScrollBar(), verticalScrollBar()})
        connect(bar, &QScrollBar::rangeChanged, this, &CLayoutGraphicsView::onScorllBarRangeChanged);
}

void CLayoutGraphicsView::connectScene()
{
    connect(m_scene, &Scene::notifyExitCurrentOperate, this, [this] {
        m_toolBar->chooseMode(isBlocked() ? Bar::Hand : Bar::Arrow);
        Q_EMIT notifyHintChanged();
    });
    connect(m_scene, &Scene::notifyCanUndoChanged, this, &CLayoutGraphicsView::onNotifyCanUndoChanged);
    connect(m_scene, &Scene::notifyCanRedoChanged, this, &CLayoutGraphicsView::onNotifyCanRedoChanged);
    m_selectionTold.setSingleShot(true);
    connect(&m_selectionTold, &QTimer::timeout, this, &CLayoutGraphicsView::tellSelection);
    connect(m_scene, &Scene::notifySelectedItemGeometryChanged, this,
            &CLayoutGraphicsView::onNotifySelectedItemGeometryChanged);
    connect(m_scene, &Scene::notifySelectedChanged, this, &CLayoutGraphicsView::onNotifySelectedChanged);
    connect(m_scene, &Scene::notifySceneChanged, this, &CLayoutGraphicsView::onNotifySceneChanged);
    connect(m_scene, &Scene::notifyLookChanged, &aerialView(), &CAerialView::scheduleRefresh);
    connect(m_scene, &Scene::notifyHighlightChanged, this, &CLayoutGraphicsView::highlight);
    connect(m_scene, &Scene::notifyWords, m_words, &CStatusWords::tell);
}

void CLayoutGraphicsView::setCommands(IEditorCommands *commands)
{
    m_commands = commands;
    m_input->setCommands(commands);
    m_keys->setCommands(commands);
}

void CLayoutGraphicsView::showLayout(const ProcessorTree::ProcessorNode &processor, const LayoutData &layout,
                                     const SKeptHistory &kept)
{
    const bool restored = !kept.history.steps.isEmpty() && !hasSteps(processor.uuid);
    const bool another = restored || processor.uuid != m_shown.processor();
    if (another) {
        m_sights->keep(m_shown.processor());
        QUndoStack &stack = m_shown.enter(layout.layout, kept).stack();
        connect(history(), &CEditHistory::notifyBeginningChanged, this, &CLayoutGraphicsView::showHistory,
                Qt::UniqueConnection);
        connect(history(), &CEditHistory::notifySavedRowsChanged, this, &CLayoutGraphicsView::showHistory,
                Qt::UniqueConnection);
        onNotifyCanUndoChanged(stack.canUndo());
        onNotifyCanRedoChanged(stack.canRedo());
        Q_EMIT notifyUndoStackChanged(&stack);
        showHistory();
    }
    m_shown.show(processor, layout, another, kept.edits);
    aerialView().scheduleRefresh();
    if (another)
        m_sights->restore(processor.uuid);
    Q_EMIT notifyHintChanged();
}

void CLayoutGraphicsView::onEdited(const CabinetLayout &known, const CabinetLayout &edited,
                                   const QVector<int> &changedPorts)
{
    m_shown.note({known, edited, changedPorts});
}

void CLayoutGraphicsView::showHistory()
{
    const CEditHistory *shown = history();
    if (shown)
        Q_EMIT notifyHistoryChanged(&shown->stack(), shown->beginning(), shown->savedRows());
    else
        Q_EMIT notifyHistoryChanged(nullptr, {}, {});
}

void CLayoutGraphicsView::onStepChosen(int index)
{
    const QString refused = refusal(EditKind::History);
    if (refused.isEmpty())
        m_scene->backend().history().goTo(index, this);
    else
        m_words->tell(refused);
}

void CLayoutGraphicsView::clearLayout()
{
    m_sights->keep(m_shown.processor());
    m_shown.leave();
    m_scene->setUndoStack(nullptr);
    showHistory();
    onNotifyCanUndoChanged(false);
    onNotifyCanRedoChanged(false);
    aerialView().scheduleRefresh();
    Q_EMIT notifyHintChanged();
}

void CLayoutGraphicsView::onCurrentProcessorBackupChanged(bool isBackup)
{
    if (m_backup != isBackup)
        setBlocked(m_blocked, isBackup);
}

void CLayoutGraphicsView::setBlocked(bool byController, bool asBackup)
{
    m_blocked = byController;
    m_backup = asBackup;
    m_toolBar->setBlock(EditRefusal::of(m_blocked, m_backup));
    m_scene->leaveOperation();
}

void CLayoutGraphicsView::onToolButtonClicked(int id)
{
    CToolCommands::carryOut(id, *this, *m_scene, m_commands);
}

void CLayoutGraphicsView::onToolButtonToggled(int id, bool checked)
{
    if (id < 0 || id >= Bar::ToolCount || !m_toolBar->tool(Bar::ETool(id))->isCheckable())
        return;
    QAction *tool = m_toolBar->tool(Bar::ETool(id));
    if (tool->isChecked() != checked)
        tool->setChecked(checked); // comes back here
    else if (id == Bar::Navigator)
        SetAerialViewVisible(checked);
    else
        CToolModes::apply(*this, *m_scene, *m_toolBar, isBlocked());
    Q_EMIT notifyHintChanged();
}

QString CLayoutGraphicsView::hint() const
{
    if (m_shown.processor().isNull())
        return {};
    return CToolModes::hint(*m_toolBar, m_scene->backend().placing().isAppending());
}

void CLayoutGraphicsView::onTopologyButtonClicked(int pattern)
{
    m_scene->topologyWiring(uint(pattern));
}

void CLayoutGraphicsView::onNotifyAppendCabinet(const TypeInfo &type, int port, const QSize &size)
{
    m_toolBar->chooseMode(Bar::Arrow);
    m_scene->backend().placing().beginAppend(type, port, size);
    setFocus();
    if (m_scene->backend().placing().isAppending())
        ensureVisible(m_scene->backend().placing().block(), 0, 0);
    Q_EMIT notifyHintChanged();
}

void CLayoutGraphicsView::onPortToggled(int port, bool current)
{
    if (current)
        m_scene->backend().placing().moveAppendTo(port);
    Q_EMIT notifyHintChanged();
}

void CLayoutGraphicsView::onPortsChosen(const QVector<int> &ports)
{
    m_scene->backend().picks().only(m_shown.itemsOf(ports));
}

void CLayoutGraphicsView::onPortClicked(int port, bool selected)
{
    m_scene->backend().picks().port(port, selected);
}

void CLayoutGraphicsView::onNotifySelectedCabinetRankChanged(const QSize &rank)
{
    m_scene->backend().shape().arrange(rank);
}

void CLayoutGraphicsView::onNotifySelectedCabinetPositionChanged(const QPoint &corner)
{
    m_scene->backend().shape().moveTo(corner);
}

void CLayoutGraphicsView::onNotifySelectedCabinetSizeChanged(const QSize &size)
{
    m_scene->backend().shape().resizeTo(size);
}

void CLayoutGraphicsView::onNotifySelectedChanged(const QList<int> &ports, bool canGroup, bool canBreakGroup)
{
    m_toolBar->setObstacle(Bar::Group, CEditRule::grouping(m_scene->selection(), canGroup));
    m_toolBar->setObstacle(Bar::Ungroup, CEditRule::ungrouping(m_scene->selection(), canBreakGroup));
    aerialView().scheduleRefresh();
    Q_EMIT notifySelectedPort(ports);
    onNotifySelectedItemGeometryChanged();
}

void CLayoutGraphicsView::onNotifySelectedItemGeometryChanged()
{
    m_selectionTold.start();
}

/// Once for all that happens until the event loop is back, because it costs a walk over the selection.
void CLayoutGraphicsView::tellSelection()
{
    using View = CLayoutGraphicsView;
    static const auto infos = QMetaMethod::fromSignal(&View::notifySelectedCabinetInfos);
    static const auto geometry = QMetaMethod::fromSignal(&View::notifySelectedCabinetGeometryChanged);
    Q_EMIT notifySelectionFigures(m_scene->selection().figures());
    if (isSignalConnected(infos))
        Q_EMIT notifySelectedCabinetInfos(m_scene->selection().records());
    if (isSignalConnected(geometry))
        Q_EMIT notifySelectedCabinetGeometryChanged(m_scene->selection().extent());
}

void CLayoutGraphicsView::onNotifySceneChanged()
{
    aerialView().scheduleRefresh();
}

void CLayoutGraphicsView::cancelCalibrate()
{
    m_scene->backend().highlights().clear();
    m_toolBar->tool(Bar::Calibrate)->setChecked(false);
}

/// Shows the canvas highlights on the wall; removes them if the processor refuses.
void CLayoutGraphicsView::highlight()
{
    const CabinetHighlight kind =
        m_toolBar->isFrameless() ? CabinetHighlight::LedIndicator : CabinetHighlight::FlashingBox;
    const QList<Cabinet> cabinets = m_scene->backend().highlights().records();
    if (m_commands &&
        !m_commands->highlight(cabinets, cabinets.isEmpty() ? CabinetHighlight::Off : kind, this) &&
        !cabinets.isEmpty())
        m_scene->backend().highlights().clear();
}

void CLayoutGraphicsView::clearSelected()
{
    m_scene->clearSelection();
}

void CLayoutGraphicsView::showCabinetInfo(int port)
{
    if (m_commands)
        m_commands->showInformation(m_shown.cabinets(port), this);
}

void CLayoutGraphicsView::saveCabinetPara(int port)
{
    if (m_commands)
        m_commands->saveParameters(m_shown.cabinets(port), this);
}

void CLayoutGraphicsView::ShowEleCurrentAdjustDialog()
{
    if (m_commands)
        m_commands->adjustCurrentGain(this);
}

void CLayoutGraphicsView::markupCustomCabinet(bool markup)
{
    if (m_commands)
        m_commands->markCustomCabinets(markup);
}

void CLayoutGraphicsView::onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processorInfo)
{
    if (processorInfo.uuid != m_shown.processor())
        m_scene->leaveOperation(); // what is in progress belongs to the previous processor
    m_toolBar->setObstacle(Bar::Calibrate, m_commands ? m_commands->connectionRefusal() : QString());
}

void CLayoutGraphicsView::onScaleChanged()
{
    aerialView().update();
}

void CLayoutGraphicsView::onScorllBarRangeChanged()
{
    aerialView().update();
}

void CLayoutGraphicsView::onNotifyCanUndoChanged(bool canUndo)
{
    m_toolBar->setObstacle(Bar::Undo, CEditRule::undoing(canUndo));
}

void CLayoutGraphicsView::onNotifyCanRedoChanged(bool canRedo)
{
    m_toolBar->setObstacle(Bar::Redo, CEditRule::redoing(canRedo));
}

bool CLayoutGraphicsView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowDeactivate)
        m_scene->backend().batches().cancelGesture(); // the release may go to another window
    return CGraphicsView::viewportEvent(event);
}

void CLayoutGraphicsView::paintEvent(QPaintEvent *event)
{
    const QVector<QRect> parts = CFarPorts::parts(event->region());
    CFarPorts farPorts(m_scene->backend().content().portItems(), viewportTransform().m11(),
                       CFarPorts::exposed(*this, parts), parts);
    farPorts.passOver(*m_scene);
    m_farPorts = &farPorts;
    CGraphicsView::paintEvent(event);
    m_farPorts = nullptr;
}

void CLayoutGraphicsView::drawForeground(QPainter *painter, const QRectF &rect)
{
    if (m_farPorts) // not if the view is rendered by somebody else
        m_farPorts->paint(*painter);
    CGraphicsView::drawForeground(painter, rect);
}

void CLayoutGraphicsView::keyPressEvent(QKeyEvent *event)
{
    if (m_keys->press(*event))
        return;
    CGraphicsView::keyPressEvent(event); // arrow keys scroll then
    m_keys->explain(*event);
}

bool CLayoutGraphicsView::takeKey(QKeyEvent &event)
{
    if (!CCanvasKeys::isOfWindow(event))
        return false;
    keyPressEvent(&event);
    return true;
}

QString CLayoutGraphicsView::refusal(EditKind kind) const
{
    return CEditRule::refusal(kind, EditRefusal::of(m_blocked, m_backup),
                              m_toolBar->tool(Bar::Hand)->isChecked());
}
