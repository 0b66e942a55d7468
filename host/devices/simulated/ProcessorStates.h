// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

enum class SimulationFault : int;
struct SProcessorSettings;

/// The values of SimulationFault that are settings of a working processor, not faults. Any thread.
namespace ProcessorStates {

/// Whether @p state is one of them.
bool contains(SimulationFault state);
bool isOn(const SProcessorSettings &settings, SimulationFault state);
/// Switches @p state in @p settings. Switching a work mode off restores the normal one.
void set(SProcessorSettings &settings, SimulationFault state, bool on);

} // namespace ProcessorStates
