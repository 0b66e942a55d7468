// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CDeviceTable.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace {

template <typename List>
auto findByKey(List &list, const QUuid &processor)
{
    return std::find_if(list.begin(), list.end(),
                        [&processor](const SDevice &device) { return device.node.uuid == processor; });
}

bool holdsCabinet(const QVector<CabinetLayout::CabinetPort::CabinetGroup> &groups, const QUuid &cabinet)
{
    return std::any_of(groups.begin(), groups.end(), [&cabinet](const auto &group) {
        const auto isIt = [&cabinet](const auto &candidate) { return candidate.uuid == cabinet; };
        return std::any_of(group.cabinets.begin(), group.cabinets.end(), isIt) ||
               holdsCabinet(group.groups, cabinet);
    });
}

} // namespace

QList<SDevice> CDeviceTable::devices() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    QList<SDevice> devices;
    for (const std::vector<SDevice> *list : {&m_projects, &m_devices}) {
        for (const SDevice &device : *list)
            devices << device;
    }
    return devices;
}

std::optional<SDevice> CDeviceTable::device(const QUuid &processor) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const SDevice *found = find(processor);
    return found ? std::optional<SDevice>(*found) : std::nullopt;
}

bool CDeviceTable::contains(const QUuid &processor) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return find(processor) != nullptr;
}

bool CDeviceTable::isOnline(const QUuid &processor) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const SDevice *found = find(processor);
    return found && found->node.online;
}

bool CDeviceTable::isProject(const QUuid &processor) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const SDevice *found = find(processor);
    return found && found->project;
}

SUnsavedEdits CDeviceTable::unsavedEdits(const QUuid &processor) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const SDevice *found = find(processor);
    return found ? found->unsavedEdits() : SUnsavedEdits();
}

QHash<QUuid, SUnsavedEdits> CDeviceTable::unsavedEdits() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    QHash<QUuid, SUnsavedEdits> edits;
    for (const std::vector<SDevice> *list : {&m_projects, &m_devices}) {
        for (const SDevice &device : *list)
            edits.insert(device.node.uuid, device.unsavedEdits());
    }
    return edits;
}

PortLocks CDeviceTable::locksBeside(const QUuid &processor) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    PortLocks locks = PortLocks::NoPorts;
    for (const std::vector<SDevice> *list : {&m_projects, &m_devices}) {
        for (const SDevice &device : *list) {
            if (device.node.uuid == processor)
                continue;
            for (const CabinetLayout::CabinetPort &port : device.working.layout().ports) {
                if (!port.locked)
                    return PortLocks::NotAll;
                locks = PortLocks::All;
            }
        }
    }
    return locks;
}

QList<CDeviceTable::SGroup> CDeviceTable::groups() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_groups;
}

QList<ProcessorTree::ProcessorNode> CDeviceTable::nodes() const
{
    QList<ProcessorTree::ProcessorNode> nodes;
    for (const SDevice &device : devices())
        nodes << device.node;
    return nodes;
}

ProcessorTree::ProcessorNode CDeviceTable::nodeOfCabinet(const QUuid &cabinet) const
{
    for (const SDevice &device : devices()) {
        for (const CabinetLayout::CabinetPort &port : device.working.layout().ports) {
            if (holdsCabinet(port.groups, cabinet))
                return device.node;
        }
    }
    return {};
}

void CDeviceTable::tell(const QUuid &processor, Cause cause) const
{
    if (m_watch)
        m_watch(processor, cause);
}

void CDeviceTable::put(const SDevice &device)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        std::vector<SDevice> &list = device.project ? m_projects : m_devices;
        const auto found = findByKey(list, device.node.uuid);
        if (found == list.end())
            list.push_back(device);
        else
            *found = device;
    }
    tell(device.node.uuid, Cause::Host);
}

void CDeviceTable::remove(const QUuid &processor)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        for (std::vector<SDevice> *list : {&m_projects, &m_devices}) {
            const auto found = findByKey(*list, processor);
            if (found != list->end())
                list->erase(found);
        }
        m_selection.removeAll(processor);
        if (m_current == processor)
            m_current = QUuid();
    }
    tell(processor, Cause::Host);
}

void CDeviceTable::setGroups(const QList<SGroup> &groups)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_groups = groups;
}

