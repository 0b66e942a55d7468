// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

class CByteReader;
class CByteWriter;
class CDigest;

/// Writes two lists of cabinets as their difference, in both directions at once: of cabinets that stay in
/// their places what changed, with equal changes in a row written once; of new ones everything, relative to
/// the one before. Places in the saved mapping and running highlights are left out. Any thread.
class CCabinetCodec final
{
public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;
    using Cabinets = QVector<Cabinet>;

    /// @p forward turns @p before into @p after, @p back the reverse.
    static void write(CByteWriter &forward, CByteWriter &back, const Cabinets &before, const Cabinets &after);
    /// Turns @p cabinets, which are those from before, into those after. False: the bytes fit nothing.
    static bool apply(CByteReader &in, Cabinets &cabinets);
    static void digest(CDigest &digest, const Cabinets &cabinets);
};
