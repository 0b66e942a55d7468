// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintPlan.h"
#include "layout/printing/sheets/SSheet.h"
#include "layout/printing/sheets/SSheetArea.h"

#include <QCoreApplication>

class CWall;

/// The sheets with one row for each output port.
class CPortTable final
{
    Q_DECLARE_TR_FUNCTIONS(CPortTable)

public:
    static QVector<SSheet> sheets(const SPrintPlan &plan, const CWall &wall, const SSheetArea &area);
};
