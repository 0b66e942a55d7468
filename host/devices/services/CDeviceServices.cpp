// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CDeviceServices.h"

#include "layout/api/records/ProcessorPairs.h"
#include "layout/api/records/RecordMetaTypes.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

/// Whether the module must ask the host again for something that has no notification of its own.
bool needAskingAgain(const SProcessorSettings &before, const SProcessorSettings &after)
{
    const auto asked = [](const SProcessorSettings &s) {
        return std::tie(s.primary, s.portAreas, s.gains, s.gainRows, s.threeD, s.lowLatency, s.frozen,
                        s.polling, s.hdmiOutput);
    };
    return asked(before) != asked(after);
}

} // namespace

CDeviceServices::CDeviceServices(const SDeviceSettings &settings)
    : m_park(settings.stateFolder, settings.delayScale)
    , m_announcer(m_mailbox)
{
    registerRecordMetaTypes();
    QObject::connect(&m_announcer, &CDeviceAnnouncer::notifyProcessorsChanged, &m_announcer,
                     [this] { announceUnsavedEdits(); });
}

std::shared_ptr<CSimulatedProcessor> CDeviceServices::device(const QUuid &processor) const
{
    return m_park.find(processor);
}

PortPairs::LayoutOf CDeviceServices::layoutOf() const
{
    return [this](const QUuid &processor) {
        const std::optional<SDevice> device = m_table.device(processor);
        return device ? device->working.layout() : CabinetLayout();
    };
}

void CDeviceServices::takeMirrors(const QUuid &processor, const CabinetLayout &saved,
                                  const QVector<int> &ports)
{
    if (ports.isEmpty())
        return;
    m_table.changeLayout(processor, [&saved, &ports](SDevice &device) {
        CabinetLayout layout = device.working.layout();
        for (CabinetLayout::CabinetPort &port : layout.ports) {
            const CabinetLayout::CabinetPort *given = saved.port(port.index);
            if (given && ports.contains(port.index) && port.redundancy == given->redundancy)
                port.mirrored = given->mirrored;
        }
        device.takeLayout(layout);
    });
    if (processor != m_table.current())
        return;
    for (const int port : ports) {
        const CabinetLayout::CabinetPort *given = saved.port(port);
        const int primary = given->redundancyProcessor.isNull() ? given->redundancyPort : -1;
        m_announcer.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{primary, port, true});
    }
}

void CDeviceServices::setOnline(const QUuid &processor, bool online)
{
    bool changed = false;
    m_table.change(processor, [&](SDevice &device) {
        changed = device.node.online != online;
        device.node.online = online;
        device.changes += changed ? 1 : 0;
    });
    if (!changed)
        return;
    m_announcer.notify(LayoutNotification::ProcessorStateChanged, SProcessorStateChange{processor, online});
    m_announcer.announceState();
}

void CDeviceServices::takeSettings(const QUuid &processor, const SProcessorSettings &settings)
{
    std::optional<SProcessorSettings> before;
    bool online = false;
    m_table.change(processor, [&](SDevice &device) {
        before = device.settings;
        online = device.node.online;
        device.takeSettings(settings);
    });
    if (before)
        announceSettings(processor, *before, settings, online);
}

void CDeviceServices::takeAnswer(const SDevice &before, const SDevice &answer)
{
    const QUuid uuid = answer.node.uuid;
    SProcessorSettings settings = answer.settings;
    bool asAsked = false;
    m_table.change(uuid, [&](SDevice &now) {
        asAsked = now.changes == before.changes;
        now.node.index = answer.node.index;
        if (!asAsked)
            return;
        const bool gainsWait = now.gainRows != now.settings.gainRows; // imported, but not sent
        settings.portCount = std::max(settings.portCount, ProcessorPairs::portsHeld(now.working.layout()));
        now.takeSettings(settings);
        now.node.online = answer.node.online;
        if (!gainsWait)
            now.gainRows = now.settings.gainRows;
    });
    if (!asAsked)
        return;
    if (before.node.online != answer.node.online)
        m_announcer.notify(LayoutNotification::ProcessorStateChanged,
                           SProcessorStateChange{uuid, answer.node.online});
    announceSettings(uuid, before.settings, settings, answer.node.online);
}

