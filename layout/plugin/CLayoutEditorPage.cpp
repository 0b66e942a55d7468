// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CLayoutEditorPage.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/api/access/ModuleSettings.h"
#include "layout/data/CLayoutData.h"
#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/view/CFaultLine.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/panels/ports/CPortList.h"
#include "layout/panels/ports/SOverload.h"
#include "layout/plugin/CEditorCommands.h"
#include "layout/plugin/CEditorMenus.h"
#include "layout/plugin/CPortCommands.h"
#include "layout/plugin/CStatusFigures.h"
#include "layout/plugin/CViewPortPanel.h"
#include "layout/plugin/CWiringLayoutWidget.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QHideEvent>
#include <QMenu>
#include <QUndoStack>
#include <QVBoxLayout>

namespace {
using Host = ILayoutInterfaceHandler;
constexpr qint64 BytesPerMegabyte = 1024 * 1024;

/// One of the host's settings.
qint64 historyLimit()
{
    const QSettings settings = ModuleSettings::open();
    const int megabytes = settings.value(QStringLiteral("history/limitMegabytes")).toInt();
    return megabytes > 0 ? megabytes * BytesPerMegabyte : CEditHistory::UsualLimit;
}

} // namespace

CLayoutEditorPage::CLayoutEditorPage(CLayoutData &store, QWidget *parent)
    : QWidget(parent)
    , m_store(store)
    , m_wiring(new CWiringLayoutWidget)
    , m_view(new CLayoutGraphicsView(store))
    , m_faults(new CFaultLine(*m_view))
    , m_figures(new CStatusFigures(store, *m_view, m_faults))
    , m_commands(std::make_unique<CEditorCommands>(store, *m_view))
    , m_portCommands(std::make_unique<CPortCommands>(store, m_commands->canvas(), *m_view))
    , m_ports(new CPortList(store, *m_portCommands))
    , m_panel(new CViewPortPanel(*m_view, *m_ports, *m_wiring))
{
    m_view->setCommands(m_commands.get());
    buildUi();
    connectSignals();
    connectPorts();
}

CLayoutEditorPage::~CLayoutEditorPage()
{
    m_store.setLayoutSource(nullptr);
    m_view->setCommands(nullptr);
    delete m_figures;
    delete m_wiring;
}

QAbstractButton &CLayoutEditorPage::showScreenButton() const
{
    return m_wiring->showScreenButton();
}

QWidget *CLayoutEditorPage::titleRow() const
{
    return m_wiring;
}

QWidget *CLayoutEditorPage::statusFigures() const
{
    return m_figures;
}

QList<CabinetLayout::CabinetPort::Cabinet> CLayoutEditorPage::selectedCabinets() const
{
    return m_view->cabinetScene().selection().records();
}

void CLayoutEditorPage::setProcessor(const ProcessorTree::ProcessorNode &processor)
{
    const bool another = processor.uuid != m_processor.uuid;
    m_processor = processor;
    m_panel->onCurrentProcessorChanged(processor);
    m_store.setProcessorRedundancies(CHostAccess::call<&Host::processorRedundancies>());
    showRedundancy();
    if (another)
        reload();
    else
        m_store.resumeCurrentPort();
}

void CLayoutEditorPage::reload()
{
    dropReadbackResult();
    m_view->cabinetScene().backend().batches().cancelGesture();
    const LayoutData layout = m_store.openProcessor(m_processor.uuid);
    if (m_processor.uuid.isNull())
        m_view->clearLayout();
    else
        m_view->showLayout(m_processor, layout, keptHistory());
    tellLostEdit();
    m_ports->onNotifyProcessorStateChanged();
    showBackground(m_store.background());
}

/// A step is before that of the host's layout, unless the history has ended with it.
void CLayoutEditorPage::tellLostEdit()
{
    if (!m_store.takeLostEdit(m_processor.uuid))
        return;
    const CEditHistory *history = m_view->history();
    const bool kept = history && history->stack().canUndo();
    m_view->cabinetScene().backend().batches().tell(
        (kept ? tr("The last edit of %1 came while the layout was being replaced, and is not in it: undo "
                   "leads "
                   "back to it.")
              : tr("The last edit of %1 came while the layout was being replaced, and is lost."))
            .arg(m_processor.name));
}

