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

/// Rules for the two output ports of a pair. Pure functions of records.
namespace PortPairs {

using Port = CabinetLayout::CabinetPort;
/// The layout of a processor; empty for an unknown one.
using LayoutOf = std::function<CabinetLayout(const QUuid &processor)>;

/// The mirror for a redundancy port of @p primary: the wired cabinets of @p primary, in wiring order.
QVector<Port::Cabinet> mirrorOf(const Port &primary);

/// Whether two chains have the same number of cabinets, and these are equal pair by pair: place, size, type
/// and receivers.
bool agree(const QVector<Port::Cabinet> &a, const QVector<Port::Cabinet> &b);

/// Whether the mirror in @p redundancy agrees with what is wired in @p primary now.
bool cabinetsMatch(const Port &redundancy, const Port &primary);

/// The key of the other port of the pair that @p port of @p layout belongs to; a default key if it is in no
/// pair.
SPortKey partnerKey(const CabinetLayout &layout, const Port &port);

/// The other port of the pair. Empty if the pair is broken: the other processor or port does not exist, or
/// does not belong to this pair. @p layoutOf is called for other processors only.
std::optional<Port> partner(const CabinetLayout &layout, const Port &port, const LayoutOf &layoutOf);

/// Gives @p port the @p role in a pair with @p other; NoRedundancy ends its pair. @p own is the key of the
/// port's processor.
void setPair(Port &port, const QUuid &own, Port::Redundancy role, const SPortKey &other);

/// Returns @p layout with the pairs of @p known: an edited layout may not contain the newest pairs yet.
CabinetLayout withPairsOf(CabinetLayout layout, const CabinetLayout &known);

/// Updates the mirrors of the redundancy ports of @p layout from their primaries, unless the pair is broken.
/// Returns the indices of the ports whose mirrors changed.
QVector<int> giveMirrors(CabinetLayout &layout, const LayoutOf &layoutOf);

/// Removes grouping and wiring of a port that becomes a redundancy port; its cabinets stay.
void dissolve(Port &port);

} // namespace PortPairs
