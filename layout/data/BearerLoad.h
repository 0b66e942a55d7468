// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/SPortLoad.h"

#include <optional>

/// Loads of output ports, of which the host is asked.
namespace BearerLoad {

/// The host's figures for the primary on another processor of @p port of @p processor. Empty if @p port is no
/// redundancy port, its primary is on the same processor, or the pair is broken. Any thread.
std::optional<SPortLoad> elsewhere(const QUuid &processor, const CabinetLayout::CabinetPort &port);

/// The host's figures for @p port of @p layout: those of its primary if it is a redundancy port, on whichever
/// processor that is. Pending edits are handed over first. Any thread.
SPortLoad of(const CabinetLayout &layout, int port);

} // namespace BearerLoad