SKeptHistory CLayoutEditorPage::keptHistory() const
{
    SKeptHistory kept;
    kept.limit = historyLimit();
    // What waits was handed over when the processor was opened.
    kept.edits = CHostAccess::callUnflushed<&Host::unsavedEdits>(m_processor.uuid);
    if (!m_view->hasSteps(m_processor.uuid))
        kept.history = CHostAccess::call<&Host::editHistory>(m_processor.uuid);
    return kept;
}

/// A fill image that cannot be read is reported beside the title, not in a message box each time the
/// processor is shown.
void CLayoutEditorPage::showBackground(const SBackgroundInfo &info, bool canvasSizeChanged)
{
    CCabinetGraphicsScene &scene = m_view->cabinetScene();
    scene.onBackgroundChanged(info, info, canvasSizeChanged);
    m_wiring->setFillProblem(scene.fillProblem());
}

void CLayoutEditorPage::setReadbackResult(bool same)
{
    m_panel->onReadbackMappingFinished(same);
}

void CLayoutEditorPage::dropReadbackResult()
{
    m_wiring->dropReadResult();
}

void CLayoutEditorPage::setScreenShown(bool shown)
{
    m_wiring->showScreenButton().setChecked(shown);
}

void CLayoutEditorPage::setEditingBlocked(bool blocked)
{
    m_panel->setEditingBlocked(blocked);
}

void CLayoutEditorPage::connectPanel(CLayoutSidePanel &panel)
{
    using Panel = CLayoutSidePanel;
    m_panel->connectSidePanel(panel);
    connect(&panel, &Panel::notifySelectPorts, m_view, &CLayoutGraphicsView::onPortsChosen);
    connect(&panel, &Panel::notifyStepChosen, m_view, &CLayoutGraphicsView::onStepChosen);
    connect(m_view, &CLayoutGraphicsView::notifyHistoryChanged, &panel, &Panel::onHistoryChanged);
    connect(m_ports, &CPortList::notifyPortsSought, &panel, &Panel::choosePorts);
    connect(m_faults, &CFaultLine::notifyPortsSought, &panel, &Panel::choosePorts);
    connect(&panel, &Panel::notifyCancelPortRedundancy, this,
            [this](int port) { m_portCommands->cancelRedundancy(port); });
}

void CLayoutEditorPage::fillEditMenu(QMenu &menu)
{
    CEditorMenus(*m_view, menu, isVisible()).fillEdit();
}

void CLayoutEditorPage::fillViewMenu(QMenu &menu)
{
    CEditorMenus(*m_view, menu, isVisible()).fillView();
    QAction *screen = menu.addAction(tr("Show &screen"));
    screen->setCheckable(true);
    screen->setChecked(m_wiring->showScreenButton().isChecked());
    connect(screen, &QAction::triggered, &m_wiring->showScreenButton(), &QAbstractButton::click);
}

bool CLayoutEditorPage::takeKey(QKeyEvent &key)
{
    return isVisible() && m_view->takeKey(key);
}

void CLayoutEditorPage::applySettings()
{
    if (CEditHistory *history = m_view->history()) // others get it when they come into view
        history->setLimit(historyLimit());
}

/// Not while the user is about to edit: what is done then follows the layout as it is.
void CLayoutEditorPage::takeHistory(const QUuid &processor)
{
    if (processor == m_processor.uuid && !m_view->hasSteps(processor) &&
        QGuiApplication::mouseButtons() == Qt::NoButton &&
        !m_view->cabinetScene().backend().placing().isAppending())
        reload();
}

void CLayoutEditorPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_figures)
        m_figures->setTelling(true);
    if (m_wiring)
        m_wiring->show();
}

void CLayoutEditorPage::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (event->spontaneous())
        return; // the window was minimized: no other page came
    if (m_figures)
        m_figures->setTelling(false);
    if (m_wiring)
        m_wiring->hide();
}

/// A redundancy processor follows its primary and cannot be edited.
void CLayoutEditorPage::showRedundancy()
{
    m_panel->onCurrentProcessorBackupChanged(!m_store.primaryOf(m_processor.uuid).isNull());
}

void CLayoutEditorPage::buildUi()
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_wiring);
    column->addWidget(m_panel, 1);
}

