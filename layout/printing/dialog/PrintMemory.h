// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintJob.h"

/// Remembers the settings of print jobs in the user's settings, for the next job. GUI thread.
namespace PrintMemory {

/// What was remembered last; the usual settings where there is nothing, or nothing that can be used.
SPrintJob load();
/// The date is not kept: each plan is of the day on which it is made, unless it is chosen.
void save(const SPrintJob &job);

} // namespace PrintMemory
