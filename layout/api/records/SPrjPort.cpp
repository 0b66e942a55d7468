// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/SPrjPort.h"

#include <tuple>

bool operator==(const SPrjPort &a, const SPrjPort &b)
{
    const auto tied = [](const SPrjPort &p) {
        return std::tie(p.processor, p.index, p.cabinetCount, p.load, p.area, p.redundancyPort, p.version,
                        p.brightness, p.uuid, p.port);
    };
    return tied(a) == tied(b);
}
