// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/ILayoutInterface.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/data/CLayoutData.h"
#include "layout/plugin/CWholeModuleWarningWidget.h"
#include "platform/common/CSingleton.h"
#include "platform/control/CObserver.h"

#include <QPointer>
#include <QWidget>

class CLayoutEditorPage;
class CLayoutSidePanel;
class CLayoutSummaryWidget;
class CMappingCommands;
class CProcessorCommands;
class ILayoutInterfaceHandler;
class QAbstractButton;
class QStackedLayout;

/// The module's top widget, which receives the host's calls. Shows the editor page, the summary of several
/// processors, a warning page or, until the host's first notification, a waiting page. GUI thread.
class CLayout final : public QWidget, public ILayoutInterface, public CObserver
{
    Q_OBJECT

public:
    /// @p store must outlive the widget.
    explicit CLayout(CLayoutData &store = CSingleton<CLayoutData>::instance());
    ~CLayout() override;

    /// Returns whether there was no host yet, and the module has not been stopped.
    bool awaitsHost() const { return m_background && !m_host; }
    /// Connects to @p host: observes its notifications and calls its handler.
    void setHost(IAbstractControlInterface &host);
    QWidget *
    statusBarWidget() const; ///< tells what is selected and what is wrong; the host becomes its parent
    QWidget *titleBarWidget() const; ///< tells what is edited; the host may become its parent
    QWidget *rightBarWidget() const; ///< the side panel; the host becomes its parent
    QAbstractButton &showScreenButton() const;
    /// The user wants to show or hide the simulated screen.
    void showScreen(bool shown);

    QObject *object() override { return this; }
    std::shared_ptr<IAbstractInterfaceHandler> handler() const override { return nullptr; }
    CSubject *subject() override { return nullptr; }
    void stop() override;
    void fillProcessorMenu(QMenu &menu, const QUuid &processor) override;
    void fillEditMenu(QMenu &menu) override;
    void fillViewMenu(QMenu &menu) override;
    bool takeKey(QKeyEvent &key) override;
    void applySettings() override;
    void takeHistory(const QUuid &processor) override;
    void print(QWidget &parent) override;
    void flush() override;
    void setEditingBlocked(bool blocked) override;
    bool isEditingBlocked() const override { return m_editingBlocked; }
    void setScreenShown(bool shown) override;

    /// Passes a notification on to the store, for a host that attaches the module's object itself.
    void Update(CSubject &subject) override;

public Q_SLOTS:
    // Invoked by name, queued, by the store.
    void OnCurrentProcessorChanged();
    void onCurrentProcessorPortCountChanged(const ProcessorTree::ProcessorNode &currentProcessorInfo);
    void OnCurrentSelectedNodeChanged(PrcTreeNodeType type,
                                      const ProcessorBoundingRects &processorBoundingRects);
    void onReadbackMappingFinished(const QUuid &processsor, bool same);
    void onPrcWorkModeChanged();
    void OnCurrentProcessorStateChanged();

private:
    void buildUi();
    void connectSignals();
    void setProcessor(const ProcessorTree::ProcessorNode &processor);
    void showSelection();
    void blockPanel();
    void showInPanel();
    void showWarning(WarningState state);

    CLayoutData &m_store;
    IAbstractControlInterface *m_host = nullptr;
    PrcTreeNodeType m_selectionType = PrcTreeNodeType::Processor;
    bool m_editingBlocked = false;
    QWidget *m_background = nullptr; // holds the pages; null once stopped
    QStackedLayout *m_pages = nullptr;
    CLayoutEditorPage *m_editorPage = nullptr;
    CLayoutSummaryWidget *m_summaryPage = nullptr;
    CWholeModuleWarningWidget *m_warningPage = nullptr;
    QPointer<CLayoutSidePanel> m_sidePanel; // owned by the host's right bar once placed there
    std::unique_ptr<CProcessorCommands> m_processorCommands;
    std::unique_ptr<CMappingCommands> m_mappingCommands;
};

ORVO_DECLARE_SINGLETON(CLayout)
