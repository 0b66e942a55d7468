// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"

/// Finding a cabinet type in the type library.
namespace TypeLibrarySearch {

/// Fills @p info from the node of @p nodes with that key, searching depth first in stored order; leaves it
/// unchanged if there is none. Among siblings the first matching type ends the search; a match inside a
/// folder does not, so a later one overwrites it.
void find(const QVector<SSettings::TypeLibrary::STreeNode> &nodes, const SMD5 &key,
          SSettings::TypeLibrary::STreeNode::RcvTypeInfo &info);

} // namespace TypeLibrarySearch
