// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/SSimulationFault.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVector>

/// The command-line options of the program with a window.
struct SAppOptions
{
    Q_DECLARE_TR_FUNCTIONS(SAppOptions)

public:
    /// A fault or state that a simulated processor starts with.
    struct SSimulation
    {
        SimulationFault fault;
        bool on;           ///< false: switched off
        QString processor; ///< its name
    };

    QStringList files; ///< projects to open
    bool demo = false; ///< opens the demo wall
    bool detect = false;
    QString stateFolder; ///< of the simulated processors; empty: the default one
    QVector<SSimulation> simulations;

    /// @p arguments are those of the program, beginning with its name. The error contains the usage.
    static CResult<SAppOptions> parse(const QStringList &arguments);
    QStringList missingFiles() const; ///< the files that do not exist
    /// Fails if a fault is given for a processor that is not among @p known.
    CStatus checkProcessors(const QStringList &known) const;
    /// Where simulated processors keep their state by default.
    static QString defaultStateFolder();
};
