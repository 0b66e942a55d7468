// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CDeviceServices.h"

#include "layout/api/records/RecordMetaTypes.h"

#include <utility>

CDeviceServices::CDeviceServices(const SDeviceSettings &settings)
    : m_park(settings.stateFolder, settings.delayScale)
    , m_announcer(m_mailbox)
{
    registerRecordMetaTypes();
}

std::shared_ptr<CSimulatedProcessor> CDeviceServices::device(const QUuid &processor) const
{
    return m_park.find(processor);
}

void CDeviceServices::setOnline(const QUuid &processor, bool online)
{
    bool changed = false;
    m_table.change(processor, [&](SDevice &device) {
        changed = device.node.online != online;
        device.node.online = online;
    });
    if (!changed)
        return;
    m_announcer.notify(LayoutNotification::ProcessorStateChanged, SProcessorStateChange{processor, online});
    m_announcer.announceState();
}

void CDeviceServices::select(const QList<QUuid> &processors, PrcTreeNodeType type)
{
    QList<QUuid> known;
    for (const QUuid &processor : processors) {
        if (m_table.contains(processor))
            known << processor;
    }
    const QUuid before = m_table.current();
    const bool single = type == PrcTreeNodeType::Processor && known.size() == 1;
    const QUuid current = single ? known.first() : QUuid();
    m_table.setSelection(current, known);
    if (current != before)
        m_announcer.announceCurrentProcessor(current);
    m_announcer.notify(LayoutNotification::SelectedNodeChanged,
                       SSelectedNodeChange{m_table.areas(known), type});
}

void CDeviceServices::setFlush(std::function<void()> flush)
{
    m_flush = std::move(flush);
}

void CDeviceServices::flush() const
{
    if (m_flush)
        m_flush();
}

void CDeviceServices::stop()
{
    m_announcer.stop();
    m_mailbox.close();
}
