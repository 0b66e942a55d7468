// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/ProcessorTree.h"

/// Rules for the two processors of a pair. Host and module give the same reasons.
namespace ProcessorPairs {

/// How many output ports a layout needs: those up to the last one that holds cabinets or is paired. O(ports).
int portsHeld(const CabinetLayout &layout);

/// Why a processor with @p ports output ports (0: not known) cannot take over for @p primary, whose layout is
/// @p layout: a port that is used there is missing. Empty if it can, as far as is known. O(ports).
QString portObstacle(const ProcessorTree::ProcessorNode &primary, const CabinetLayout &layout,
                     const ProcessorTree::ProcessorNode &redundancy, int ports);

} // namespace ProcessorPairs