bool CDeviceTable::change(const QUuid &processor, const std::function<void(SDevice &)> &edit)
{
    const bool changed = changeUnwatched(processor, edit);
    if (changed)
        tell(processor, Cause::Host);
    return changed;
}

bool CDeviceTable::changeUnwatched(const QUuid &processor, const std::function<void(SDevice &)> &edit)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    SDevice *found = find(processor);
    if (found)
        edit(*found);
    return found != nullptr;
}

bool CDeviceTable::changeLayout(const QUuid &processor, const std::function<void(SDevice &)> &edit,
                                Cause cause)
{
    const bool known = swapLayout(processor, edit, false);
    if (known)
        tell(processor, cause);
    return known;
}

QVector<CDeviceTable::Ports> CDeviceTable::editLayout(const QUuid &processor,
                                                      const std::function<void(SDevice &)> &edit)
{
    std::optional<SDevice> before;
    QVector<Ports> known;
    const auto editOrRefuse = [&](SDevice &device) {
        if (!before)
            before = device;
        if (known.isEmpty() && device.replaced.isEmpty() && device.replacements == before->replacements)
            return edit(device);
        known = device.replaced;
        known << before->working.layout().ports << device.working.layout().ports;
    };
    if (swapLayout(processor, editOrRefuse, false) && known.isEmpty())
        tell(processor, Cause::Editor);
    return known;
}

bool CDeviceTable::replaceLayout(const QUuid &processor, const std::function<void(SDevice &)> &edit)
{
    const bool known = swapLayout(processor, edit, true);
    if (known)
        tell(processor, Cause::Host);
    return known;
}

void CDeviceTable::endReplacement(const QUuid &processor)
{
    QVector<CabinetLayout::CabinetPort> before; // destroyed without the lock
    changeUnwatched(processor, [&before](SDevice &device) {
        if (!device.replaced.isEmpty())
            before = device.replaced.takeFirst();
    });
}

bool CDeviceTable::swapLayout(const QUuid &processor, const std::function<void(SDevice &)> &edit,
                              bool replaced)
{
    bool taken = false;
    while (!taken) {
        std::optional<SDevice> copy = device(processor);
        if (!copy)
            return false;
        const quint64 edition = copy->working.edition();
        edit(*copy);
        changeUnwatched(processor, [&](SDevice &now) {
            taken = now.working.edition() == edition;
            if (taken)
                now.swapWorking(copy->working, replaced); // the old one is destroyed without the lock
        });
    }
    return true;
}

int CDeviceTable::onlineDeviceCount() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto online = [](const SDevice &device) { return device.node.online; };
    return static_cast<int>(std::count_if(m_devices.begin(), m_devices.end(), online));
}

int CDeviceTable::freeIndex(const QUuid &device) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    QSet<int> taken;
    int own = -1;
    for (const SDevice &known : m_devices) {
        if (known.node.uuid == device)
            own = known.node.index;
        else
            taken.insert(known.node.index);
    }
    int index = own < 0 || taken.contains(own) ? 0 : own;
    while (taken.contains(index))
        ++index;
    return index;
}

void CDeviceTable::setBusy(const QList<QUuid> &processors)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_busy = processors;
}

bool CDeviceTable::isBusy(const QUuid &processor) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_busy.contains(processor);
}

QUuid CDeviceTable::current() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_current;
}

std::optional<SDevice> CDeviceTable::currentDevice() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const SDevice *found = find(m_current);
    return found ? std::optional<SDevice>(*found) : std::nullopt;
}

QList<QUuid> CDeviceTable::selection() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_selection;
}

void CDeviceTable::setSelection(const QUuid &current, const QList<QUuid> &selection)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_current = current;
    m_selection = selection;
}

ProcessorBoundingRects CDeviceTable::areas(const QList<QUuid> &processors) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ProcessorBoundingRects areas;
    for (const QUuid &processor : processors) {
        if (const SDevice *found = find(processor))
            areas.insert(processor, found->area());
    }
    return areas;
}

SDevice *CDeviceTable::find(const QUuid &processor)
{
    return const_cast<SDevice *>(std::as_const(*this).find(processor));
}

const SDevice *CDeviceTable::find(const QUuid &processor) const
{
    for (const std::vector<SDevice> *list : {&m_projects, &m_devices}) {
        const auto found = findByKey(*list, processor);
        if (found != list->end())
            return &*found;
    }
    return nullptr;
}
