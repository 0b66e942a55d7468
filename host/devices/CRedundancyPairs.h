// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/services/SDevice.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QList>
#include <QPair>
#include <QUuid>

class CDeviceCommands;
class CDeviceServices;

/// Pairs that carry the same signal: output ports of the current processor, and whole processors. Any thread.
class CRedundancyPairs final
{
    Q_DECLARE_TR_FUNCTIONS(CRedundancyPairs)

public:
    /// (primary, redundancy)
    using Pair = QPair<QUuid, QUuid>;

    CRedundancyPairs(CDeviceServices &services, CDeviceCommands &commands);

    CStatus pairPorts(int primary, int backup);
    CStatus separatePort(int port);
    /// Whether the state of a processor forbids port redundancy now.
    static bool arePortsBlocked(const SDevice &device);

    QList<Pair> processors() const;
    CStatus pairProcessors(const QUuid &primary, const QUuid &redundancy);
    CStatus separateProcessor(const QUuid &processor);
    /// Replaces all pairs among @p processors.
    CStatus replaceProcessors(const QList<QUuid> &processors, const QList<Pair> &pairs);

private:
    CStatus portObstacle(const SDevice &device, int primary, int backup) const;
    CStatus pairObstacle(const QList<Pair> &pairs) const;
    CStatus setPrimaries(const QList<Pair> &changes); ///< all or none

    CDeviceServices &m_services;
    CDeviceCommands &m_commands;
};
