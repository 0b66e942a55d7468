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
    /// Why a port can be in no pair, for the user; empty: it can.
    QString refusal(const SPortKey &port) const;
    /// The whole pairs, in the order of the primaries.
    QList<SPortPair> pairs() const;

    /// Of the current processor.
    CStatus pair(int primary, int backup);
    /// Ends the pair of a port of the current processor. Nothing keeps a user from that.
    CStatus separate(int port);
    /// Makes @p pairs the only ones among the ports of @p processors, all or none; also ends what is left of
    /// broken ones.
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
