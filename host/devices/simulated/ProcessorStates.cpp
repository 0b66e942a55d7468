// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/ProcessorStates.h"

#include "host/devices/simulated/SProcessorSettings.h"
#include "host/devices/simulated/SSimulationFault.h"

namespace {

/// The flag that stores a state; null for work modes and faults.
bool SProcessorSettings::*flagOf(SimulationFault state)
{
    switch (state) {
    case SimulationFault::ThreeD:
        return &SProcessorSettings::threeD;
    case SimulationFault::LowLatency:
        return &SProcessorSettings::lowLatency;
    case SimulationFault::Frozen:
        return &SProcessorSettings::frozen;
    case SimulationFault::Polling:
        return &SProcessorSettings::polling;
    case SimulationFault::HdmiOutput:
        return &SProcessorSettings::hdmiOutput;
    default:
        return nullptr;
    }
}

/// The work mode that a state stands for; the normal one for all others.
ProcessorWorkMode modeOf(SimulationFault state)
{
    return state == SimulationFault::Bypass             ? ProcessorWorkMode::Bypass
           : state == SimulationFault::FiberTransceiver ? ProcessorWorkMode::FiberTransceiver
                                                        : ProcessorWorkMode::VideoProcessor;
}

} // namespace

bool ProcessorStates::contains(SimulationFault state)
{
    return flagOf(state) || modeOf(state) != ProcessorWorkMode::VideoProcessor;
}

bool ProcessorStates::isOn(const SProcessorSettings &settings, SimulationFault state)
{
    if (const auto flag = flagOf(state))
        return settings.*flag;
    return contains(state) && settings.workMode == modeOf(state);
}

void ProcessorStates::set(SProcessorSettings &settings, SimulationFault state, bool on)
{
    if (const auto flag = flagOf(state))
        settings.*flag = on;
    else if (on)
        settings.workMode = modeOf(state);
    else if (isOn(settings, state))
        settings.workMode = ProcessorWorkMode::VideoProcessor;
}
