// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPartsTally.h"
#include "layout/printing/sheets/CTableFlow.h"

#include <QCoreApplication>

/// The table of signal cables on the cover, a column for each length.
class CCoverCables final
{
    Q_DECLARE_TR_FUNCTIONS(CCoverCables)

public:
    static constexpr double Height = 35; ///< about, with its title, millimetres

    /// No number is cut: lengths that have no room share a column.
    static void add(CTableFlow &flow, const SPartsTally &tally, const PrintConfig &config);
};
