// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/CurrentPortRule.h"

SCurrentPort CurrentPortRule::after(const SCurrentPort &before, PortEvent event, const QVector<int> &ports,
                                    int chosen)
{
    const int first = ports.isEmpty() ? -1 : ports.first();
    const auto existing = [&ports](int port, int otherwise) {
        return ports.contains(port) ? port : otherwise;
    };
    switch (event) {
    case PortEvent::Suspended:
        return {-1, before.ofWall};
    case PortEvent::PortsChanged:
        if (before.port < 0)
            return before;
        return {existing(before.port, first), existing(before.ofWall, first)};
    case PortEvent::WallShown: {
        const int port = existing(before.port, existing(before.ofWall, first));
        return {port, port};
    }
    case PortEvent::NewWall:
        return {first, first};
    case PortEvent::Chosen:
        return ports.contains(chosen) ? SCurrentPort{chosen, chosen} : before;
    }
    return before;
}
