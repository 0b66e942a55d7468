// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CRedundancyPairs.h"

#include "host/devices/CDeviceCommands.h"
#include "host/devices/services/CDeviceServices.h"

#include <QSet>

namespace {

using RedundantPort = CabinetLayout::CabinetPort;

/// Changes one pair of ports in a working layout; the layout's other ports stay shared.
void setPortPair(SDevice &device, int primary, int backup, bool paired)
{
    CabinetLayout layout = device.working.layout();
    for (RedundantPort &port : layout.ports) {
        if (port.index != primary && port.index != backup)
            continue;
        const bool isPrimary = port.index == primary;
        port.redundancy = !paired     ? RedundantPort::NoRedundancy
                          : isPrimary ? RedundantPort::Primary
                                      : RedundantPort::Redundant;
        port.redundancyPort = !paired ? -1 : isPrimary ? backup : primary;
        port.redundancyProcessor = QUuid();
    }
    device.takeLayout(layout);
}

} // namespace

CRedundancyPairs::CRedundancyPairs(CDeviceServices &services, CDeviceCommands &commands)
    : m_services(services)
    , m_commands(commands)
{
}

bool CRedundancyPairs::arePortsBlocked(const SDevice &device)
{
    return device.settings.workMode != ProcessorWorkMode::VideoProcessor || !device.node.online;
}

CStatus CRedundancyPairs::portObstacle(const SDevice &device, int primary, int backup) const
{
    const auto failure = [&device](const QString &reason) {
        return CStatus::failure(device.failureText(reason));
    };
    if (!device.kind.portRedundancy)
        return failure(tr("It does not support port redundancy."));
    if (arePortsBlocked(device))
        return failure(tr("In its present state port redundancy cannot be set."));
    for (const int index : {primary, backup}) {
        const RedundantPort *port = device.working.layout().port(index);
        if (!port || primary == backup)
            return failure(tr("These are not two output ports."));
        if (port->locked)
            return failure(tr("Output port %1 is locked.").arg(index + 1));
        if (port->redundancy != RedundantPort::NoRedundancy)
            return failure(tr("Output port %1 has a redundancy already.").arg(index + 1));
    }
    if (device.working.layout().port(backup)->cabinetCount() > 0)
        return failure(tr("Output port %1 holds cabinets of its own.").arg(backup + 1));
    return CStatus::done();
}

CStatus CRedundancyPairs::pairPorts(int primary, int backup)
{
    const std::optional<SDevice> device = m_services.table().currentDevice();
    if (!device)
        return CStatus::failure(tr("There is no current processor."));
    CStatus status = portObstacle(*device, primary, backup);
    if (!status)
        return status;
    m_services.table().change(
        device->node.uuid, [primary, backup](SDevice &known) { setPortPair(known, primary, backup, true); });
    m_services.announcer().notify(LayoutNotification::PortBackupChanged,
                                  SPortBackupChange{primary, backup, true});
    m_services.announcer().announceCommit(device->node.uuid);
    return status;
}

CStatus CRedundancyPairs::separatePort(int port)
{
    const std::optional<SDevice> device = m_services.table().currentDevice();
    const RedundantPort *own = device ? device->working.layout().port(port) : nullptr;
    if (!own || own->redundancy == RedundantPort::NoRedundancy)
        return CStatus::failure(tr("Output port %1 has no redundancy.").arg(port + 1));
    const bool isPrimary = own->redundancy == RedundantPort::Primary;
    const int primary = isPrimary ? port : own->redundancyPort;
    const int backup = isPrimary ? own->redundancyPort : port;
    for (const int index : {primary, backup}) {
        const RedundantPort *member = device->working.layout().port(index);
        if (member && member->locked)
            return CStatus::failure(device->failureText(tr("Output port %1 is locked.").arg(index + 1)));
    }
    m_services.table().change(
        device->node.uuid, [primary, backup](SDevice &known) { setPortPair(known, primary, backup, false); });
    m_services.announcer().notify(LayoutNotification::PortBackupChanged,
                                  SPortBackupChange{primary, backup, false});
    m_services.announcer().announceCommit(device->node.uuid);
    return CStatus::done();
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

CStatus CRedundancyPairs::pairObstacle(const QList<Pair> &pairs) const
{
    QSet<QUuid> used;
    for (const Pair &pair : pairs) {
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
    }
    return CStatus::done();
}

CStatus CRedundancyPairs::pairProcessors(const QUuid &primary, const QUuid &redundancy)
{
    CStatus status = pairObstacle(processors() << Pair(primary, redundancy));
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
    QList<Pair> changes;
    for (const Pair &pair : processors()) {
        if (!among.contains(pair.first) || !among.contains(pair.second))
            kept << pair;
        else if (!pairs.contains(pair))
            changes << Pair(QUuid(), pair.second);
    }
    CStatus status = pairObstacle(kept + pairs);
    return status ? setPrimaries(changes + pairs) : status;
}

CStatus CRedundancyPairs::setPrimaries(const QList<Pair> &changes)
{
    QList<Pair> undo;
    for (const Pair &change : changes) {
        const std::optional<SDevice> device = m_services.table().device(change.second);
        if (!device || device->settings.primary == change.first)
            continue;
        CStatus status = m_commands.setPrimary(change.second, change.first);
        if (status) {
            undo.prepend(Pair(device->settings.primary, change.second));
            continue;
        }
        for (const Pair &before : undo) {
            const CStatus undone = m_commands.setPrimary(before.second, before.first);
            Q_UNUSED(undone) // the first failure is what the user is told
        }
        return status;
    }
    return CStatus::done();
}
