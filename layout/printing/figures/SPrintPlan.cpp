// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/figures/SPrintPlan.h"

#include "layout/api/records/LoadSum.h"
#include "layout/printing/figures/CPlanBuilder.h"

#include <cmath>

SPrintPlan SPrintPlan::of(const SPrintInput &input, const SPrintJob &job)
{
    SPrintInput known = input;
    known.takeTypes();
    return CPlanBuilder(known, job).build();
}

QString SCableRun::metres(int stock, const PrintConfig::SCables &cables)
{
    const int longest = cables.stock.isEmpty() ? 0 : cables.stock.last();
    return stock > 0 ? QString::number(stock) : QStringLiteral("> %1").arg(longest);
}

double SPlanTotals::amperes(qint64 watts, int volts)
{
    return volts > 0 ? double((watts * 10 + volts - 1) / volts) / 10 : 0;
}

int SPlanTotals::load(const QVector<int> &loads)
{
    return LoadSum::mean(loads);
}

QString SPlanPort::redundancyText() const
{
    return looped || redundant
               ? CPlanBuilder::tr("%1, port %2").arg(redundancyName, QString::number(redundancyPort + 1))
               : QString();
}

const SPlanPort *SPlanProcessor::port(int index) const
{
    return index >= 0 && index < ports.size() ? &ports.at(index) : nullptr;
}