void CLayoutEditorPage::connectSignals()
{
    CCabinetGraphicsScene *scene = &m_view->cabinetScene();
    m_store.setLayoutSource(scene);
    connect(&m_store, &CLayoutData::notifyProcessorPortLocked, scene,
            &CCabinetGraphicsScene::setCabinetLocked);
    connect(&m_store, &CLayoutData::notifyProcessorPortColorChanged, scene,
            &CCabinetGraphicsScene::onNotifyCabinetColorChanged);
    connect(&m_store, &CLayoutData::notifyProcessorPortPayloadChanged, scene,
            &CCabinetGraphicsScene::setPortLoad);
    connect(&m_store, &CLayoutData::notifyProcessorCanvasSizeChanged, scene,
            &CCabinetGraphicsScene::setCanvasSize);
    connect(&m_store, &CLayoutData::notifyProcessorBackgroundChanged, scene,
            [this](const SBackgroundInfo &, const SBackgroundInfo &now, bool canvasSizeChanged) {
                showBackground(now, canvasSizeChanged);
            });
    connect(&m_commands->canvas(), &CCanvasCommands::notifyFillPreviewed, this,
            [this](const SBackgroundInfo &info) { showBackground(info); });
    connect(&m_store, &CLayoutData::notifyProcessorStateChanged, scene,
            &CCabinetGraphicsScene::onNotifyProcessorStateChanged);
    connect(&m_store, &CLayoutData::notifyProcessorPortBackup, scene,
            &CCabinetGraphicsScene::onNotifyProcessorStateChanged);
    connect(&m_store, &CLayoutData::notifyProcessorPortBackup, scene, &CCabinetGraphicsScene::backupPort);
    connect(&m_store, &CLayoutData::notifyLayoutOptionChanged, scene,
            &CCabinetGraphicsScene::onNotifyProcessorStateChanged);
    connect(scene, &CCabinetGraphicsScene::notifySceneChanged, &m_store,
            [this] { m_store.syncLayoutData(false); });
    connect(scene, &CCabinetGraphicsScene::notifySceneChanged, this, &CLayoutEditorPage::dropReadbackResult);
    connect(&m_store, &CLayoutData::notifyEdited, m_view, &CLayoutGraphicsView::onEdited);
    connect(&m_store, &CLayoutData::notifyCurrentPortChanged, m_view,
            [this](int port) { m_view->onPortToggled(port, port >= 0); });
    connect(&m_store, &CLayoutData::notifyUnsavedEditsMayDiffer, this, &CLayoutEditorPage::markSaved);
    connect(m_view, &CLayoutGraphicsView::notifyEditRecorded, this,
            [](const SEditRecord &record) { CHostAccess::call<&Host::recordEdit>(record); });
    connect(m_view, &CLayoutGraphicsView::notifyUndoStackChanged, this, [this](QUndoStack *stack) {
        m_store.undoGroup().addStack(stack); // adding it again has no effect
        m_store.undoGroup().setActiveStack(stack);
    });
    connect(&m_store, &CLayoutData::notifyCancelCalibrate, m_panel, &CViewPortPanel::onNotifyCancelCalibrate);
    connect(&m_store, &CLayoutData::notifyProcessorBackupChanged, this, &CLayoutEditorPage::showRedundancy);
    connect(&m_store, &CLayoutData::notifyDetectFinished, this, [this] { m_store.resumeCurrentPort(); });
    connect(&m_store, &CLayoutData::notifyLayoutReplaced, this, [this](const QUuid &processor) {
        if (processor == m_processor.uuid)
            reload();
    });
}

void CLayoutEditorPage::markSaved()
{
    const std::optional<SUnsavedEdits> edits = m_store.unsavedEdits();
    if (CEditHistory *history = m_view->history(); history && edits)
        history->setUnsavedEdits(*edits);
}

void CLayoutEditorPage::connectPorts()
{
    connect(m_ports, &CPortList::notifyOverloadChanged, m_faults, [this](const SOverload &overload) {
        m_faults->showOverload(overload.shortText(), overload.text(), overload.ports);
    });
    using View = CLayoutGraphicsView;
    connect(m_ports, &CPortList::notifyPortsChosen, m_view, &View::onPortsChosen);
    connect(m_ports, &CPortList::notifyAppendCabinet, m_view,
            [this](int port, const QSize &size, const CPort::TypeInfo &type) {
                m_commands->append(type, port, size);
            });
    connect(m_ports, &CPortList::notifyShowCabinetInfo, m_view, &View::showCabinetInfo);
    connect(m_ports, &CPortList::notifyMarkupCustomCabinet, m_view, &View::markupCustomCabinet);
    connect(m_ports, &CPortList::notifySaveCabinetPara, m_view, &View::saveCabinetPara);
}
