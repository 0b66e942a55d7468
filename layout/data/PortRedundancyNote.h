// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PortPairs.h"
#include "layout/api/records/ProcessorTree.h"

/// What a port's button says of the pair that the port belongs to.
struct SPortRedundancyNote
{
    QString text;            ///< for the user; empty: nothing to say
    bool needsReset = false; ///< the mapping must be saved again, or the pair ended

    using NodeOf = std::function<ProcessorTree::ProcessorNode(const QUuid &processor)>;

    /// For the port with index @p port of @p layout. Costs as much as the port and its primary have cabinets;
    /// @p layoutOf and @p nodeOf are asked for another processor only.
    static SPortRedundancyNote of(const CabinetLayout &layout, int port, const PortPairs::LayoutOf &layoutOf,
                                  const NodeOf &nodeOf);

    friend bool operator==(const SPortRedundancyNote &a, const SPortRedundancyNote &b)
    {
        return a.text == b.text && a.needsReset == b.needsReset;
    }
};
