// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

struct SPlanProcessor;
struct SPrintPlan;

/// Tells sheets of one state of a layout from those of another.
namespace LayoutVersion {

/// Eight hexadecimal digits, "C379-AAD8": a digest of the processor's name, its signal and canvas, and of its
/// ports with their redundancy and their cabinets in the order of the wiring. Identities, colours, locks and
/// settings of the print do not count, but for the identity of another processor that has a redundancy port
/// of this one: its name is not known everywhere.
QString of(const SPlanProcessor &processor);
/// That of the whole job: of its only processor, or a digest of all their versions.
QString of(const SPrintPlan &plan);

} // namespace LayoutVersion
