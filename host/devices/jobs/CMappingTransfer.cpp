// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/jobs/CMappingTransfer.h"

#include "host/devices/services/CDeviceServices.h"

CMappingTransfer::CMappingTransfer(CDeviceServices &services, const SJobContext &context)
    : m_services(services)
    , m_context(context)
{
}

SDeviceOutcome CMappingTransfer::read(const QList<QUuid> &processors, const SMappingOptions &options)
{
    return each(processors, tr("Reading the mapping of %1"), tr("%1 of %2 layouts were read."),
                [this, &options](const SDevice &device) { return readOne(device, options); });
}

SDeviceOutcome CMappingTransfer::save(const QList<QUuid> &processors)
{
    return each(processors, tr("Saving the mapping to %1"), tr("%1 of %2 layouts were saved."),
                [this](const SDevice &device) { return saveOne(device); });
}

SDeviceOutcome CMappingTransfer::each(const QList<QUuid> &processors, const QString &progressText,
                                      const QString &partText,
                                      const std::function<Step(const SDevice &)> &step)
{
    int done = 0;
    int skipped = 0; // by the user
    m_count = processors.size();
    for (m_index = 0; m_index < m_count; ++m_index) {
        const std::optional<SDevice> device = m_services.table().device(processors.at(m_index));
        if (!device)
            continue; // removed meanwhile
        m_progressText = progressText.arg(device->node.displayText());
        progressOf()(0);
        const Step result = step(*device);
        if (result == Step::Cancelled)
            return {SDeviceOutcome::Cancelled, m_failures.join(QLatin1Char('\n'))};
        done += result == Step::Done;
        skipped += result == Step::Skipped;
    }
    if (!m_failures.isEmpty())
        return {SDeviceOutcome::Failed, m_failures.join(QLatin1Char('\n'))};
    if (skipped == 0)
        return {SDeviceOutcome::Done, {}};
    if (done == 0)
        return {SDeviceOutcome::Cancelled, {}};
    return {SDeviceOutcome::Done, partText.arg(done).arg(done + skipped)};
}

CSimulatedProcessor::Progress CMappingTransfer::progressOf() const
{
    return [this](int percent) { m_context.report((100 * m_index + percent) / m_count, m_progressText); };
}

CMappingTransfer::Step CMappingTransfer::failed(const SDevice &device, const QString &reason)
{
    m_failures << device.failureText(reason);
    return Step::Failed;
}

CMappingTransfer::Step CMappingTransfer::failed(const SDevice &device, DeviceError error)
{
    if (error == DeviceError::Cancelled)
        return Step::Cancelled;
    if (error == DeviceError::Offline || error == DeviceError::NoAnswer)
        m_services.setOnline(device.node.uuid, false);
    return failed(device, deviceErrorText(error));
}

CMappingTransfer::Step CMappingTransfer::readOne(const SDevice &device, const SMappingOptions &options)
{
    const auto processor = m_services.device(device.node.uuid);
    if (!processor)
        return failed(device, tr("A project has no processor to read from."));
    if (!device.layoutRefusal().isEmpty()) // among several, those that can be read are
        return m_count > 1 ? Step::Nothing : failed(device, device.layoutRefusal());
    if (device.isModified() && !m_context.ask(device.failureText(
                                   tr("The layout has edits that were not saved to the processor. Replace "
                                      "them by the processor's mapping?"))))
        return m_context.cancel->isCancelled() ? Step::Cancelled : Step::Skipped;
    QByteArray bytes;
    const DeviceError error = options.mappingFromProcessor
                                  ? processor->readMapping(*m_context.cancel, progressOf(), bytes)
                                  : processor->readCabinets(*m_context.cancel, progressOf(), bytes);
    if (error != DeviceError::None)
        return failed(device, error);
    const auto mapping = CProcessorCodec::mapping(bytes, device.node.displayText());
    return mapping ? takeOver(device, mapping.value()) : failed(device, DeviceError::Damaged);
}

CMappingTransfer::Step CMappingTransfer::takeOver(const SDevice &device, const SProcessorMapping &mapping)
{
    SDevice read = device; // computed on a copy, so that nobody waits for the table meanwhile
    read.takeSaved(mapping.layout);
    const bool same = !read.isModified();
    if (!same)
        read.takeLayout(withLockedPortsKept(device, read.working.saved()));
    read.revision = mapping.revision;
    switch (m_services.takeMapping(device, read, !same, *m_context.cancel)) {
    case CDeviceServices::Taken::Cancelled:
        return Step::Cancelled;
    case CDeviceServices::Taken::Edited:
        return failed(device, tr("The layout was edited while the mapping was read; the edits were kept."));
    case CDeviceServices::Taken::Yes:
        break;
    }
    m_services.announcer().announceState(); // what equals the edits has made them saved ones
    m_services.announcer().notify(LayoutNotification::ReadbackFinished,
                                  SReadbackResult{device.node.uuid, same});
    return Step::Done;
}

CabinetLayout CMappingTransfer::withLockedPortsKept(const SDevice &device, const CabinetLayout &read) const
{
    CabinetLayout kept = read;
    bool differs = false;
    for (CabinetLayout::CabinetPort &port : kept.ports) {
        const CabinetLayout::CabinetPort *before = device.working.layout().port(port.index);
        if (before && before->locked && !LayoutData::comparePortData(*before, port, true)) {
            differs = true;
            port = *before;
        }
    }
    const bool overwrite = differs && m_context.ask(tr("The output port has been locked in the current "
                                                       "layout, want to overwrite?"));
    return overwrite ? read : kept;
}

CMappingTransfer::Step CMappingTransfer::saveOne(const SDevice &device)
{
    const auto processor = m_services.device(device.node.uuid);
    if (!processor)
        return failed(device, tr("A project has no processor to save to. Save it to a file, or copy its "
                                 "mapping to a processor."));
    if (!device.isLoaded())
        return Step::Nothing; // nothing was read or edited: the processor keeps what it has
    quint64 revision = 0;
    DeviceError error = processor->revision(*m_context.cancel, revision);
    if (error != DeviceError::None)
        return failed(device, error);
    if (!mayOverwrite(device, revision))
        return m_context.cancel->isCancelled() ? Step::Cancelled : Step::Skipped;
    CabinetLayout mapping = device.working.layout();
    const QVector<int> mirrors = PortPairs::giveMirrors(mapping, m_services.layoutOf());
    error = processor->saveMapping(*m_context.cancel, progressOf(),
                                   CProcessorCodec::encode(SProcessorMapping{mapping, revision}), revision);
    if (error != DeviceError::None)
        return failed(device, error);
    const QUuid uuid = device.node.uuid;
    m_services.table().change(uuid, [revision](SDevice &known) { known.revision = revision; });
    m_services.table().changeLayout(uuid, [&mapping](SDevice &known) { known.takeSaved(mapping); });
    m_services.takeMirrors(uuid, mapping, mirrors);
    m_services.announcer().announceState();
    return Step::Done;
}

bool CMappingTransfer::mayOverwrite(const SDevice &device, quint64 revision) const
{
    if (revision == device.revision)
        return true;
    return m_context.ask(device.failureText(tr("The mapping was changed from elsewhere since it was last "
                                               "read. Overwrite it?")));
}
