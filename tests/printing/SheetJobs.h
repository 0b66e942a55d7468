// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CProcessorProject.h"
#include "layout/api/records/PrintConfig.h"
#include "layout/printing/figures/SPrintInput.h"
#include "layout/printing/sheets/SSheet.h"

/// Makes the sheets of whole jobs.
namespace SheetJobs {

/// Lists alone, with every text that title blocks tell.
PrintConfig configOf(PrintConfig::Paper paper, bool landscape = true);
/// Empty if they are refused.
QVector<SSheet> sheetsOf(const PrintConfig &config, const QVector<SProcessorProject> &projects);
/// Those @p kinds of sheets of a small wall.
QVector<SSheet> someSheets(int kinds);
/// "Main", a medium wall, and "Side", a small one.
SPrintInput twoWalls();

} // namespace SheetJobs
