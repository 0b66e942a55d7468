// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/app/commands/CCommandArguments.h"
#include "layout/api/records/PrintConfig.h"

/// The options of "orvo export" that say how sheets are printed.
class CPrintOptions final
{
    Q_DECLARE_TR_FUNCTIONS(CPrintOptions)

public:
    /// The options with a value, and those without.
    static QStringList names();
    static QStringList flags();
    /// One line for each, and what it is without it.
    static QString help();

    /// Changes @p config as @p arguments say. Returns what is wrong with them; empty: nothing.
    static QString apply(const CCommandArguments &arguments, PrintConfig &config);
};
