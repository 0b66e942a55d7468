// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CLayout.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/api/records/EditRefusal.h"
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/plugin/CLayoutEditorPage.h"
#include "layout/plugin/CMappingCommands.h"
#include "layout/plugin/CPrintCommand.h"
#include "layout/plugin/CProcessorCommands.h"
#include "layout/plugin/CProcessorMenu.h"
#include "layout/plugin/SelectionRules.h"
#include "layout/resources/LayoutResources.h"
#include "layout/summary/CLayoutSummaryWidget.h"
#include "platform/control/CSubject.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QLabel>
#include <QMenu>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace {
using Host = ILayoutInterfaceHandler;
}

ORVO_DEFINE_SINGLETON(CLayout)

CLayout::CLayout(CLayoutData &store)
    : m_store(store)
{
    initLayoutResources();
    buildUi();
    connectSignals();
}

CLayout::~CLayout()
{
    stop();
}

void CLayout::setHost(IAbstractControlInterface &host)
{
    m_host = &host;
    CHostAccess::setHost(m_host);
    m_store.setController(this);
    if (CSubject *subject = host.subject())
        subject->attach(m_store);
}

QWidget *CLayout::statusBarWidget() const
{
    return m_editorPage->statusFigures();
}

QWidget *CLayout::titleBarWidget() const
{
    return m_editorPage->titleRow();
}

QWidget *CLayout::rightBarWidget() const
{
    return m_sidePanel;
}

QAbstractButton &CLayout::showScreenButton() const
{
    return m_editorPage->showScreenButton();
}

void CLayout::showScreen(bool shown)
{
    m_editorPage->setScreenShown(shown);
    CHostAccess::call<&Host::showScreen>(shown);
}

void CLayout::stop()
{
    if (!m_background)
        return;
    if (m_host && m_host->subject())
        m_host->subject()->detach(m_store);
    m_store.stop();
    QCoreApplication::removePostedEvents(this); // queued calls from the store would find no page any more
    delete m_sidePanel;
    m_mappingCommands.reset();
    m_processorCommands.reset();
    delete m_background;
    m_background = nullptr;
    setParent(nullptr);
    CHostAccess::setHost(nullptr);
    m_host = nullptr;
}

void CLayout::fillProcessorMenu(QMenu &menu, const QUuid &processor)
{
    if (m_processorCommands) // gone once stopped
        CProcessorMenu(menu, *m_processorCommands, processor,
                       EditRefusal::of(m_editingBlocked, !m_store.primaryOf(processor).isNull()),
                       m_editorPage->selectedCabinets())
            .fill();
}

void CLayout::fillEditMenu(QMenu &menu)
{
    if (m_background && m_summaryPage->isVisible())
        m_summaryPage->fillEditMenu(menu);
    else if (m_background)
        m_editorPage->fillEditMenu(menu);
}

void CLayout::fillViewMenu(QMenu &menu)
{
    if (!m_background)
        return;
    m_editorPage->fillViewMenu(menu);
    if (!m_sidePanel)
        return;
    QAction *history = menu.addAction(tr("&History"));
    history->setCheckable(true);
    history->setChecked(m_sidePanel->isHistoryShown());
    connect(history, &QAction::toggled, m_sidePanel.data(), &CLayoutSidePanel::setHistoryShown);
}

bool CLayout::takeKey(QKeyEvent &key)
{
    return m_background && m_editorPage->takeKey(key);
}

void CLayout::applySettings()
{
    if (m_background)
        m_editorPage->applySettings();
}

void CLayout::takeHistory(const QUuid &processor)
{
    if (m_background)
        m_editorPage->takeHistory(processor);
}

void CLayout::print(QWidget &parent)
{
    CPrintCommand::run(&parent);
}

void CLayout::flush()
{
    m_store.syncLayoutData(true);
}

void CLayout::setEditingBlocked(bool blocked)
{
    m_editingBlocked = blocked;
    if (!m_background)
        return; // stopped
    m_editorPage->setEditingBlocked(blocked);
    m_summaryPage->setEditingBlocked(blocked);
    blockPanel();
}

void CLayout::blockPanel()
{
    if (m_sidePanel)
        m_sidePanel->setEditingBlocked(m_editingBlocked,
                                       !m_store.primaryOf(m_editorPage->processor()).isNull());
}

void CLayout::setScreenShown(bool shown)
{
    if (m_background)
        m_editorPage->setScreenShown(shown);
}

void CLayout::Update(CSubject &subject)
{
    m_store.Update(subject);
}

void CLayout::OnCurrentProcessorChanged()
{
    const QUuid processor = CHostAccess::call<&Host::currentProcessorNode>().uuid;
    if (!processor.isNull() && CHostAccess::call<&Host::preparatoryStep>(processor) == 1)
        CHostAccess::call<&Host::performPreparatoryStep>(processor);
    onPrcWorkModeChanged();
}

void CLayout::onCurrentProcessorPortCountChanged(const ProcessorTree::ProcessorNode &currentProcessorInfo)
{
    const bool sameProcessor = currentProcessorInfo.uuid == m_editorPage->processor();
    setProcessor(currentProcessorInfo); // also loads another one
    if (sameProcessor)
        m_editorPage->reload();
}

