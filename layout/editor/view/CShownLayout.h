// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/editor/view/CEditHistories.h"

#include <QCoreApplication>

#include <functional>

class CCabinetGraphicsScene;

/// What the host knows of a layout that comes into view.
struct SKeptHistory
{
    SEditHistory history;                    ///< of an earlier run; used if the editor has no steps
    SUnsavedEdits edits;                     ///< of the layout
    qint64 limit = CEditHistory::UsualLimit; ///< see CEditHistory::setLimit()
};

/// Which processor's layout a scene shows, and the history that its edits are recorded in. GUI thread.
class CShownLayout final
{
    Q_DECLARE_TR_FUNCTIONS(CShownLayout)

public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;

    using Tell = std::function<void(const SEditRecord &)>;

    /// @p scene must not record on a stack of this object any more when it is destroyed. @p tell gets what
    /// the host must be told of the history.
    CShownLayout(CCabinetGraphicsScene &scene, Tell tell);

    const QUuid &processor() const { return m_processor; } ///< null: none
    bool hasSteps(const QUuid &processor) const { return m_histories.hasSteps(processor); }
    CEditHistory *history() const { return m_history; } ///< of the processor that is shown; null without one
    /// Makes the scene record in the history of the processor of @p layout, which comes into view; then
    /// nothing is shown before show() is called.
    CEditHistory &enter(const CabinetLayout &layout, const SKeptHistory &kept);
    /// Shows @p layout: as a step that can be undone unless @p anew.
    void show(const ProcessorTree::ProcessorNode &processor, const LayoutData &layout, bool anew,
              const SUnsavedEdits &edits);
    /// Call after each edit, undo and redo.
    void note(const SComparedEdit &edit);
    /// Shows nothing; the history is kept for when the processor comes back.
    void leave();

    /// What stands at the top of @p ports: their groups, and the cabinets that are in none.
    QVector<QUuid> itemsOf(const QVector<int> &ports) const;
    /// Those of one port.
    QList<Cabinet> cabinets(int port) const;

private:
    CCabinetGraphicsScene &m_scene;
    Tell m_tell;
    CEditHistories m_histories;
    CEditHistory *m_history = nullptr;
    QUuid m_processor;
};
