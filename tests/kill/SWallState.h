// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QByteArray>

/// What a user would miss of a layout, in two words: where it is on the canvas, and everything else.
struct SWallState
{
    static constexpr int AnyPlace = -1; ///< not known beforehand
    static constexpr int Locked = 1000; ///< is added to the place if port 2 is locked

    int place = 0; ///< of the leftmost cabinet
    /// The locks of all ports, then a digest of everything else except identities: cabinets with their
    /// places, sizes, types, receivers and ranks, groups as sets. Empty: not known.
    QByteArray look;

    static SWallState of(const CabinetLayout &layout);
    /// Whether it may be @p other, as far as both are known.
    bool fits(const SWallState &other) const;
    /// What undo and redo are about: without locks.
    QByteArray edited() const { return look.mid(look.indexOf('-') + 1); }
};
