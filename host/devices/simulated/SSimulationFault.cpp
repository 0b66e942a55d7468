// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/SSimulationFault.h"

#include <QtGlobal>

const QVector<SSimulationFault> &SSimulationFault::all()
{
    static const QVector<SSimulationFault> faults{
        {SimulationFault::Offline, "offline", QT_TRANSLATE_NOOP("SSimulationFault", "Offline")},
        {SimulationFault::Slow, "slow", QT_TRANSLATE_NOOP("SSimulationFault", "Slow")},
        {SimulationFault::Silent, "silent", QT_TRANSLATE_NOOP("SSimulationFault", "Silent")},
        {SimulationFault::Refuse, "refuse", QT_TRANSLATE_NOOP("SSimulationFault", "Refuse requests")},
        {SimulationFault::Drop, "drop",
         QT_TRANSLATE_NOOP("SSimulationFault", "Drop the connection half-way")},
        {SimulationFault::Damaged, "damaged", QT_TRANSLATE_NOOP("SSimulationFault", "Damage the answers")},
        {SimulationFault::Changed, "changed",
         QT_TRANSLATE_NOOP("SSimulationFault", "Change the mapping from elsewhere")},
        {SimulationFault::LostAnswer, "lost", QT_TRANSLATE_NOOP("SSimulationFault", "Lose the answers")},
        {SimulationFault::Twice, "twice", QT_TRANSLATE_NOOP("SSimulationFault", "Get requests twice")},
        {SimulationFault::Bypass, "bypass", QT_TRANSLATE_NOOP("SSimulationFault", "Bypass mode")},
        {SimulationFault::FiberTransceiver, "fiber",
         QT_TRANSLATE_NOOP("SSimulationFault", "Fiber optic transceiver mode")},
        {SimulationFault::ThreeD, "3d", QT_TRANSLATE_NOOP("SSimulationFault", "3D")},
        {SimulationFault::LowLatency, "low-latency", QT_TRANSLATE_NOOP("SSimulationFault", "Low latency")},
        {SimulationFault::Frozen, "frozen", QT_TRANSLATE_NOOP("SSimulationFault", "Frozen screen")},
        {SimulationFault::Polling, "polling", QT_TRANSLATE_NOOP("SSimulationFault", "Input polling")},
        {SimulationFault::HdmiOutput, "hdmi", QT_TRANSLATE_NOOP("SSimulationFault", "HDMI video output")},
    };
    return faults;
}
