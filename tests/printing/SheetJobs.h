// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CProcessorProject.h"
#include "layout/api/records/PrintConfig.h"
#include "layout/printing/sheets/SSheet.h"

/// Makes the sheets of whole jobs.
namespace SheetJobs {

/// Lists alone, with every text that title blocks tell.
PrintConfig configOf(PrintConfig::Paper paper, bool landscape = true);
/// Empty if they are refused.
QVector<SSheet> sheetsOf(const PrintConfig &config, const QVector<SProcessorProject> &projects);

} // namespace SheetJobs
