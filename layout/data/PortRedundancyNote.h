// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PortPairs.h"
#include "layout/api/records/ProcessorTree.h"

/// What a port's button says about the pair of the port.
struct SPortRedundancyNote
{
    QString text;            ///< for the user; empty: nothing to say
    bool needsReset = false; ///< the mapping must be saved again, or the pair ended

    using NodeOf = std::function<ProcessorTree::ProcessorNode(const QUuid &processor)>;

    /// The note for the port with index @p port of @p layout. O(n) in the cabinets of the port and its
    /// primary. @p layoutOf and @p nodeOf are called for other processors only.
    static SPortRedundancyNote of(const CabinetLayout &layout, int port, const PortPairs::LayoutOf &layoutOf,
                                  const NodeOf &nodeOf);

    friend bool operator==(const SPortRedundancyNote &a, const SPortRedundancyNote &b)
    {
        return a.text == b.text && a.needsReset == b.needsReset;
    }
};
