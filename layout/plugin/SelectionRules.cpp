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
    if (type == PrcTreeNodeType::Group) {
        const bool fiber = std::any_of(processors.begin(), processors.end(),
                                       [](const Node &node) { return node.fiberTransceiver; });
        return fiber ? WarningState::FiberTransceiverInGroup : WarningState::SeveralSelected;
    }
    if (processors.size() > 1)
        return WarningState::SeveralSelected;
    if (!processors.first().online)
        return WarningState::Offline;
    if (processors.first().fiberTransceiver)
        return WarningState::FiberTransceiver;
    return std::nullopt;
}
