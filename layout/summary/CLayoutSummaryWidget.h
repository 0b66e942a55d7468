// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"
#include "layout/summary/SSummaryProcessor.h"

#include <QList>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class COffsetHistory;
class CSummaryGraphicsView;
class CSummaryLabel;
class QAction;
class QHBoxLayout;
class QLabel;
class QMenu;

/// The page for several processors: shows their areas on the shared canvas, passes the offsets set by the
/// user to the host, and undoes them. GUI thread.
class CLayoutSummaryWidget final : public QWidget
{
    Q_OBJECT

public:
    explicit CLayoutSummaryWidget(QWidget *parent = nullptr);
    ~CLayoutSummaryWidget() override;

    /// Shows @p processors with the areas that the host has now; those in fibre optic transceiver mode have
    /// none.
    void showProcessors(const QList<ProcessorTree::ProcessorNode> &processors);
    /// With @p blocked, the user cannot move processors.
    void setEditingBlocked(bool blocked);
    void fillEditMenu(QMenu &menu) const; ///< see ILayoutInterface

private:
    void buildUi();
    QHBoxLayout *titleRow();
    QAction *addStep(QHBoxLayout &row, const QString &icon, const QString &text,
                     const QList<QKeySequence> &keys);
    void connectSignals();
    void onMoved(const ProcessorOffsets &before, const ProcessorOffsets &after);
    void undo();
    void redo();
    void carryOut(const std::function<void()> &step);
    bool place(const ProcessorOffsets &offsets);
    static bool write(const ProcessorOffsets &offsets);
    void tellProblem();
    void updateLabel();
    void updateSteps();
    QString noteOn(const QVector<SSummaryProcessor> &selection) const;

    QLabel *m_count = nullptr;
    CSummaryGraphicsView *m_view = nullptr;
    CSummaryLabel *m_label = nullptr;
    QAction *m_undo = nullptr;
    QAction *m_redo = nullptr;
    const std::unique_ptr<COffsetHistory> m_history;
    bool m_blocked = false;
    bool m_busy = false;                                          // with a step in the host
    std::optional<QList<ProcessorTree::ProcessorNode>> m_waiting; // to be shown after it
};
