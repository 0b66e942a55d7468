// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

/// Arithmetic of port and processor loads, in percent of the capacity.
namespace PortLoads {

/// The mean of the ports' loads, see LoadSum::mean().
int processorLoad(const QVector<CabinetLayout::CabinetPort> &ports);

/// The port whose load @p port shows: its primary if it is a redundancy port within the same processor, else
/// itself; see BearerLoad for primaries elsewhere. Null if there is no such port. Points into @p layout.
const CabinetLayout::CabinetPort *loadBearer(const CabinetLayout &layout, int port);

/// The redundancy port that also shows the load of @p port; -1 if there is none on this processor.
int loadFollower(const CabinetLayout &layout, int port);

} // namespace PortLoads
