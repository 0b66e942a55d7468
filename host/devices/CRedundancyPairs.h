// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QList>
#include <QPair>
#include <QStringList>
#include <QUuid>

class CDeviceCommands;
class CDeviceServices;
enum class DeviceError : int;

/// Pairs of processors: one takes over if the other fails. Any thread.
class CRedundancyPairs final
{
    Q_DECLARE_TR_FUNCTIONS(CRedundancyPairs)

public:
    /// (primary, redundancy)
    using Pair = QPair<QUuid, QUuid>;

    CRedundancyPairs(CDeviceServices &services, CDeviceCommands &commands);

    QList<Pair> processors() const;
    CStatus pairProcessors(const QUuid &primary, const QUuid &redundancy);
    CStatus separateProcessor(const QUuid &processor);
    /// Replaces all pairs among @p processors with @p pairs.
    CStatus replaceProcessors(const QList<QUuid> &processors, const QList<Pair> &pairs);

private:
    /// Why @p added cannot stand beside @p kept. Of a pair that exists already, a member may have entered a
    /// mode meanwhile in which it could not be paired.
    CStatus pairObstacle(const QList<Pair> &kept, const QList<Pair> &added) const;
    CStatus setPrimaries(const QList<Pair> &changes); ///< all or none
    QStringList undone(const QList<Pair> &changed, const Pair &failed, DeviceError error);

    CDeviceServices &m_services;
    CDeviceCommands &m_commands;
};
