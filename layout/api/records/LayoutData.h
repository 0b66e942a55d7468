// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QSize>

/// The data set of the processor in view: the scene is loaded from it, and it is handed to the host.
struct LayoutData
{
    QUuid processor;
    CabinetLayout layout;
    QSize canvas; ///< canvas size in pixels
    QRect bounds; ///< union of all ports' areas on the canvas, in pixels

    /// Returns whether two versions of a port hold the same data; compares their groups pair by pair, in
    /// order. Identities, placement, types and grouping are compared, with @p withRanks also wiring ranks;
    /// running highlights and places in the saved mapping are ignored. O(1) for ports that share their groups
    /// in memory.
    static bool comparePortData(const CabinetLayout::CabinetPort &a, const CabinetLayout::CabinetPort &b,
                                bool withRanks);

    friend bool operator==(const LayoutData &a, const LayoutData &b)
    {
        return a.processor == b.processor && a.layout == b.layout && a.canvas == b.canvas &&
               a.bounds == b.bounds;
    }
    friend bool operator!=(const LayoutData &a, const LayoutData &b) { return !(a == b); }
};
Q_DECLARE_METATYPE(LayoutData)
