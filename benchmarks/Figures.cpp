// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Figures.h"

#include <QByteArray>
#include <QVector>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {

double middleOf(QVector<double> costs)
{
    std::sort(costs.begin(), costs.end());
    const int middle = costs.size() / 2;
    return costs.size() % 2 ? costs.at(middle) : (costs.at(middle - 1) + costs.at(middle)) / 2;
}

QByteArray rounded(double value)
{
    return QByteArray::number(value, 'g', 4);
}

} // namespace

double Figures::milliseconds(const SWork &work)
{
    if (work.prepare)
        work.prepare();
    const auto start = std::chrono::steady_clock::now();
    work.run();
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    if (work.finish)
        work.finish();
    return taken.count();
}

SMedians Figures::compare(int repetitions, const std::function<double()> &work,
                          const std::function<double()> &reference)
{
    work();
    reference();
    QVector<double> workCosts;
    QVector<double> referenceCosts;
    for (int i = 0; i < repetitions; ++i) {
        workCosts << work();
        referenceCosts << reference();
    }
    return {middleOf(workCosts), middleOf(referenceCosts)};
}

SMedians Figures::compare(int repetitions, const SWork &work, const SWork &reference)
{
    return compare(
        repetitions, [&work] { return milliseconds(work); },
        [&reference] { return milliseconds(reference); });
}

void Figures::print(const SFigure &figure)
{
    const QByteArray line = QByteArrayLiteral("{\"name\":\"") + figure.name +
                            "\",\"n\":" + QByteArray::number(figure.count) +
                            ",\"ms\":" + rounded(figure.cost) + ",\"reference\":\"" + figure.reference +
                            "\",\"reference_ms\":" + rounded(figure.referenceCost) +
                            ",\"ratio\":" + rounded(figure.cost / figure.referenceCost) + "}\n";
    std::fputs(line.constData(), stdout);
    std::fflush(stdout); // a figure is of use at once when the next takes its time
}
