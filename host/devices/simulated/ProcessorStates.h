// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

enum class SimulationFault : int;
struct SProcessorSettings;

/// The things that a simulated processor can be told to show which are settings of a working processor, not
/// faults. Any thread.
namespace ProcessorStates {

/// Whether @p state is one of them.
bool contains(SimulationFault state);
bool isOn(const SProcessorSettings &settings, SimulationFault state);
/// Switches @p state in @p settings. A work mode that is switched off gives way to the usual one.
void set(SProcessorSettings &settings, SimulationFault state, bool on);

} // namespace ProcessorStates
