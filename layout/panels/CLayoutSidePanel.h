// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/panels/ISidePanelUnit.h"
#include "platform/widgets/CSidePanel.h"

#include <QPair>
#include <QRect>
#include <QVector>

#include <vector>

class CBackupLabel;
class CHistoryLabel;
class QUndoStack;

/// The column of units at the side of the layout editor. GUI thread.
class CLayoutSidePanel final : public CSidePanel
{
    Q_OBJECT

public:
    explicit CLayoutSidePanel(const SUnitServices &services, QWidget *parent = nullptr);

    bool isHistoryShown() const;
    /// Opens or folds the unit with the steps.
    void setHistoryShown(bool shown);
    void setLayoutShown(bool shown); ///< see ISidePanelUnit
    /// With @p blocked, the units refuse whatever would replace the layout.
    void setEditingBlocked(bool locked, bool redundancy); ///< see ISidePanelUnit

Q_SIGNALS:
    // Passed on from the units.
    void notifySelectedCabinetPositionChanged(const QPoint &corner);
    void notifySelectedCabinetSizeChanged(const QSize &size);
    void notifySelectedCabinetRankChanged(const QSize &rank);
    void notifyTopologybuttonClicked(int pattern);
    /// The user wants to see @p area, canvas pixels.
    void viewSceneRectChanged(const QRect &area);
    void notifySaveMappingSuccessed();
    void notifyCancelPortRedundancy(int port);
    /// The user wants everything in @p ports to be selected.
    void notifySelectPorts(const QVector<int> &ports);
    /// The user wants @p index steps of the history to be done.
    void notifyStepChosen(int index);

public Q_SLOTS:
    /// The history of another processor is in view, or it begins with something else; see CHistoryLabel.
    void onHistoryChanged(const QUndoStack *stack, const QString &beginning, const QSet<int> &savedRows);
    void onNotifyPortBackup(int primary, int backup, bool on);
    void onNotifyPortToggled(int port, bool locked);
    /// The output ports that hold the selection.
    void onNotifySelectedPort(const QList<int> &ports);
    void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor);
    void onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor);
    /// @p extent is that of the selection, canvas pixels; empty without one.
    void onNotifySelectedCabinetGeometryChanged(const QRect &extent);
    void onCurrentProcessorBackupChanged();
    void onSelectionFigures(const SSelectionFigures &figures);
    /// The same from the records of the selected cabinets.
    void onNotifySelectedCabinetInfos(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets);
    /// The areas of the ports that hold the selection, canvas pixels.
    void onNotifySelectedPortGeometryChanged(const QList<QPair<int, QRect>> &areas);
    /// Asks for the selection of everything in @p ports, and for the view to show it.
    void choosePorts(const QVector<int> &ports);

private:
    void connectStore(const CLayoutData &store);
    void portStatesChanged();
    void followHistory(const QRect &row);
    enum EFirst { OpenAtFirst, FoldedAtFirst };
    /// Adds a unit of the class @p Unit at the bottom.
    template <typename Unit>
    Unit *add(const SUnitServices &services, EFirst first = OpenAtFirst);

    CBackupLabel *m_backup = nullptr;
    CHistoryLabel *m_history = nullptr;
    std::vector<ISidePanelUnit *> m_units; // children of the panel
    QRect m_selectedArea;                  // of the ports that hold the selection
};
