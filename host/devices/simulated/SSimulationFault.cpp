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
    };
    return faults;
}
