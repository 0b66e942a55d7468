// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/panels/CHistoryModel.h"
#include "layout/panels/ISidePanelUnit.h"
#include "platform/widgets/CUnitLabel.h"

class QListView;

/// The unit "History": the steps of the processor in view. A click, or the Return key, goes to a step. GUI
/// thread.
class CHistoryLabel final : public CUnitLabel, public ISidePanelUnit
{
    Q_OBJECT

public:
    explicit CHistoryLabel(const SUnitServices &services);

    /// Shows the steps of @p stack; null: none. @p beginning says what is before the first one.
    void showHistory(const QUndoStack *stack, const QString &beginning, const QSet<int> &savedRows)
    {
        m_model.show(stack, beginning, savedRows);
    }
    void setLayoutShown(bool shown) override; ///< no step can be chosen unseen

Q_SIGNALS:
    /// The user wants @p index steps to be done.
    void notifyStepChosen(int index);
    /// Another row is the current one; @p place is where it is in this unit.
    void notifyCurrentMoved(const QRect &place);

private:
    void buildUi();
    void choose(const QModelIndex &row);
    void markCurrent();

    CHistoryModel m_model;
    QListView *m_list;
};
