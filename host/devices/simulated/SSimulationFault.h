// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMetaType>
#include <QVector>

/// What a simulated processor can be told to show: faults, then states of a processor that works.
enum class SimulationFault : int {
    Offline = 0,          ///< is not on the network
    Slow = 1,             ///< answers, but takes ten times as long
    Silent = 2,           ///< accepts a request and never answers
    Refuse = 3,           ///< turns every request down
    Drop = 4,             ///< loses the connection half-way through a transfer
    Damaged = 5,          ///< sends answers with altered bytes
    Changed = 6,          ///< its mapping is changed behind our back, once, when the fault is switched on
    Bypass = 7,           ///< passes its input through
    FiberTransceiver = 8, ///< works as a fibre optic transceiver
    ThreeD = 9,
    LowLatency = 10,
    Frozen = 11,
    Polling = 12,
    HdmiOutput = 13
};
Q_DECLARE_METATYPE(SimulationFault)

/// A fault or state as menus and the command line name it.
struct SSimulationFault
{
    SimulationFault fault;
    const char *name;  ///< on the command line
    const char *title; ///< in menus; translated in the context "SSimulationFault"

    /// All of them, in the order of the enumeration.
    static const QVector<SSimulationFault> &all();
};
