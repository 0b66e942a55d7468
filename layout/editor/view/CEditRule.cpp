// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CEditRule.h"

QString CEditRule::refusal(EditKind kind, bool blocked, bool hand)
{
    if (blocked)
        return tr("Editing is locked");
    return hand && kind == EditKind::Edit ? tr("The hand tool only looks") : QString();
}
