// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/PairObstacle.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/api/records/ProcessorPairs.h"

using Host = ILayoutInterfaceHandler;

QString PairObstacle::of(const ProcessorTree::ProcessorNode &primary,
                         const ProcessorTree::ProcessorNode &redundancy)
{
    return ProcessorPairs::portObstacle(primary, CHostAccess::call<&Host::layoutData>(primary.uuid).layout,
                                        redundancy,
                                        CHostAccess::call<&Host::maximumPortCount>(redundancy.uuid));
}
