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
/// Gives the settings in @p job whose paper is too small, and those of the processors @p unfit whose
/// drawings fail to fit, the paper and the scale of @p other.
void takePaper(SPrintJob &job, const SPrintJob &other, const QVector<QUuid> &unfit);
/// Keeps what the user changed from @p opened to @p closed: in the projects of the @p chosen processors and
/// of those with settings of their own, or else here.
void keep(const SPrintInput &input, const QList<QUuid> &chosen, const SPrintJob &opened,
          const SPrintJob &closed);
/// @p usual with what the user changed from @p opened to @p closed, and nothing else.
PrintConfig changed(const PrintConfig &usual, const PrintConfig &opened, const PrintConfig &closed);
/// The date is not kept: each plan is of the day on which it is made, unless it is chosen.
void save(const SPrintJob &job);

} // namespace PrintMemory
