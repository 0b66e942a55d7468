// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintInput.h"
#include "layout/printing/figures/SPrintJob.h"

/// Remembers the settings of print jobs in the user's settings, for the next job. GUI thread.
namespace PrintMemory {

/// What was remembered last; the usual settings where there is nothing, or nothing that can be used.
SPrintJob load();
/// The job with which a dialog opens: what was remembered, but what projects have @p kept comes first, and of
/// the first of the @p chosen processors it holds for the whole job.
SPrintJob opened(const SPrintInput &input, const QList<QUuid> &chosen, const QMap<QUuid, PrintConfig> &kept);
/// @p usual with what the user changed from @p opened to @p closed, and nothing else.
PrintConfig changed(const PrintConfig &usual, const PrintConfig &opened, const PrintConfig &closed);
/// The date is not kept: each plan is of the day on which it is made, unless it is chosen.
void save(const SPrintJob &job);

} // namespace PrintMemory
