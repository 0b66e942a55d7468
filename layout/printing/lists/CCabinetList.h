// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintPlan.h"
#include "layout/printing/sheets/SSheet.h"
#include "layout/printing/sheets/SSheetArea.h"

#include <QCoreApplication>

/// The sheets with one row for each cabinet.
class CCabinetList final
{
    Q_DECLARE_TR_FUNCTIONS(CCabinetList)

public:
    static QVector<SSheet> sheets(const SPrintPlan &plan, int processor, const SSheetArea &area);
};
