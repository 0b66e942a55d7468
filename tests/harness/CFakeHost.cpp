// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/CFakeHost.h"

#include "layout/api/LayoutNotification.h"
#include "layout/api/access/CHostAccess.h"

#include <exception>

namespace {

CabinetLayout::CabinetPort fakePort(int index, int cabinets)
{
    CabinetLayout::CabinetPort port;
    port.index = index;
    CabinetLayout::CabinetPort::CabinetGroup loose;
    for (int i = 0; i < cabinets; ++i) {
        CabinetLayout::CabinetPort::Cabinet cabinet;
        cabinet.uuid = QUuid::createUuid();
        cabinet.port = index;
        cabinet.rect = QRect(100 * i, 100 * index, 100, 100);
        cabinet.rank = i;
        loose.cabinets << cabinet;
    }
    if (cabinets > 0)
        port.groups << loose;
    return port;
}

} // namespace

CFakeHost::CFakeHost()
    : m_handler(std::make_shared<CFakeHandler>())
{
    CHostAccess::setHost(this);
}

CFakeHost::~CFakeHost()
{
    CHostAccess::setHost(nullptr);
}

QUuid CFakeHost::addProcessor(const QString &name, int ports, int cabinets)
{
    ProcessorTree::ProcessorNode node;
    node.uuid = QUuid::createUuid();
    node.name = name;
    node.online = true;

    LayoutData data;
    data.processor = data.layout.processor = node.uuid;
    data.canvas = QSize(1920, 1080);
    for (int i = 0; i < ports; ++i)
        data.layout.ports << fakePort(i, cabinets);
    data.bounds = data.layout.boundingRect();

    const auto lock = answers();
    node.index = lock->nodes.size();
    lock->nodes << node;
    lock->layouts[node.uuid] = data;
    return node.uuid;
}

void CFakeHost::choose(const QUuid &processor)
{
    const auto lock = answers();
    lock->current = processor;
    lock->selected = processor.isNull() ? QList<QUuid>() : QList<QUuid>{processor};
}

void CFakeHost::notify(LayoutNotification code, std::any argument)
{
    std::exception_ptr thrown;
    std::thread thread([&] {
        try {
            m_subject.notify(static_cast<int>(code), std::move(argument));
        } catch (...) {
            thrown = std::current_exception();
        }
    });
    m_updateThread = thread.get_id();
    thread.join();
    if (thrown)
        std::rethrow_exception(thrown);
}
