// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"
#include "layout/plugin/CWholeModuleWarningWidget.h"

#include <optional>

/// Decides which page the module shows for the selection in the device tree.
namespace SelectionRules {

/// The warning for a selection of @p processors (including the members of a group) in a node of @p type;
/// empty if the editor or, for several processors, the summary can show them. @p anyOnline: at least one
/// processor of the tree is online. Project processors count as online.
std::optional<WarningState> warningFor(PrcTreeNodeType type,
                                       const QList<ProcessorTree::ProcessorNode> &processors, bool anyOnline);

} // namespace SelectionRules
