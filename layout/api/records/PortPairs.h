// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QHash>
#include <QPair>

#include <functional>
#include <optional>

/// An output port of a processor.
struct SPortKey
{
    QUuid processor;
    int port = -1; ///< output-port index, from 0

    friend bool operator==(const SPortKey &a, const SPortKey &b)
    {
        return a.processor == b.processor && a.port == b.port;
    }
    friend bool operator!=(const SPortKey &a, const SPortKey &b) { return !(a == b); }
    friend uint qHash(const SPortKey &key, uint seed = 0)
    {
        return ::qHash(key.processor, seed) ^ uint(key.port);
    }
};

/// (primary, redundancy)
using SPortPair = QPair<SPortKey, SPortKey>;

/// What holds between the two output ports of a pair. Pure functions of records.
namespace PortPairs {

using Port = CabinetLayout::CabinetPort;
/// The layout of a processor; empty for an unknown one.
using LayoutOf = std::function<CabinetLayout(const QUuid &processor)>;

/// What a redundancy port of @p primary is given: its wired cabinets, in wiring order.
QVector<Port::Cabinet> mirrorOf(const Port &primary);

/// Whether two chains have as many cabinets, and these agree pair by pair, in order: place, size, type and
/// receivers.
bool agree(const QVector<Port::Cabinet> &a, const QVector<Port::Cabinet> &b);

/// Whether what a redundancy port was given agrees with what @p primary now has wired.
bool cabinetsMatch(const Port &redundancy, const Port &primary);

/// The key of the other port of the pair that @p port of @p layout belongs to. In no pair: a default key.
SPortKey partnerKey(const CabinetLayout &layout, const Port &port);

/// The other port of the pair. Nothing when the relation is broken: its processor or the port is not there,
/// or it knows nothing of the pair. @p layoutOf is asked for the layout of another processor only.
std::optional<Port> partner(const CabinetLayout &layout, const Port &port, const LayoutOf &layoutOf);

/// Makes @p port the @p role in a pair with @p other; NoRedundancy ends its pair. @p own is the key of the
/// port's processor.
void setPair(Port &port, const QUuid &own, Port::Redundancy role, const SPortKey &other);

/// @p layout with the pairs that @p known tells of: who edits cabinets may not have heard of them yet.
CabinetLayout withPairsOf(CabinetLayout layout, const CabinetLayout &known);

/// Gives the redundancy ports of @p layout what their primaries now hold, unless the relation is broken.
/// Gives the indices of those for which that is something else.
QVector<int> giveMirrors(CabinetLayout &layout, const LayoutOf &layoutOf);

/// Takes grouping and wiring from a port, in whose place another one's signal goes; its cabinets stay.
void dissolve(Port &port);

} // namespace PortPairs
