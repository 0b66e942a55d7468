// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/jobs/CDetection.h"

#include "host/devices/services/CDeviceServices.h"
#include "host/devices/services/CSimulatedPark.h"
#include "host/devices/simulated/CProcessorKinds.h"

CDetection::CDetection(CDeviceServices &services, const SJobContext &context)
    : m_services(services)
    , m_context(context)
{
}

SDeviceOutcome CDetection::run()
{
    const CSimulatedPark &park = m_services.park();
    m_services.table().setGroups(park.groups());
    m_count = static_cast<int>(park.processors().size());
    for (const CSimulatedPark::Processor &processor : park.processors()) {
        report(0);
        detectOne(*processor);
        if (m_context.cancel->isCancelled())
            break;
        ++m_index;
    }
    m_services.announcer().notify(LayoutNotification::DetectFinished);
    const QString failures = m_failures.join(QLatin1Char('\n'));
    if (m_context.cancel->isCancelled())
        return {SDeviceOutcome::Cancelled, failures};
    return {failures.isEmpty() ? SDeviceOutcome::Done : SDeviceOutcome::Failed, failures};
}

void CDetection::report(int percent) const
{
    m_context.report((100 * m_index + percent) / m_count, tr("Searching for processors"));
}

SDevice CDetection::knownOrNew(const CSimulatedProcessor &processor) const
{
    const CSimulatedProcessor::SIdentity &identity = processor.identity();
    if (const std::optional<SDevice> known = m_services.table().device(identity.uuid))
        return *known;
    SDevice device;
    if (const SProcessorKind *kind = CProcessorKinds::builtIn().find(identity.kind))
        device.kind = *kind;
    device.node.uuid = identity.uuid;
    device.node.name = identity.name;
    device.node.model = device.kind.name;
    device.node.serialNumber = identity.serialNumber;
    device.node.address = identity.address;
    device.group = identity.group;
    device.settings.portCount = device.kind.ports;
    return device;
}

void CDetection::detectOne(CSimulatedProcessor &processor)
{
    const SDevice before = knownOrNew(processor);
    SDevice device = before;
    bool read = false;
    DeviceError error = ask(processor, device);
    if (error == DeviceError::None)
        error = readMapping(processor, device, read);
    if (error == DeviceError::Cancelled)
        return;
    device.node.online = error == DeviceError::None;
    device.node.index = device.node.online ? m_online++ : -1;
    const bool silent = error == DeviceError::Offline || error == DeviceError::NoAnswer;
    if (!device.node.online && !silent)
        m_failures << device.failureText(deviceErrorText(error));
    take(before, device, read);
}

void CDetection::askAgain(const QUuid &processor)
{
    const auto simulated = m_services.device(processor);
    const std::optional<SDevice> before = m_services.table().device(processor);
    if (!simulated || !before)
        return;
    SDevice device = *before;
    bool read = false;
    DeviceError error = ask(*simulated, device);
    if (error == DeviceError::None)
        error = readMapping(*simulated, device, read);
    if (error != DeviceError::None)
        return;
    device.node.online = true;
    device.node.index = m_services.table().freeIndex(processor);
    take(*before, device, read);
}

DeviceError CDetection::ask(CSimulatedProcessor &processor, SDevice &device)
{
    QByteArray bytes;
    const DeviceError error = processor.identify(*m_context.cancel, bytes);
    if (error != DeviceError::None)
        return error;
    const auto settings = CProcessorCodec::settings(bytes, device.node.displayText());
    if (!settings)
        return DeviceError::Damaged;
    device.takeSettings(settings.value());
    device.settings.portCount = std::min(device.settings.portCount, device.kind.ports);
    device.gainRows = device.settings.gainRows;
    return DeviceError::None;
}

DeviceError CDetection::readMapping(CSimulatedProcessor &processor, SDevice &device, bool &read)
{
    quint64 revision = 0;
    DeviceError error = processor.revision(*m_context.cancel, revision);
    const bool isNew = !m_services.table().contains(device.node.uuid);
    if (error != DeviceError::None || (!isNew && (revision == device.revision || device.isModified())))
        return error;
    QByteArray bytes;
    const auto progress = [this](int percent) { report(percent); };
    error = processor.readMapping(*m_context.cancel, progress, bytes);
    if (error != DeviceError::None)
        return error;
    const auto mapping = CProcessorCodec::mapping(bytes, device.node.displayText());
    if (!mapping)
        return DeviceError::Damaged;
    device.revision = mapping.value().revision;
    if (!mapping.value().layout.ports.isEmpty()) {
        device.takeSaved(mapping.value().layout);
        device.takeLayout(mapping.value().layout);
    }
    read = true;
    return DeviceError::None;
}

void CDetection::take(const SDevice &before, const SDevice &device, bool read)
{
    const QUuid uuid = device.node.uuid;
    if (!m_services.table().contains(uuid)) {
        m_services.table().put(device);
        m_services.announcer().announceState();
        return;
    }
    if (read) { // edits made meanwhile are kept
        SDevice taken = device;
        m_services.takeMapping(before, taken, true, *m_context.cancel);
    }
    m_services.takeAnswer(before, device);
}
