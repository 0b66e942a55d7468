// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/screen/LitWall.h"

#include <algorithm>

namespace {

using WallPort = PortPairs::Port;
using Mirror = QVector<WallPort::Cabinet>;

void darken(QVector<WallPort::CabinetGroup> &groups, const Mirror &carried)
{
    const auto isDark = [&carried](const WallPort::Cabinet &cabinet) {
        return cabinet.rank >= 0 &&
               std::none_of(carried.begin(), carried.end(), [&cabinet](const WallPort::Cabinet &other) {
                   return other.rect == cabinet.rect;
               });
    };
    for (WallPort::CabinetGroup &group : groups) {
        group.cabinets.erase(std::remove_if(group.cabinets.begin(), group.cabinets.end(), isDark),
                             group.cabinets.end());
        darken(group.groups, carried);
    }
}

} // namespace

CabinetLayout LitWall::of(CabinetLayout layout, const QSet<SPortKey> &unplugged,
                          const PortPairs::LayoutOf &layoutOf,
                          const std::function<bool(const QUuid &processor)> &isOnline)
{
    const CabinetLayout whole = layout;
    for (WallPort &port : layout.ports) {
        if (!unplugged.contains({whole.processor, port.index}))
            continue;
        Mirror carried;
        const SPortKey other = PortPairs::partnerKey(whole, port);
        if (port.redundancy == WallPort::Primary && !unplugged.contains(other) &&
            (other.processor == whole.processor || isOnline(other.processor))) {
            if (const auto backup = PortPairs::partner(whole, port, layoutOf))
                carried = backup->mirrored;
        }
        darken(port.groups, carried);
    }
    return layout;
}
