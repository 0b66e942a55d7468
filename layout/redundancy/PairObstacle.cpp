// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/PairObstacle.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/api/records/ProcessorPairs.h"

QString PairObstacle::of(const ProcessorTree::ProcessorNode &primary,
                         const ProcessorTree::ProcessorNode &redundancy)
{
    using Handler = ILayoutInterfaceHandler;
    return ProcessorPairs::portObstacle(primary, CHostAccess::call<&Handler::layoutData>(primary.uuid).layout,
                                        redundancy,
                                        CHostAccess::call<&Handler::maximumPortCount>(redundancy.uuid));
}
