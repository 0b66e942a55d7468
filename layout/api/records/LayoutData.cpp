// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/LayoutData.h"

#include <algorithm>

namespace {

using Cabinet = CabinetLayout::CabinetPort::Cabinet;
using Group = CabinetLayout::CabinetPort::CabinetGroup;

bool sameCabinet(Cabinet a, Cabinet b, bool withRanks)
{
    if (!withRanks)
        a.rank = b.rank = -1;
    a.mappingIndex = b.mappingIndex = -1;         // places belong to the processor
    a.calibrationIndex = b.calibrationIndex = -1; // a running highlight is not part of the layout
    return a == b;
}

bool sameGroup(const Group &a, const Group &b, bool withRanks)
{
    const auto cabinets = [withRanks](const Cabinet &x, const Cabinet &y) {
        return sameCabinet(x, y, withRanks);
    };
    const auto groups = [withRanks](const Group &x, const Group &y) { return sameGroup(x, y, withRanks); };
    return a.uuid == b.uuid && a.name == b.name &&
           std::equal(a.cabinets.begin(), a.cabinets.end(), b.cabinets.begin(), b.cabinets.end(), cabinets) &&
           std::equal(a.groups.begin(), a.groups.end(), b.groups.begin(), b.groups.end(), groups);
}

} // namespace

bool LayoutData::comparePortData(const CabinetLayout::CabinetPort &a, const CabinetLayout::CabinetPort &b,
                                 bool withRanks)
{
    if (a.groups.constData() == b.groups.constData() && a.groups.size() == b.groups.size())
        return true; // shared
    const auto groups = [withRanks](const Group &x, const Group &y) { return sameGroup(x, y, withRanks); };
    return std::equal(a.groups.begin(), a.groups.end(), b.groups.begin(), b.groups.end(), groups);
}
