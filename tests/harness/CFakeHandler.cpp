// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/CFakeHandler.h"

#include <QHash>
#include <QPoint>

#include <algorithm>

QStringList CFakeHandler::calls() const
{
    const Lock lock(m_mutex);
    return m_calls;
}

int CFakeHandler::count(const QString &name) const
{
    const QStringList all = calls();
    return static_cast<int>(std::count_if(all.begin(), all.end(), [&name](const QString &call) {
        return call == name || call.startsWith(name + QLatin1Char('('));
    }));
}

std::thread::id CFakeHandler::threadOf(const QString &name) const
{
    const Lock lock(m_mutex);
    return m_threads.value(name);
}

void CFakeHandler::forgetCalls()
{
    const Lock lock(m_mutex);
    m_calls.clear();
    m_threads.clear();
}

CFakeHandler::Lock CFakeHandler::noted(const char *name, const QStringList &arguments) const
{
    const QString operation = QString::fromLatin1(name);
    QString call = operation;
    if (!arguments.isEmpty())
        call += QLatin1Char('(') + arguments.join(QLatin1Char(',')) + QLatin1Char(')');
    Lock lock(m_mutex);
    m_calls << call;
    m_threads[operation] = std::this_thread::get_id();
    m_fails = fails && fails(operation);
    if (const auto told = onCalled) {
        lock.unlock();
        told(call);
        lock.lock();
    }
    return lock;
}

CFakeHandler::Node CFakeHandler::node(const char *name, const QUuid &key) const
{
    const auto lock = note(name);
    const auto found =
        std::find_if(nodes.begin(), nodes.end(), [&key](const Node &one) { return one.uuid == key; });
    return m_fails || found == nodes.end() ? Node() : *found;
}

void CFakeHandler::end(Lock lock, Done done)
{
    if (answerLater) {
        m_waiting.push_back(std::move(done));
        return;
    }
    const SDeviceOutcome ended = m_fails ? SDeviceOutcome{SDeviceOutcome::Failed, error} : outcome;
    const int times = answers;
    lock.unlock();
    for (int i = 0; i < times; ++i)
        done(ended);
}

void CFakeHandler::endWaiting(const SDeviceOutcome &ended)
{
    Lock lock(m_mutex);
    const Done done = m_waiting.front();
    m_waiting.erase(m_waiting.begin());
    const int times = answers;
    lock.unlock();
    for (int i = 0; i < times; ++i)
        done(ended);
}

bool CFakeHandler::areProcessorsOnline(const QList<QUuid> &processors) const
{
    const auto lock = note(__func__);
    return std::all_of(nodes.begin(), nodes.end(), [&processors](const Node &one) {
        return one.online || !processors.contains(one.uuid);
    });
}

PortLocks CFakeHandler::locksBeside(const QUuid &processor) const
{
    const auto lock = note(__func__);
    QVector<CabinetLayout::CabinetPort> ports;
    for (auto it = layouts.begin(); it != layouts.end(); ++it)
        ports += it.key() == processor ? decltype(ports)() : it.value().layout.ports;
    const auto locked = [](const CabinetLayout::CabinetPort &port) { return port.locked; };
    if (ports.isEmpty())
        return PortLocks::NoPorts;
    return std::all_of(ports.begin(), ports.end(), locked) ? PortLocks::All : PortLocks::NotAll;
}

QList<CFakeHandler::Node> CFakeHandler::selectedProcessors() const
{
    const auto lock = note(__func__);
    QList<Node> chosen;
    for (const Node &one : nodes) {
        if (selected.contains(one.uuid))
            chosen << one;
    }
    return chosen;
}

CFakeHandler::Node CFakeHandler::processorOfCabinet(const QUuid &cabinet) const
{
    const auto lock = note(__func__);
    for (const LayoutData &data : layouts) {
        for (const Port &port : data.layout.ports) {
            const QVector<Port::Cabinet> cabinets = port.getAllCabinets();
            for (const Port::Cabinet &one : cabinets) {
                if (one.uuid == cabinet)
                    return node("getProcessorNode", data.processor);
            }
        }
    }
    return {};
}

void CFakeHandler::commitLayoutData(const LayoutData &data)
{
    const auto lock = note(__func__, data.processor);
    if (m_fails)
        return;
    QHash<QUuid, int> places; // the host's own, see ILayoutInterfaceHandler
    for (const Port &port : layouts.value(data.processor).layout.ports) {
        for (const Port::Cabinet &cabinet : port.getAllCabinets())
            places.insert(cabinet.uuid, cabinet.mappingIndex);
    }
    LayoutData &kept = layouts[data.processor] = data;
    for (Port &port : kept.layout.ports) {
        for (Port::CabinetGroup &group : port.groups) {
            for (Port::Cabinet &cabinet : group.cabinets)
                cabinet.mappingIndex = places.value(cabinet.uuid, -1);
        }
    }
}

void CFakeHandler::readMapping(ReadSaveMappingRole wanted, const SMappingOptions &options, Done done)
{
    auto lock = note(__func__);
    role = wanted;
    readOptions = options;
    end(std::move(lock), std::move(done));
}

void CFakeHandler::saveMapping(ReadSaveMappingRole wanted, const LayoutData &data, Done done)
{
    auto lock = note(__func__);
    role = wanted;
    saved = data;
    end(std::move(lock), std::move(done));
}

bool CFakeHandler::setProcessorOffsets(const ProcessorOffsets &offsets)
{
    QStringList arguments;
    for (auto it = offsets.begin(); it != offsets.end(); ++it)
        arguments << text(it.key()) << text(it.value().x()) << text(it.value().y());
    const auto lock = noted(__func__, arguments);
    const bool done = !refused.contains(QLatin1String(__func__));
    for (auto it = offsets.begin(); done && it != offsets.end(); ++it)
        rects[it.key()].moveTo(it.value());
    return done;
}
