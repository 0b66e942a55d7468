// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/editor/random/RandomKinds.h"

#include <QAction>
#include <QHash>
#include <QMenu>

/// The entries in menus of the canvas that edit or select.
namespace MenuEntries {

/// The kind of edit of each entry.
inline const QHash<QString, int> &kinds()
{
    using namespace RandomKinds;
    static const QHash<QString, int> byText = {{QStringLiteral("Group"), Group},
                                               {QStringLiteral("Ungroup"), Ungroup},
                                               {QStringLiteral("Select all"), SelectAll},
                                               {QStringLiteral("Cut"), Cut},
                                               {QStringLiteral("Copy"), Copy},
                                               {QStringLiteral("Paste"), Paste},
                                               {QStringLiteral("Delete cabinet"), Delete},
                                               {QStringLiteral("Set type..."), SetType},
                                               {QStringLiteral("Clear topology"), ClearPort},
                                               {QStringLiteral("Select the same type"), SameType}};
    return byText;
}

inline QVector<QAction *> editing(const QMenu &menu)
{
    QVector<QAction *> entries;
    for (QAction *action : menu.actions()) {
        if (action->menu())
            entries += editing(*action->menu());
        else if (action->isEnabled() && kinds().contains(action->text()))
            entries << action;
    }
    return entries;
}

} // namespace MenuEntries
