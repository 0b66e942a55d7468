// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CRedundancyPairs.h"

#include "host/devices/CDeviceCommands.h"
#include "host/devices/services/CDeviceServices.h"
#include "layout/api/records/ProcessorPairs.h"

#include <QSet>

CRedundancyPairs::CRedundancyPairs(CDeviceServices &services, CDeviceCommands &commands)
    : m_services(services)
    , m_commands(commands)
{
}

QList<CRedundancyPairs::Pair> CRedundancyPairs::processors() const
{
    QList<Pair> pairs;
    for (const SDevice &device : m_services.table().devices()) {
        if (!device.settings.primary.isNull())
            pairs << Pair(device.settings.primary, device.node.uuid);
    }
    return pairs;
}

CStatus CRedundancyPairs::pairObstacle(const QList<Pair> &kept, const QList<Pair> &added) const
{
    QSet<QUuid> used;
    for (const Pair &pair : kept)
        used << pair.first << pair.second;
    for (const Pair &pair : added) {
        for (const QUuid &member : {pair.first, pair.second}) {
            const std::optional<SDevice> device = m_services.table().device(member);
            if (!device || device->project || pair.first == pair.second)
                return CStatus::failure(tr("A pair needs two processors of the network."));
            if (device->node.fiberTransceiver)
                return CStatus::failure(device->failureText(tr("Fiber Optic Transceiver Mode is on")));
            if (used.contains(member))
                return CStatus::failure(device->failureText(tr("It belongs to a pair already.")));
            used.insert(member);
        }
        const SDevice primary = *m_services.table().device(pair.first);
        const SDevice redundancy = *m_services.table().device(pair.second);
        const QString obstacle = ProcessorPairs::portObstacle(primary.node, primary.working.layout(),
                                                              redundancy.node, redundancy.kind.ports);
        if (!obstacle.isEmpty())
            return CStatus::failure(obstacle);
    }
    return CStatus::done();
}

CStatus CRedundancyPairs::pairProcessors(const QUuid &primary, const QUuid &redundancy)
{
    CStatus status = pairObstacle(processors(), {Pair(primary, redundancy)});
    return status ? m_commands.setPrimary(redundancy, primary) : status;
}

CStatus CRedundancyPairs::separateProcessor(const QUuid &processor)
{
    for (const Pair &pair : processors()) {
        if (pair.first == processor || pair.second == processor)
            return m_commands.setPrimary(pair.second, {});
    }
    return CStatus::failure(tr("The processor belongs to no pair."));
}

CStatus CRedundancyPairs::replaceProcessors(const QList<QUuid> &among, const QList<Pair> &pairs)
{
    QList<Pair> kept;
    QList<Pair> added = pairs;
    QList<Pair> ended;
    for (const Pair &pair : processors()) {
        if (added.removeOne(pair) || !among.contains(pair.first) || !among.contains(pair.second))
            kept << pair;
        else
            ended << Pair(QUuid(), pair.second);
    }
    CStatus status = pairObstacle(kept, added);
    return status ? setPrimaries(ended + added) : status;
}

CStatus CRedundancyPairs::setPrimaries(const QList<Pair> &changes)
{
    QList<Pair> undo;
    for (const Pair &change : changes) {
        const std::optional<SDevice> device = m_services.table().device(change.second);
        if (!device || device->settings.primary == change.first)
            continue;
        DeviceError error = DeviceError::None;
        const CStatus status = m_commands.setPrimary(change.second, change.first, &error);
        const Pair before(device->settings.primary, change.second);
        if (!status)
            return CStatus::failure(
                (QStringList(status.error()) + undone(undo, before, error)).join(QLatin1Char('\n')));
        undo.prepend(before);
    }
    return CStatus::done();
}

/// Restores what was changed before the processor of @p failed failed. Returns what cannot be restored.
QStringList CRedundancyPairs::undone(const QList<Pair> &changed, const Pair &failed, DeviceError error)
{
    QStringList problems;
    if (error == DeviceError::NoAnswer) { // it may have done it
        if (!m_commands.setPrimary(failed.second, failed.first))
            problems << tr("Its pair is read again when it answers.");
    }
    for (const Pair &before : changed) {
        const CStatus status = m_commands.setPrimary(before.second, before.first);
        if (!status)
            problems << tr("%1 It has its new pair already.").arg(status.error());
    }
    return problems;
}
