// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CEditRule.h"

#include "layout/api/records/EditRefusal.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/items/CRefusal.h"

QString CEditRule::refusal(EditKind kind, const QString &block, bool hand)
{
    if (!block.isEmpty())
        return block;
    return hand && kind == EditKind::Edit ? tr("The hand tool only looks.") : QString();
}

QString CEditRule::undoing(bool possible)
{
    return possible ? QString() : tr("There is nothing to undo.");
}

QString CEditRule::redoing(bool possible)
{
    return possible ? QString() : tr("There is nothing to redo.");
}

QString CEditRule::selected(const CSceneSelection &selection)
{
    return selection.isEmpty() ? EditRefusal::nothingSelected() : CRefusal::reason(selection.closedPort());
}

QString CEditRule::grouping(const CSceneSelection &selection, bool possible)
{
    const QString refused = selected(selection);
    return possible || !refused.isEmpty()
               ? refused
               : tr("A group needs several cabinets or groups of one output port.");
}

QString CEditRule::ungrouping(const CSceneSelection &selection, bool possible)
{
    const QString refused = selected(selection);
    return possible || !refused.isEmpty() ? refused : tr("No group is selected.");
}
