// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CPortPairs.h"

#include "host/devices/services/CDeviceServices.h"

#include <algorithm>

namespace {

using RedundantPort = CabinetLayout::CabinetPort;

/// The change of one port.
struct SRole
{
    RedundantPort::Redundancy role = RedundantPort::NoRedundancy;
    SPortKey other;
    QVector<RedundantPort::Cabinet> mirrored;
    bool dissolved = false;
};

} // namespace

CPortPairs::CPortPairs(CDeviceServices &services)
    : m_services(services)
{
}

bool CPortPairs::isBlocked(const SDevice &device)
{
    return device.settings.workMode != ProcessorWorkMode::VideoProcessor || !device.node.online;
}

QString CPortPairs::refusal(const SPortKey &key) const
{
    const std::optional<SDevice> device = m_services.table().device(key.processor);
    const RedundantPort *port = device ? device->working.layout().port(key.port) : nullptr;
    if (!port)
        return tr("There is no such output port.");
    if (!device->kind.portRedundancy)
        return device->failureText(tr("It does not support port redundancy."));
    if (!device->layoutRefusal().isEmpty())
        return device->failureText(device->layoutRefusal());
    if (isBlocked(*device))
        return device->failureText(tr("In its present state port redundancy cannot be set."));
    return port->locked ? device->failureText(tr("Output port %1 is locked.").arg(key.port + 1)) : QString();
}

SPortPair CPortPairs::pairOf(const SDevice &device, const RedundantPort &port) const
{
    const SPortKey own{device.node.uuid, port.index};
    const SPortKey other = PortPairs::partnerKey(device.working.layout(), port);
    return port.redundancy == RedundantPort::Primary ? SPortPair(own, other) : SPortPair(other, own);
}

QList<SPortPair> CPortPairs::pairs() const
{
    QList<SPortPair> pairs;
    const PortPairs::LayoutOf elsewhere = m_services.layoutOf();
    for (const SDevice &device : m_services.table().devices()) {
        const CabinetLayout &layout = device.working.layout();
        for (const RedundantPort &port : layout.ports) {
            if (port.redundancy == RedundantPort::Primary && PortPairs::partner(layout, port, elsewhere))
                pairs << pairOf(device, port);
        }
    }
    return pairs;
}

QString CPortPairs::obstacleAcross(const SPortPair &pair) const
{
    if (pair.first.processor == pair.second.processor)
        return {};
    const bool project = m_services.table().isProject(pair.first.processor) ||
                         m_services.table().isProject(pair.second.processor);
    return project ? tr("A pair across processors needs two processors of the network.") : QString();
}

CStatus CPortPairs::obstacle(const QList<SPortPair> &made, const QList<SPortPair> &all) const
{
    for (const SPortPair &pair : made) {
        if (pair.first == pair.second)
            return CStatus::failure(tr("These are not two output ports."));
        for (const QString &refused : {refusal(pair.first), refusal(pair.second), obstacleAcross(pair)}) {
            if (!refused.isEmpty())
                return CStatus::failure(refused);
        }
    }
    QSet<SPortKey> used;
    for (const SPortPair &pair : all) {
        for (const SPortKey &key : {pair.first, pair.second}) {
            if (used.contains(key))
                return CStatus::failure(
                    m_services.table()
                        .device(key.processor)
                        .value_or(SDevice())
                        .failureText(tr("Output port %1 has a redundancy already.").arg(key.port + 1)));
            used.insert(key);
        }
    }
    return CStatus::done();
}

CStatus CPortPairs::pair(int primary, int backup)
{
    const QUuid current = m_services.table().current();
    if (current.isNull())
        return CStatus::failure(tr("There is no current processor."));
    const QList<SPortPair> made{SPortPair({current, primary}, {current, backup})};
    CStatus status = obstacle(made, pairs() + made);
    if (status)
        change({}, made);
    return status;
}

CStatus CPortPairs::separate(int port)
{
    const std::optional<SDevice> device = m_services.table().currentDevice();
    const RedundantPort *own = device ? device->working.layout().port(port) : nullptr;
    if (!own || own->redundancy == RedundantPort::NoRedundancy)
        return CStatus::failure(tr("Output port %1 has no redundancy.").arg(port + 1));
    change({{device->node.uuid, port}}, {});
    return CStatus::done();
}

