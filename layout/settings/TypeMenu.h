// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"

class QAction;
class QIcon;
class QMenu;

/// Cabinet types as entries of a menu, which carry the type's record (RcvTypeInfo) in their data. GUI thread.
namespace TypeMenu {

/// The picture of a type: of one receiver card, or of several.
QIcon icon(const SSettings::TypeLibrary::STreeNode::RcvTypeInfo &type);

/// Adds one entry with @p text, in which "&" is nothing special; disabled when the type's file is damaged.
QAction *addType(QMenu &menu, const SSettings::TypeLibrary::STreeNode::RcvTypeInfo &type,
                 const QString &text);

/// Adds the library's tree in stored order: a folder becomes a submenu, a type an entry with its name.
void addLibrary(QMenu &menu, const QVector<SSettings::TypeLibrary::STreeNode> &nodes);

} // namespace TypeMenu
