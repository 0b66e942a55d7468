// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CEditRule.h"

QString CEditRule::block(bool locked, bool backup)
{
    if (backup)
        return tr("A redundancy processor follows its primary");
    return locked ? tr("Editing is locked") : QString();
}

QString CEditRule::refusal(EditKind kind, const QString &block, bool hand)
{
    if (!block.isEmpty())
        return block;
    return hand && kind == EditKind::Edit ? tr("The hand tool only looks") : QString();
}
