// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"

class QAction;
class QIcon;
class QMenu;

/// Cabinet types as menu entries with the type's record (RcvTypeInfo) in their data. GUI thread.
namespace TypeMenu {

/// The icon of a type: one receiver card, or several.
QIcon icon(const SSettings::TypeLibrary::STreeNode::RcvTypeInfo &type);

/// Adds an entry with @p text, in which "&" has no special meaning; disabled if the type's file is damaged.
QAction *addType(QMenu &menu, const SSettings::TypeLibrary::STreeNode::RcvTypeInfo &type,
                 const QString &text);

/// Adds the library's tree in stored order: folders become submenus, types become entries with their names.
void addLibrary(QMenu &menu, const QVector<SSettings::TypeLibrary::STreeNode> &nodes);

} // namespace TypeMenu