void CLayout::OnCurrentSelectedNodeChanged(PrcTreeNodeType type, const ProcessorBoundingRects &)
{
    if (type == PrcTreeNodeType::Other)
        return;
    m_selectionType = type;
    showSelection();
}

void CLayout::onReadbackMappingFinished(const QUuid &processsor, bool same)
{
    if (processsor == m_editorPage->processor())
        m_editorPage->setReadbackResult(same);
}

void CLayout::onPrcWorkModeChanged()
{
    setProcessor(CHostAccess::call<&Host::currentProcessorNode>());
    showSelection();
}

void CLayout::OnCurrentProcessorStateChanged()
{
    setProcessor(CHostAccess::call<&Host::currentProcessorNode>());
    showSelection();
}

void CLayout::buildUi()
{
    setObjectName(QStringLiteral("Layout"));
    m_background = new QWidget(this);
    m_background->setObjectName(QStringLiteral("BGTransparent"));
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_background);

    auto *waitingPage = new QLabel(tr("Waiting for the processors..."));
    waitingPage->setAlignment(Qt::AlignCenter);
    waitingPage->setEnabled(false); // in the dimmed colour of the theme
    m_editorPage = new CLayoutEditorPage(m_store);
    m_summaryPage = new CLayoutSummaryWidget;
    m_warningPage = new CWholeModuleWarningWidget;
    m_pages = new QStackedLayout(m_background);
    m_pages->addWidget(waitingPage);
    m_pages->addWidget(m_editorPage);
    m_pages->addWidget(m_summaryPage);
    m_pages->addWidget(m_warningPage);
    m_mappingCommands = std::make_unique<CMappingCommands>(m_store, *this);
    m_sidePanel = new CLayoutSidePanel({m_store, *m_mappingCommands});
    m_editorPage->connectPanel(*m_sidePanel);
    showInPanel();
}

void CLayout::connectSignals()
{
    m_processorCommands = std::make_unique<CProcessorCommands>(m_store, *this);
    connect(m_warningPage, &CWholeModuleWarningWidget::NotifyVideoProcessorClicked, m_processorCommands.get(),
            &CProcessorCommands::setVideoProcessorMode);
    connect(m_warningPage, &CWholeModuleWarningWidget::NotifySetPrcBypassModeEnable,
            m_processorCommands.get(), &CProcessorCommands::setBypassMode);
    connect(m_mappingCommands.get(), &CMappingCommands::notifyStarted, m_editorPage,
            &CLayoutEditorPage::dropReadbackResult);
    connect(m_pages, &QStackedLayout::currentChanged, m_sidePanel, [this] { showInPanel(); });
    connect(&m_store, &CLayoutData::notifyProcessorBackupChanged, m_background, [this] { blockPanel(); });
    connect(&m_store, &CLayoutData::notifyDetectFinished, m_warningPage, [this] { showSelection(); });
}

void CLayout::showInPanel()
{
    m_sidePanel->setLayoutShown(m_pages->currentWidget() == m_editorPage);
}

void CLayout::setProcessor(const ProcessorTree::ProcessorNode &processor)
{
    // In fibre optic transceiver mode there is nothing to edit, to read or to save.
    const bool fiber = CHostAccess::call<&Host::isFiberTransceiverMode>(processor.uuid);
    const ProcessorTree::ProcessorNode shown = fiber ? ProcessorTree::ProcessorNode() : processor;
    const bool another = shown.uuid != m_editorPage->processor();
    m_editorPage->setProcessor(shown);
    if (!m_sidePanel)
        return;
    blockPanel();
    if (another)
        m_sidePanel->onCurrentProcessorChanged(shown);
    else
        m_sidePanel->onCurrentProcessorStateChanged(shown);
}

void CLayout::showSelection()
{
    using Node = ProcessorTree::ProcessorNode;
    QList<Node> selected = CHostAccess::call<&Host::selectedProcessors>();
    const Node current = CHostAccess::call<&Host::currentProcessorNode>();
    if (selected.isEmpty() && !current.uuid.isNull())
        selected << current;
    for (Node &node : selected)
        node.fiberTransceiver = CHostAccess::call<&Host::isFiberTransceiverMode>(node.uuid);
    const QList<Node> all = CHostAccess::call<&Host::processors>();
    const bool anyOnline = std::any_of(all.begin(), all.end(), [](const Node &node) { return node.online; });
    if (const auto warning = SelectionRules::warningFor(m_selectionType, selected, anyOnline)) {
        const bool unsaved = *warning == WarningState::Offline &&
                             CHostAccess::call<&Host::unsavedEdits>(selected.first().uuid).any();
        m_warningPage->setUnsaved(unsaved ? selected.first().displayText() : QString());
        showWarning(*warning);
    } else if (selected.size() > 1) {
        m_summaryPage->showProcessors(selected);
        m_pages->setCurrentWidget(m_summaryPage);
    } else {
        m_pages->setCurrentWidget(m_editorPage);
    }
}

void CLayout::showWarning(WarningState state)
{
    m_warningPage->setState(state);
    m_pages->setCurrentWidget(m_warningPage);
}