CDeviceServices::Taken CDeviceServices::takeMapping(const SDevice &before, SDevice &read, bool replaced,
                                                    const CCancelToken &cancel)
{
    const QUuid uuid = before.node.uuid;
    bool unedited = false;
    const bool called = m_mailbox.call(
        [&] {
            flush();
            m_table.change(uuid, [&](SDevice &now) {
                unedited = now.working.edition() == before.working.edition();
                if (!unedited)
                    return;
                now.revision = read.revision;
                now.swapWorking(read.working, replaced); // the old one is destroyed by the caller
            });
            if (unedited && replaced)
                announceReplacement(uuid); // before the user can edit what is outdated
        },
        cancel);
    return !called ? Taken::Cancelled : unedited ? Taken::Yes : Taken::Edited;
}

void CDeviceServices::replaceLayout(const QUuid &processor, const std::function<void(SDevice &)> &edit)
{
    if (m_table.replaceLayout(processor, edit))
        announceReplacement(processor);
}

void CDeviceServices::announceReplacement(const QUuid &processor)
{
    m_announcer.announceLayout(processor, [this, processor] {
        m_table.endReplacement(processor);
        // The module may have asked before, and been told that it did not know the layout.
        m_announcer.notify(LayoutNotification::UnsavedEditsChanged, processor);
    });
}

void CDeviceServices::takePortCount(const QUuid &processor)
{
    m_table.changeLayout(processor, [](SDevice &known) {
        if (!known.isLoaded())
            return;
        const bool edited = known.working.isModified();
        known.takeLayout(known.working.layout());
        if (!edited) // the number of ports is no edit of the mapping
            known.takeSaved(known.working.saved());
    });
    m_announcer.announceCommit(processor);
    if (processor == m_table.current())
        m_announcer.notify(LayoutNotification::PortCountChanged);
    else
        m_announcer.notify(LayoutNotification::LayoutReplaced, processor);
}

void CDeviceServices::announceSettings(const QUuid &processor, const SProcessorSettings &before,
                                       const SProcessorSettings &after, bool online)
{
    const bool newCanvas = after.canvas != before.canvas;
    const bool newBackground = after.background != before.background;
    if (newCanvas)
        m_announcer.notify(LayoutNotification::CanvasSizeChanged, SCanvasSizeChange{processor, after.canvas});
    if (newBackground) {
        SBackgroundInfo background = after.background;
        background.processor = processor;
        m_announcer.notify(LayoutNotification::BackgroundChanged, background);
    }
    if (after.portCount != before.portCount)
        takePortCount(processor);
    if (after.statusLed != before.statusLed)
        m_announcer.announceStatusLed(processor, after.statusLed);
    if (after.workMode != before.workMode)
        m_announcer.notify(LayoutNotification::WorkModeChanged);
    if (after.frameRate != before.frameRate || after.colorDepth != before.colorDepth ||
        after.threeD != before.threeD)
        m_announcer.notify(LayoutNotification::PortLoadsChanged, SPortLoadChange{processor, -1});
    if (needAskingAgain(before, after))
        m_announcer.notify(LayoutNotification::ProcessorStateChanged,
                           SProcessorStateChange{processor, online});
    if (newCanvas || after.offset != before.offset)
        announceArea(processor);
    if (newCanvas || newBackground)
        m_announcer.announceCommit(processor);
    else
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
    m_selectionType = type;
    m_table.setSelection(current, known);
    if (current != before)
        m_announcer.announceCurrentProcessor(current);
    m_announcer.notify(LayoutNotification::SelectedNodeChanged,
                       SSelectedNodeChange{m_table.areas(known), type});
}

void CDeviceServices::announceUnsavedEdits()
{
    const QHash<QUuid, SUnsavedEdits> before = std::exchange(m_unsavedEdits, m_table.unsavedEdits());
    for (auto now = m_unsavedEdits.cbegin(); now != m_unsavedEdits.cend(); ++now) {
        if (!before.contains(now.key()) || before[now.key()] != *now)
            m_announcer.notify(LayoutNotification::UnsavedEditsChanged, now.key());
    }
}

void CDeviceServices::announceArea(const QUuid &processor)
{
    const QList<QUuid> selection = m_table.selection();
    if (selection.size() > 1 && selection.contains(processor))
        m_announcer.notify(LayoutNotification::SelectedNodeChanged,
                           SSelectedNodeChange{m_table.areas(selection), m_selectionType});
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
