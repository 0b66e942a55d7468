// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"

namespace PairObstacle {

/// Why @p redundancy cannot take over for @p primary: a port that the primary uses is missing there. Empty if
/// it can, as far as is known. Asks the host. O(ports). GUI thread.
QString of(const ProcessorTree::ProcessorNode &primary, const ProcessorTree::ProcessorNode &redundancy);

} // namespace PairObstacle
