// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/SSimulationFault.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVector>

/// What the program with a window was asked to do on its command line.
struct SAppOptions
{
    Q_DECLARE_TR_FUNCTIONS(SAppOptions)

public:
    /// A fault or state that a simulated processor begins with.
    struct SSimulation
    {
        SimulationFault fault;
        bool on;           ///< false: it is ended
        QString processor; ///< its name
    };

    QStringList files; ///< projects to open
    bool demo = false; ///< opens the demo wall
    bool detect = false;
    QString stateFolder; ///< of the simulated processors; empty: the usual place
    QVector<SSimulation> simulations;

    /// @p arguments as the program got them, its name first. The error says how the program is called.
    static CResult<SAppOptions> parse(const QStringList &arguments);
    QStringList missingFiles() const; ///< of files, those that do not exist
    /// Fails when a fault is asked for of a processor that is none of @p known.
    CStatus checkProcessors(const QStringList &known) const;
    /// Where simulated processors keep their state unless told otherwise.
    static QString defaultStateFolder();
};
