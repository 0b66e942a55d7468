// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"
#include "layout/plugin/CWholeModuleWarningWidget.h"

#include <optional>

/// What the device tree's selection means for the module's pages.
namespace SelectionRules {

/// The warning for a selection of @p processors in a node of @p type, a group's members included; nothing
/// when the editor can show it, or, of several, the summary. @p anyOnline: some processor of the tree is
/// online. Project processors count as online.
std::optional<WarningState> warningFor(PrcTreeNodeType type,
                                       const QList<ProcessorTree::ProcessorNode> &processors, bool anyOnline);

} // namespace SelectionRules
