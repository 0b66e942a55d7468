// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMetaType>
#include <QVector>

/// What can be simulated: faults, then states of a working processor.
enum class SimulationFault : int {
    Offline = 0,           ///< is not on the network
    Slow = 1,              ///< answers, but takes ten times as long
    Silent = 2,            ///< accepts a request and never answers
    Refuse = 3,            ///< refuses every request
    Drop = 4,              ///< loses the connection half-way through a transfer
    Damaged = 5,           ///< sends answers with altered bytes
    Changed = 6,           ///< its mapping is changed behind our back, once, when the fault is switched on
    LostAnswer = 7,        ///< does what it is asked for, but its answer never arrives
    Twice = 8,             ///< gets each request that changes something twice
    Bypass = 9,            ///< passes its input through
    FiberTransceiver = 10, ///< works as a fibre optic transceiver
    ThreeD = 11,
    LowLatency = 12,
    Frozen = 13,
    Polling = 14,
    HdmiOutput = 15
};
Q_DECLARE_METATYPE(SimulationFault)

/// The names of a fault or state in menus and on the command line.
struct SSimulationFault
{
    SimulationFault fault;
    const char *name;  ///< on the command line
    const char *title; ///< in menus; translated in the context "SSimulationFault"

    /// All faults and states, in the order of the enumeration.
    static const QVector<SSimulationFault> &all();
};
