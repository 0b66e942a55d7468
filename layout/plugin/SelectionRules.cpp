// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/SelectionRules.h"

#include <algorithm>

std::optional<WarningState> SelectionRules::warningFor(PrcTreeNodeType type,
                                                       const QList<ProcessorTree::ProcessorNode> &processors,
                                                       bool anyOnline)
{
    using Node = ProcessorTree::ProcessorNode;
    if (processors.isEmpty())
        return anyOnline ? WarningState::NoneSelected : WarningState::NoProcessorOnline;
    const auto withoutArea = std::count_if(processors.begin(), processors.end(),
                                           [](const Node &node) { return node.fiberTransceiver; });
    const bool group = type == PrcTreeNodeType::Group;
    if (group && withoutArea > 0)
        return WarningState::FiberTransceiverInGroup;
    if (group || processors.size() > 1) {
        const bool several = processors.size() - withoutArea > 1;
        return several ? std::nullopt : std::optional(WarningState::SeveralSelected);
    }
    if (!processors.first().online)
        return WarningState::Offline;
    if (processors.first().fiberTransceiver)
        return WarningState::FiberTransceiver;
    return std::nullopt;
}
