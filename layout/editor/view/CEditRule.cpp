// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CEditRule.h"

QString CEditRule::refusal(EditKind kind, const QString &block, bool hand)
{
    if (!block.isEmpty())
        return block;
    return hand && kind == EditKind::Edit ? tr("The hand tool only looks") : QString();
}
