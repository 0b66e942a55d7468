// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PortPairs.h"

#include <QSet>

#include <functional>

/// What is still lit on a wall when cables are unplugged. Pure function.
namespace LitWall {

/// Returns @p layout without the wired cabinets that no signal reaches: those of an output port in
/// @p unplugged, unless its redundancy port is plugged in, has the cabinet in its mirror, and is on the same
/// processor or one of which @p isOnline is true. For @p layoutOf see PortPairs.
CabinetLayout of(CabinetLayout layout, const QSet<SPortKey> &unplugged, const PortPairs::LayoutOf &layoutOf,
                 const std::function<bool(const QUuid &processor)> &isOnline);

} // namespace LitWall
