// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"
#include "layout/editor/view/CEditHistories.h"

class CCabinetGraphicsScene;

/// Which processor's layout a scene shows, and the history that its edits are recorded in. GUI thread.
class CShownLayout final
{
public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;

    /// @p scene must not record on a stack of this object any more when it is destroyed.
    explicit CShownLayout(CCabinetGraphicsScene &scene)
        : m_scene(scene)
    {
    }

    const QUuid &processor() const { return m_processor; } ///< null: none
    /// Makes the scene record on the stack of @p processor, whose layout comes into view as @p layout; then
    /// nothing is shown before show() is called.
    QUndoStack &enter(const QUuid &processor, const CabinetLayout &layout);
    /// Shows @p layout: as a step that can be undone unless @p anew.
    void show(const ProcessorTree::ProcessorNode &processor, const LayoutData &layout, bool anew);
    /// Shows nothing; the history is kept for when the processor comes back.
    void leave();

    /// What stands at the top of @p ports: their groups, and the cabinets that are in none.
    QVector<QUuid> itemsOf(const QVector<int> &ports) const;
    /// Those of one port.
    QList<Cabinet> cabinets(int port) const;

private:
    CCabinetGraphicsScene &m_scene;
    CEditHistories m_histories;
    QUuid m_processor;
};
