// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/LayoutData.h"

#include <algorithm>

namespace {

using Cabinet = CabinetLayout::CabinetPort::Cabinet;
using Group = CabinetLayout::CabinetPort::CabinetGroup;

bool sameCabinet(Cabinet a, Cabinet b, bool withMapping)
{
    if (!withMapping) {
        a.rank = b.rank = -1;
        a.mappingIndex = b.mappingIndex = -1;
    }
    a.calibrationIndex = b.calibrationIndex = -1; // a running highlight is no difference of the layout
    return a == b;
}

bool sameGroup(const Group &a, const Group &b, bool withMapping)
{
    const auto cabinets = [withMapping](const Cabinet &x, const Cabinet &y) {
        return sameCabinet(x, y, withMapping);
    };
    const auto groups = [withMapping](const Group &x, const Group &y) {
        return sameGroup(x, y, withMapping);
    };
    return a.uuid == b.uuid && a.name == b.name &&
           std::equal(a.cabinets.begin(), a.cabinets.end(), b.cabinets.begin(), b.cabinets.end(), cabinets) &&
           std::equal(a.groups.begin(), a.groups.end(), b.groups.begin(), b.groups.end(), groups);
}

} // namespace

bool LayoutData::comparePortData(const CabinetLayout::CabinetPort &a, const CabinetLayout::CabinetPort &b,
                                 bool withMapping)
{
    const auto groups = [withMapping](const Group &x, const Group &y) {
        return sameGroup(x, y, withMapping);
    };
    return std::equal(a.groups.begin(), a.groups.end(), b.groups.begin(), b.groups.end(), groups);
}
