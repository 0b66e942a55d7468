// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

class CByteReader;
class CByteWriter;

/// Writes a port, or only what its steps are about (groups, cabinets and wiring), as the difference from
/// another version of it. Loads are left out. Any thread.
class CPortCodec final
{
public:
    using Port = CabinetLayout::CabinetPort;
    using Groups = QVector<Port::CabinetGroup>;

    /// @p forward turns @p before into @p after, @p back the reverse.
    static void writeGroups(CByteWriter &forward, CByteWriter &back, const Groups &before,
                            const Groups &after);
    /// Turns the groups from before into those after. False: the bytes fit nothing; @p groups is unusable
    /// then.
    static bool applyGroups(CByteReader &in, Groups &groups);

    static void writePort(CByteWriter &out, const Port &before, const Port &after);
    static bool applyPort(CByteReader &in, Port &port);

    /// Differs between groups of different content. O(cabinets).
    static quint64 digest(const Groups &groups);
    /// Whether two ports are equal, apart from their loads. O(1) where groups share their memory.
    static bool samePort(const Port &a, const Port &b);
};