QList<SPortKey> CPortPairs::endedBy(const QList<QUuid> &processors, const QList<SPortPair> &pairs) const
{
    QList<SPortKey> ended;
    for (const SDevice &device : m_services.table().devices()) {
        if (!processors.contains(device.node.uuid))
            continue;
        for (const RedundantPort &port : device.working.layout().ports) {
            const QUuid other = PortPairs::partnerKey(device.working.layout(), port).processor;
            const bool concerned = processors.contains(other) || !m_services.table().contains(other);
            if (port.redundancy != RedundantPort::NoRedundancy && concerned &&
                !pairs.contains(pairOf(device, port)))
                ended << SPortKey{device.node.uuid, port.index};
        }
    }
    return ended;
}

CStatus CPortPairs::replace(const QList<QUuid> &processors, const QList<SPortPair> &pairs)
{
    const QList<SPortKey> ended = endedBy(processors, pairs);
    QList<SPortPair> all;
    QList<SPortPair> made = pairs;
    const QList<SPortPair> before = this->pairs();
    for (const SPortPair &pair : before) {
        made.removeAll(pair);
        if (!ended.contains(pair.first) && !pairs.contains(pair))
            all << pair;
    }
    CStatus status = obstacle(made, all + pairs);
    if (status)
        change(ended, made);
    return status;
}

void CPortPairs::change(const QList<SPortKey> &ended, const QList<SPortPair> &made)
{
    QHash<SPortKey, SRole> roles;
    QList<SPortPair> endedPairs;
    const PortPairs::LayoutOf elsewhere = m_services.layoutOf();
    for (const SPortKey &key : ended) {
        const std::optional<SDevice> device = m_services.table().device(key.processor);
        const RedundantPort *port = device ? device->working.layout().port(key.port) : nullptr;
        if (!port)
            continue;
        const SPortPair pair = pairOf(*device, *port);
        if (!endedPairs.contains(pair))
            endedPairs << pair;
        roles.insert(key, {});
        if (PortPairs::partner(device->working.layout(), *port, elsewhere))
            roles.insert(PortPairs::partnerKey(device->working.layout(), *port), {});
    }
    for (const SPortPair &pair : made) {
        const CabinetLayout layout = elsewhere(pair.first.processor);
        const RedundantPort *primary = layout.port(pair.first.port);
        // For the processor in view the editor does this, so that it can be undone.
        const bool dissolved = pair.second.processor != m_services.table().current();
        roles.insert(pair.first, {RedundantPort::Primary, pair.second, {}, false});
        roles.insert(pair.second, {RedundantPort::Redundant, pair.first,
                                   PortPairs::mirrorOf(primary ? *primary : RedundantPort()), dissolved});
    }
    QSet<QUuid> changed;
    for (auto it = roles.cbegin(); it != roles.cend(); ++it)
        changed.insert(it.key().processor);
    for (const QUuid &processor : qAsConst(changed)) {
        m_services.table().changeLayout(processor, [&roles, &processor](SDevice &device) {
            CabinetLayout layout = device.working.layout();
            for (RedundantPort &port : layout.ports) {
                const auto role = roles.constFind(SPortKey{processor, port.index});
                if (role == roles.constEnd())
                    continue;
                PortPairs::setPair(port, processor, role->role, role->other);
                port.mirrored = role->mirrored;
                if (role->dissolved)
                    PortPairs::dissolve(port);
            }
            device.takeLayout(layout);
        });
    }
    announce(endedPairs, made, changed);
}

void CPortPairs::announce(const QList<SPortPair> &ended, const QList<SPortPair> &made,
                          const QSet<QUuid> &changed)
{
    CDeviceAnnouncer &announcer = m_services.announcer();
    const QUuid current = m_services.table().current();
    const auto tell = [&announcer, &current](const SPortPair &pair, bool on) {
        const auto own = [&current](const SPortKey &key) { return key.processor == current ? key.port : -1; };
        if (own(pair.first) >= 0 || own(pair.second) >= 0)
            announcer.notify(LayoutNotification::PortBackupChanged,
                             SPortBackupChange{own(pair.first), own(pair.second), on});
    };
    for (const SPortPair &pair : ended)
        tell(pair, false);
    for (const SPortPair &pair : made)
        tell(pair, true);
    for (const QUuid &processor : changed)
        announcer.announceCommit(processor);
}
