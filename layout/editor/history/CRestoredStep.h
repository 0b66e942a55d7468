// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/history/CStepValues.h"
#include "layout/editor/undo/IHistoryStep.h"

#include <QHash>
#include <QUndoCommand>

class CSceneContent;

/// A step that is undone and redone from values: replaces the content of its ports. Never merges. GUI thread.
class CRestoredStep final : public QUndoCommand, public IHistoryStep
{
public:
    /// While @p inert is true, undo and redo do nothing, so that the step can be put on a stack that shows
    /// where it leads already. Everything must outlive the step.
    CRestoredStep(std::shared_ptr<const CStepValues> values, CSceneContent &content, const bool &inert);

    void undo() override;
    void redo() override;

    QVector<int> ports() const override { return m_values->ports(); }
    /// The cabinets that differ, or the outermost groups around them.
    QVector<QUuid> selection() const override { return m_selection; }

private:
    bool apply(CPortDelta::ESide side); // returns whether it fits the layout
    void select(const QVector<QUuid> &cabinets);

    std::shared_ptr<const CStepValues> m_values;
    CSceneContent &m_content;
    const bool &m_inert;
    QVector<QUuid> m_selection;
    // While the step is undone, of what it will bring back: steps above it re-create items with them.
    QHash<QUuid, qint64> m_ordinals;
};
