// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintPlan.h"
#include "layout/printing/sheets/CSheetTable.h"
#include "layout/printing/sheets/SSheetArea.h"

#include <QCoreApplication>

struct SPartsTally;

/// The sheets that tell what a job needs: cabinets, cables and power.
class CPartsList final
{
    Q_DECLARE_TR_FUNCTIONS(CPartsList)

public:
    static QVector<SSheet> sheets(const SPrintPlan &plan, const SSheetArea &area);

    /// Where the rack stands, and what the cables reach.
    static QStringList rackNotes(const SPlanProcessor &processor);
};
