// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/services/SDevice.h"
#include "layout/api/records/PortPairs.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QList>
#include <QSet>

class CDeviceServices;

/// Pairs of output ports that carry the same signal, on one processor or across two. Any thread.
class CPortPairs final
{
    Q_DECLARE_TR_FUNCTIONS(CPortPairs)

public:
    explicit CPortPairs(CDeviceServices &services);

    /// Whether the state of a processor forbids new pairs now.
    static bool isBlocked(const SDevice &device);
    /// Why a port cannot be in a pair, for the user; empty: it can.
    QString refusal(const SPortKey &port) const;
    /// The unbroken pairs, ordered by primary.
    QList<SPortPair> pairs() const;

    /// Pairs two ports of the current processor.
    CStatus pair(int primary, int backup);
    /// Ends the pair of a port of the current processor. Always possible.
    CStatus separate(int port);
    /// Replaces all pairs of the ports of @p processors with @p pairs, all or none; also removes broken
    /// pairs.
    CStatus replace(const QList<QUuid> &processors, const QList<SPortPair> &pairs);

private:
    CStatus obstacle(const QList<SPortPair> &made, const QList<SPortPair> &all) const;
    QString obstacleAcross(const SPortPair &pair) const;
    QList<SPortKey> endedBy(const QList<QUuid> &processors, const QList<SPortPair> &pairs) const;
    SPortPair pairOf(const SDevice &device, const CabinetLayout::CabinetPort &port) const;
    void change(const QList<SPortKey> &ended, const QList<SPortPair> &made);
    void announce(const QList<SPortPair> &ended, const QList<SPortPair> &made, const QSet<QUuid> &changed);

    CDeviceServices &m_services;
};
