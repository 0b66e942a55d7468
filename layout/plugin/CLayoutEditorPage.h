// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/LayoutData.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/SBackgroundInfo.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class CEditorCommands;
class CFaultLine;
class CLayoutData;
class CLayoutGraphicsView;
class CLayoutSidePanel;
class CPortCommands;
class CPortList;
class CStatusFigures;
class CViewPortPanel;
struct SKeptHistory;
class CWiringLayoutWidget;
class QAbstractButton;
class QKeyEvent;
class QMenu;

/// The module's page with the layout editor of the current processor, below a row with its title. GUI thread.
class CLayoutEditorPage final : public QWidget
{
    Q_OBJECT

public:
    /// @p store must outlive the page. The page's editor becomes the store's layout source.
    explicit CLayoutEditorPage(CLayoutData &store, QWidget *parent = nullptr);
    ~CLayoutEditorPage() override;

    QAbstractButton &showScreenButton() const;
    QWidget *titleRow() const; ///< at the top of the page, unless it is placed elsewhere; deleted with it
    QWidget *statusFigures() const; ///< to be placed in the status bar; deleted with the page
    CPortCommands &portCommands() { return *m_portCommands; }
    const QUuid &processor() const { return m_processor.uuid; } ///< the one shown; null: none

    QList<CabinetLayout::CabinetPort::Cabinet> selectedCabinets() const;

    /// Shows @p processor; its layout is loaded if another one was shown before.
    void setProcessor(const ProcessorTree::ProcessorNode &processor);
    /// Loads the layout of the shown processor again, because the host has another one.
    void reload();
    /// Shows whether the mapping just read equals the layout shown before.
    void setReadbackResult(bool same);
    /// Hides the result of the last read, because the user continues working.
    void dropReadbackResult();
    /// Updates the button after the simulated screen was opened or closed.
    void setScreenShown(bool shown);
    void fillEditMenu(QMenu &menu); ///< see ILayoutInterface
    void fillViewMenu(QMenu &menu);
    bool takeKey(QKeyEvent &key); ///< see ILayoutInterface::takeKey()
    void applySettings();
    void takeHistory(const QUuid &processor); ///< see ILayoutInterface::takeHistory()
    /// With @p blocked, the user cannot edit.
    void setEditingBlocked(bool blocked);
    /// Lets @p panel show the selection and edit it. The panel may go before the page.
    void connectPanel(CLayoutSidePanel &panel);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void connectPorts();
    void markSaved();
    void tellLostEdit();
    SKeptHistory keptHistory() const; ///< of the processor shown
    void showBackground(const SBackgroundInfo &info, bool canvasSizeChanged = false);
    void showRedundancy();
    void buildUi();
    void connectSignals();

    CLayoutData &m_store;
    ProcessorTree::ProcessorNode m_processor;
    QPointer<CWiringLayoutWidget> m_wiring; // owned by the host's title bar once placed there
    CLayoutGraphicsView *m_view = nullptr;
    CFaultLine *m_faults;               // owned by the figures
    QPointer<CStatusFigures> m_figures; // owned by the status bar once placed there
    std::unique_ptr<CEditorCommands> m_commands;
    std::unique_ptr<CPortCommands> m_portCommands;
    CPortList *m_ports = nullptr;
    CViewPortPanel *m_panel = nullptr;
};
