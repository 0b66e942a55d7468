// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

/// One side of a comparison: timed work, with untimed work before and after it.
struct SWork
{
    std::function<void()> prepare; ///< may be empty
    std::function<void()> run;
    std::function<void()> finish; ///< may be empty
};

/// The cost of some work compared with its reference; mostly in milliseconds.
struct SFigure
{
    const char *name;      ///< begins with the goal's id
    int count;             ///< number of cabinets
    double cost;           ///< median
    const char *reference; ///< what it is compared with
    double referenceCost;  ///< median
};

/// The medians of several repetitions.
struct SMedians
{
    double work;
    double reference;
};

/// Measures and prints figures.
namespace Figures {

/// The wall time of one run.
double milliseconds(const SWork &work);

/// The medians of both sides in milliseconds. The sides take turns, so that other load on the machine affects
/// both; the first run of each is not counted.
SMedians compare(int repetitions, const SWork &work, const SWork &reference);
/// The same for costs that the sides measure themselves.
SMedians compare(int repetitions, const std::function<double()> &work,
                 const std::function<double()> &reference);

/// Writes one JSON object on a line of the standard output.
void print(const SFigure &figure);

} // namespace Figures
