// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintPlan.h"

#include <QCoreApplication>
#include <QStringList>

/// What the walls of a plan need, counted with the settings of the job: all come from one stock and one
/// supply. Only the rack is that of each processor.
struct SPartsTally
{
    Q_DECLARE_TR_FUNCTIONS(SPartsTally)

public:
    /// Signal cables of one stock length.
    struct SCable
    {
        int hops = 0;
        int feeds = 0;
        int loops = 0;

        int needed() const { return hops + feeds + loops; }
    };
    /// The circuits that the power comes from. Each feeds cabinets that follow each other on one port.
    struct SCircuits
    {
        int count = 0;
        int mostCabinets = 0; ///< on one circuit
        qint64 mostWatts = 0; ///< of the cabinets on one circuit
        int unknown = 0;      ///< cabinets whose power is unknown, or more than a circuit gives
        int links = 0;        ///< power cables from cabinet to cabinet
    };

    QMap<int, SCable> cables; ///< by stock length in metres; 0: longer than all stock lengths
    SCable all;
    QMap<int, int> cabinets; ///< by index into SPrintPlan::types
    SCircuits circuits;
    QStringList tooLong; ///< the cables that are longer than all stock lengths: "port 3, r1 c2 to r1 c9"

    /// Names the cables that are too long; empty if there are none.
    QString warning() const;
    /// The port with its cables from the stock of the job.
    static SPlanPort laid(const SPlanPort &port, const SPlanProcessor &processor, const SPrintPlan &plan);
    static SPartsTally of(const SPrintPlan &plan);
    /// Spares for @p needed pieces, rounded up.
    static int spares(int needed, int percent);
};
