// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintPlan.h"
#include "layout/printing/sheets/CTableFlow.h"

#include <QCoreApplication>

/// Adds the totals of a job to its cover: a line for each.
class CCoverTotals final
{
    Q_DECLARE_TR_FUNCTIONS(CCoverTotals)

public:
    CCoverTotals(const SPrintPlan &plan, CTableFlow &flow);
    void add();

private:
    void addLine(const QString &name, const QString &value, const QString &note);
    void endLines(double width);
    void addProcessors();
    void addPower(const QString &name, qint64 watts, bool complete);
    void addLoad();

    const SPrintPlan &m_plan;
    CTableFlow &m_flow;
};
