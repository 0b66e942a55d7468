// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

/// One side of a comparison: work that is timed, between what is not.
struct SWork
{
    std::function<void()> prepare; ///< may be empty
    std::function<void()> run;
    std::function<void()> finish; ///< may be empty
};

/// What a piece of work costs beside its reference; mostly milliseconds.
struct SFigure
{
    const char *name;      ///< begins with the goal's id
    int count;             ///< of the cabinets
    double cost;           ///< median
    const char *reference; ///< what was measured beside it
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

/// The medians of both sides in milliseconds. The sides take turns, so that what else the
/// machine does meets both; a first turn that warms up does not count.
SMedians compare(int repetitions, const SWork &work, const SWork &reference);
/// The same for costs that the sides tell themselves.
SMedians compare(int repetitions, const std::function<double()> &work,
                 const std::function<double()> &reference);

/// Writes one JSON object on a line of the standard output.
void print(const SFigure &figure);

} // namespace Figures
