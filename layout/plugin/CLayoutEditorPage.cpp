// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CLayoutEditorPage.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/data/CLayoutData.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/view/CFaultLine.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/panels/ports/CPortList.h"
#include "layout/plugin/CEditorCommands.h"
#include "layout/plugin/CEditorMenus.h"
#include "layout/plugin/CPortCommands.h"
#include "layout/plugin/CStatusFigures.h"
#include "layout/plugin/CViewPortPanel.h"
#include "platform/widgets/CElidedLabel.h"
#include "platform/widgets/CPureImageBtn.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QUndoStack>
#include <QVBoxLayout>
#include <QVariant>

#include <algorithm>

namespace {

using Host = ILayoutInterfaceHandler;

constexpr int TitleRowLocation = 3; // of a tool widget

} // namespace

CLayoutEditorPage::CLayoutEditorPage(CLayoutData &store, QWidget *parent)
    : QWidget(parent)
    , m_store(store)
    , m_title(new CElidedLabel)
    , m_note(new CElidedLabel)
    , m_showScreen(new CPureImageBtn(QStringLiteral(":/Image/ViewTitle/show-screen")))
    , m_view(new CLayoutGraphicsView(store))
    , m_figures(new CStatusFigures(store, *m_view, new CFaultLine(*m_view)))
    , m_commands(std::make_unique<CEditorCommands>(store, *m_view))
    , m_portCommands(std::make_unique<CPortCommands>(store, m_commands->canvas(), *m_view))
    , m_ports(new CPortList(store, *m_portCommands))
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
}

QAbstractButton &CLayoutEditorPage::showScreenButton() const
{
    return *m_showScreen;
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
    m_title->setFullText(processor.uuid.isNull() ? QString() : processor.displayText());
    m_view->onCurrentProcessorChanged(processor);
    m_store.setProcessorRedundancies(CHostAccess::call(&Host::processorRedundancies));
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
        m_view->showLayout(m_processor, layout);
    m_ports->onNotifyProcessorStateChanged();
    showBackground(m_store.background());
}

/// A fill image that cannot be read is reported beside the title, not in a message box each time the
/// processor is shown.
void CLayoutEditorPage::showBackground(const SBackgroundInfo &info, bool canvasSizeChanged)
{
    CCabinetGraphicsScene &scene = m_view->cabinetScene();
    scene.onBackgroundChanged(info, info, canvasSizeChanged);
    if (!scene.fillProblem().isEmpty())
        m_readResult.clear(); // is older
    m_fillProblem = scene.fillProblem();
    showNote();
}

void CLayoutEditorPage::showNote()
{
    m_note->setFullText(m_readResult.isEmpty() ? m_fillProblem : m_readResult);
}

void CLayoutEditorPage::setReadbackResult(bool same)
{
    m_readResult = same ? tr("The processor's mapping equals the layout.")
                        : tr("The processor's mapping differed from the layout.");
    showNote();
}

void CLayoutEditorPage::dropReadbackResult()
{
    m_readResult.clear();
    showNote();
}

void CLayoutEditorPage::setScreenShown(bool shown)
{
    m_showScreen->setChecked(shown);
}

void CLayoutEditorPage::setEditingBlocked(bool blocked)
{
    m_blocked = blocked;
    m_view->setEditingBlocked(blocked);
    block();
}

void CLayoutEditorPage::connectPanel(CLayoutSidePanel &panel)
{
    using View = CLayoutGraphicsView;
    using Panel = CLayoutSidePanel;
    connect(m_view, &View::notifySelectedPort, &panel, &Panel::onNotifySelectedPort);
    connect(m_view, &View::notifySelectedCabinetInfos, &panel, &Panel::onNotifySelectedCabinetInfos);
    connect(m_view, &View::notifySelectedCabinetGeometryChanged, &panel,
            &Panel::onNotifySelectedCabinetGeometryChanged);
    connect(&panel, &Panel::notifySelectedCabinetPositionChanged, m_view,
            &View::onNotifySelectedCabinetPositionChanged);
    connect(&panel, &Panel::notifySelectedCabinetSizeChanged, m_view,
            &View::onNotifySelectedCabinetSizeChanged);
    connect(&panel, &Panel::notifySelectedCabinetRankChanged, m_view,
            &View::onNotifySelectedCabinetRankChanged);
    connect(&panel, &Panel::notifyTopologybuttonClicked, m_view, &View::onTopologyButtonClicked);
    connect(&panel, &Panel::notifySelectPorts, m_view, &View::onPortsChosen);
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
    screen->setChecked(m_showScreen->isChecked());
    connect(screen, &QAction::triggered, m_showScreen, &QAbstractButton::click);
}

