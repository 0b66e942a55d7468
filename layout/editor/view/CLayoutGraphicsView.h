// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/SSettings.h"
#include "layout/editor/view/CEditRule.h"
#include "layout/editor/view/CShownLayout.h"
#include "platform/graphics/CGraphicsView.h"

#include <QTimer>

class CCabinetGraphicsScene;
class CCanvasKeys;
class CEditorToolBar;
class CFarPorts;
class CSceneInput;
class CStatusWords;
class CWallSights;
class IEditorCommands;
class IPortStates;
struct SSelectionFigures;

/// Shows the cabinet scene, which it owns, and the tools that edit it. GUI thread.
class CLayoutGraphicsView final : public CGraphicsView
{
    Q_OBJECT

public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;
    using TypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

    /// @p ports must outlive the view.
    explicit CLayoutGraphicsView(const IPortStates &ports, QWidget *parent = nullptr);
    ~CLayoutGraphicsView() override;

    CCabinetGraphicsScene &cabinetScene() { return *m_scene; }
    CEditorToolBar &toolBar() { return *m_toolBar; }

    /// Sets what tools and menus offer beyond edits; null: nothing. The caller keeps ownership.
    void setCommands(IEditorCommands *commands);
    /// Shows @p layout, the layout of @p processor. If another processor was shown before, the processor's
    /// scale and place come back, the first time the wall is fitted; its history comes back, too, unless its
    /// layout was changed elsewhere since; @p kept is what the host has of it. Otherwise zoom and position
    /// stay, and the change can be undone.
    void showLayout(const ProcessorTree::ProcessorNode &processor, const LayoutData &layout,
                    const SKeptHistory &kept = {});
    /// See ILayoutInterface::takeKey().
    bool takeKey(QKeyEvent &event);
    bool hasSteps(const QUuid &processor) const { return m_shown.hasSteps(processor); } ///< in its history
    CEditHistory *history() const { return m_shown.history(); } ///< of the processor shown; null without one
    /// Shows nothing.
    void clearLayout();
    /// With @p blocked, disables all edits.
    void setEditingBlocked(bool blocked) { setBlocked(blocked, m_backup); }
    /// The reason why what is of @p kind is refused now; empty if it is not.
    QString refusal(EditKind kind) const;
    /// What the mouse does with the tool in use; empty if nothing is shown.
    QString hint() const;

Q_SIGNALS:
    /// The ports that hold the selection.
    void notifySelectedPort(const QList<int> &ports);
    /// What is selected, once for all that happens until the event loop is back.
    void notifySelectionFigures(const SSelectionFigures &figures);
    /// The records of the selected cabinets, which cost more to build than all figures.
    void notifySelectedCabinetInfos(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets);
    /// The extent of the selection, canvas pixels; empty if nothing is selected.
    void notifySelectedCabinetGeometryChanged(const QRect &extent);
    /// From now on steps are recorded on another stack.
    void notifyUndoStackChanged(QUndoStack *stack);
    /// The steps for the user: another history is in view, or what is said of it; see CEditHistory.
    void notifyHistoryChanged(const QUndoStack *stack, const QString &beginning, const QSet<int> &savedRows);
    /// What the host must be told of the history, before anything else happens.
    void notifyEditRecorded(const SEditRecord &record);
    void notifyHintChanged();

public Q_SLOTS:
    /// Undoes or redoes until @p index steps are done, unless editing is blocked or a step is refused.
    void onStepChosen(int index);
    /// The store has compared the layout after an edit, undo or redo.
    void onEdited(const CabinetLayout &known, const CabinetLayout &edited, const QVector<int> &changedPorts);
    void onTopologyButtonClicked(int pattern);
    /// Makes the next press in the scene place cabinets of @p type and @p size in @p port.
    void onNotifyAppendCabinet(const SSettings::TypeLibrary::STreeNode::RcvTypeInfo &type, int port,
                               const QSize &size);
    /// Selects or deselects everything that @p port holds.
    void onPortClicked(int port, bool selected);
    /// Selects everything that @p ports hold, and nothing else.
    void onPortsChosen(const QVector<int> &ports);
    /// @p port is the current one now, or none is: what waits to be placed goes there.
    void onPortToggled(int port, bool current);
    /// Arranges the selection in @p columns columns.
    void onNotifySelectedCabinetRankChanged(const QSize &rank);
    void onNotifySelectedCabinetPositionChanged(const QPoint &corner);
    void onNotifySelectedCabinetSizeChanged(const QSize &size);
    void onNotifySelectedChanged(const QList<int> &ports, bool canGroup, bool canBreakGroup);
    void onNotifySceneChanged();
    /// Ends the highlight of cabinets and the highlighting mode.
    void cancelCalibrate();
    void clearSelected();
    void showCabinetInfo(int port);
    void ShowEleCurrentAdjustDialog();
    void markupCustomCabinet(bool markup);
    void saveCabinetPara(int port);
    /// The processor in view, or its state, has changed.
    void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processorInfo);
    /// A redundancy processor follows its primary; its layout cannot be edited.
    void onCurrentProcessorBackupChanged(bool isBackup);
    void onToolButtonClicked(int id);
    void onToolButtonToggled(int id, bool checked);
    void onScaleChanged();
    void onScorllBarRangeChanged();
    void onNotifyCanUndoChanged(bool canUndo);
    void onNotifyCanRedoChanged(bool canRedo);
    void onNotifySelectedItemGeometryChanged();

protected:
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void buildUi();
    void connectTools();
    void connectScene();
    bool isBlocked() const { return m_blocked || m_backup; }
    void setBlocked(bool byController, bool asBackup);
    void highlight();
    void showHistory();
    void tellSelection();

    CCabinetGraphicsScene *m_scene;
    std::unique_ptr<CSceneInput> m_input;
    CShownLayout m_shown;
    CEditorToolBar *m_toolBar;
    CStatusWords *m_words;
    std::unique_ptr<CCanvasKeys> m_keys;
    std::unique_ptr<CWallSights> m_sights;
    IEditorCommands *m_commands = nullptr;
    const CFarPorts *m_farPorts = nullptr; // during a frame
    QTimer m_selectionTold;                // runs out when the selection is to be announced
    bool m_blocked = false;                // by the controller
    bool m_backup = false;                 // the processor in view follows another one
};