/// A redundancy processor follows its primary and cannot be edited.
void CLayoutEditorPage::showRedundancy()
{
    const auto pairs = m_store.processorRedundancies();
    m_backup = std::any_of(pairs.begin(), pairs.end(), [this](const QPair<QUuid, QUuid> &pair) {
        return pair.second == m_processor.uuid;
    });
    m_view->onCurrentProcessorBackupChanged(m_backup);
    block();
}

void CLayoutEditorPage::block()
{
    m_ports->setEditingBlocked(m_blocked || m_backup);
}

void CLayoutEditorPage::buildUi()
{
    m_note->setEnabled(false); // in the dimmed colour of the theme
    m_showScreen->setCheckable(true);
    m_showScreen->setFixedSize(18, 18);
    m_showScreen->setIconSize(QSize(18, 18));
    m_showScreen->setToolTip(tr("Show screen"));
    m_showScreen->setAccessibleName(tr("Show screen"));
    m_showScreen->setProperty("ToolLocation", TitleRowLocation);

    auto *titleRow = new QHBoxLayout;
    titleRow->setContentsMargins(12, 6, 12, 6);
    titleRow->setSpacing(16);
    titleRow->addWidget(m_title);
    titleRow->addWidget(m_note, 1);
    titleRow->addWidget(m_showScreen);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(titleRow);
    column->addWidget(new CViewPortPanel(*m_view, *m_ports), 1);
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
    connect(m_view, &CLayoutGraphicsView::notifyUndoStackChanged, this, [this](QUndoStack *stack) {
        m_store.undoGroup().addStack(stack); // adding it again has no effect
        m_store.undoGroup().setActiveStack(stack);
    });
    connect(&m_store, &CLayoutData::notifyCancelCalibrate, m_view, &CLayoutGraphicsView::cancelCalibrate);
    connect(&m_store, &CLayoutData::notifyProcessorBackupChanged, this, &CLayoutEditorPage::showRedundancy);
    connect(&m_store, &CLayoutData::notifyDetectFinished, this, [this] { m_store.resumeCurrentPort(); });
    connect(&m_store, &CLayoutData::notifyLayoutReplaced, this, [this](const QUuid &processor) {
        if (processor == m_processor.uuid)
            reload();
    });
}

void CLayoutEditorPage::connectPorts()
{
    using View = CLayoutGraphicsView;
    connect(m_view, &View::notifySelectedPort, m_ports, &CPortList::setCurrentSelectPort);
    connect(m_ports, &CPortList::notifyPortClicked, m_view, &View::onPortClicked);
    connect(m_ports, &CPortList::notifyPortsChosen, m_view, &View::onPortsChosen);
    connect(m_ports, &CPortList::notifyPortToggled, m_view, &View::onPortToggled);
    connect(m_ports, &CPortList::notifyAppendCabinet, m_view,
            [this](int port, const QSize &size, const CPort::TypeInfo &type) {
                if (!type.key.isNull())
                    m_store.recentCabinets().noteType(type.key);
                m_view->onNotifyAppendCabinet(type, port, size);
            });
    connect(m_ports, &CPortList::notifyShowCabinetInfo, m_view, &View::showCabinetInfo);
    connect(m_ports, &CPortList::notifyMarkupCustomCabinet, m_view, &View::markupCustomCabinet);
    connect(m_ports, &CPortList::notifySaveCabinetPara, m_view, &View::saveCabinetPara);
}
