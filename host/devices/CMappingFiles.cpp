// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CMappingFiles.h"

#include "host/devices/CProjectShelf.h"
#include "host/devices/services/CDeviceServices.h"
#include "host/devices/simulated/CSimulatedProcessor.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CFileLock.h"
#include "host/projects/CPortProject.h"
#include "host/projects/CProcessorProject.h"
#include "host/projects/CSafeFile.h"

#include <algorithm>

namespace {

using Port = CabinetLayout::CabinetPort;
using PortGroup = Port::CabinetGroup;

CStatus noSuchProcessor()
{
    return CStatus::failure(CMappingFiles::tr("There is no such processor."));
}

/// Gives imported cabinets new keys: the processor of a cabinet is found by its key.
void renewKeys(PortGroup &group, int port)
{
    if (!group.isLoose())
        group.uuid = QUuid::createUuid();
    for (Port::Cabinet &cabinet : group.cabinets) {
        cabinet.uuid = QUuid::createUuid();
        cabinet.group = group.uuid;
        cabinet.port = port;
        cabinet.calibrationIndex = -1;
    }
    for (PortGroup &inner : group.groups)
        renewKeys(inner, port);
}

Port renewed(Port port, int index)
{
    port.index = index;
    for (PortGroup &group : port.groups)
        renewKeys(group, index);
    return port;
}

/// Ends pairs of which only one port was imported, or whose other port does not belong to the pair.
void dropHalfPairs(CabinetLayout &layout, bool supported, const PortPairs::LayoutOf &layoutOf)
{
    const CabinetLayout before = layout;
    for (Port &port : layout.ports) {
        if (!supported || !PortPairs::partner(before, port, layoutOf))
            PortPairs::setPair(port, layout.processor, Port::NoRedundancy, {});
    }
}

SSettings::TypeLibrary::STreeNode::RcvTypeInfo customType(const Port::Cabinet &cabinet)
{
    SSettings::TypeLibrary::STreeNode::RcvTypeInfo info;
    info.key = cabinet.type; // null, or a type that only the cabinet knows
    info.width = cabinet.rect.width();
    info.height = cabinet.rect.height();
    info.name = QStringLiteral("%1×%2").arg(info.width).arg(info.height);
    info.receivers = cabinet.rects;
    info.kind = cabinet.rects.size() > 1 ? info.MultiReceiver : info.SingleReceiver;
    return info;
}

} // namespace

CMappingFiles::CMappingFiles(CDeviceServices &services, const CTypeLibrary &library)
    : m_services(services)
    , m_library(library)
{
}

CStatus CMappingFiles::exportProcessor(const QUuid &processor, const QString &file, bool overHeld,
                                       std::optional<SLockHolder> &heldBy) const
{
    const std::optional<SDevice> device = m_services.table().device(processor);
    if (!device)
        return noSuchProcessor();
    CFileLock lock(file);
    if (!overHeld && lock.isHeld()) {
        heldBy = lock.holder();
        return CStatus::failure(
            tr("%1 was not written: %2 has it open.").arg(CSafeFile::quoted(file), heldBy->text()));
    }
    return CProcessorProject::write(file, CProjectShelf::projectOf(*device));
}

CStatus CMappingFiles::importProcessor(const QUuid &processor, const QString &file, bool overwriteLocked)
{
    const std::optional<SDevice> device = m_services.table().device(processor);
    if (!device)
        return noSuchProcessor();
    if (!device->layoutRefusal().isEmpty())
        return CStatus::failure(device->failureText(device->layoutRefusal()));
    const CResult<SProcessorProject> project = CProcessorProject::read(file);
    return project ? replaceLayout(*device, project.value().layout, overwriteLocked)
                   : CStatus::failure(project.error());
}

CStatus CMappingFiles::copyProcessor(const QUuid &from, const QUuid &to, bool overwriteLocked)
{
    const std::optional<SDevice> source = m_services.table().device(from);
    const std::optional<SDevice> target = m_services.table().device(to);
    if (!source || !target || from == to)
        return noSuchProcessor();
    if (!target->layoutRefusal().isEmpty())
        return CStatus::failure(target->failureText(target->layoutRefusal()));
    return replaceLayout(*target, source->working.layout(), overwriteLocked);
}

CStatus CMappingFiles::replaceLayout(const SDevice &device, const CabinetLayout &incoming,
                                     bool overwriteLocked)
{
    for (const Port &port : incoming.ports) {
        if (port.index >= device.settings.portCount && port.cabinetCount() > 0)
            return CStatus::failure(
                device.failureText(tr("The mapping uses output port %1, but only %2 are in use.")
                                       .arg(port.index + 1)
                                       .arg(device.settings.portCount)));
    }
    CabinetLayout layout = device.withPortsInUse(device.working.layout());
    const auto isKept = [overwriteLocked](const Port &port) { return port.locked && !overwriteLocked; };
    if (std::all_of(layout.ports.begin(), layout.ports.end(), isKept))
        return CStatus::failure(device.failureText(tr("All output ports are locked; nothing was imported.")));
    for (Port &port : layout.ports) {
        if (isKept(port))
            continue;
        const Port *other = incoming.port(port.index);
        port = renewed(other ? *other : Port(), port.index);
    }
    dropHalfPairs(layout, device.kind.portRedundancy, m_services.layoutOf());
    take(device.node.uuid, layout);
    return CStatus::done();
}

void CMappingFiles::take(const QUuid &processor, const CabinetLayout &layout)
{
    m_services.replaceLayout(processor, [&layout](SDevice &device) { device.takeLayout(layout); });
}

CStatus CMappingFiles::exportPort(const QUuid &processor, int port, const QString &file) const
{
    const std::optional<SDevice> device = m_services.table().device(processor);
    const Port *exported = device ? device->working.layout().port(port) : nullptr;
    if (!exported)
        return device ? CStatus::failure(tr("There is no output port %1.").arg(port + 1)) : noSuchProcessor();
    SPrjPort record;
    record.processor = processor;
    record.index = port;
    record.cabinetCount = exported->cabinetCount();
    record.load = device->portLoad(*exported, port).percent;
    record.redundancyPort = exported->redundancyPort;
    for (const SPortArea &area : device->settings.portAreas) {
        if (area.port == port)
            record.area = {area.x, area.y, area.width, area.height};
    }
    record.port = *exported;
    return CPortProject::write(file, record);
}

CStatus CMappingFiles::importPort(const QUuid &processor, int port, const QString &file, bool overwriteLocked)
{
    const std::optional<SDevice> device = m_services.table().device(processor);
    const Port *replaced = device ? device->working.layout().port(port) : nullptr;
    if (!replaced)
        return device ? CStatus::failure(tr("There is no output port %1.").arg(port + 1)) : noSuchProcessor();
    if (!device->layoutRefusal().isEmpty())
        return CStatus::failure(device->failureText(device->layoutRefusal()));
    if (replaced->redundancy == Port::Redundant)
        return CStatus::failure(
            device->failureText(tr("Output port %1 is a redundancy port.").arg(port + 1)));
    if (replaced->locked && !overwriteLocked)
        return CStatus::failure(device->failureText(tr("Output port %1 is locked.").arg(port + 1)));
    const CResult<SPrjPort> record = CPortProject::read(file);
    if (!record)
        return CStatus::failure(record.error());
    CabinetLayout layout = device->working.layout();
    for (Port &own : layout.ports) {
        if (own.index == port) {
            own.groups = renewed(record.value().port, port).groups;
            own.color = record.value().port.color;
        }
    }
    take(processor, layout);
    return CStatus::done();
}

CStatus CMappingFiles::exportCabinet(const Cabinet &cabinet, const QString &file) const
{
    if (!m_library.find(cabinet.type) && !cabinet.type.isNull())
        return CStatus::failure(tr("%1 was not written: the cabinet's type is not in the type library.")
                                    .arg(CSafeFile::quoted(file)));
    SCabinetConfig config = configOf(cabinet);
    const ProcessorTree::ProcessorNode node = m_services.table().nodeOfCabinet(cabinet.uuid);
    if (const std::optional<SDevice> device = m_services.table().device(node.uuid))
        config.gamma = device->settings.gammas.value(cabinet.type, config.gamma);
    return CCabinetConfig::write(file, config);
}

CStatus CMappingFiles::writeConnected(const SConnectedCabinet &connected, const QString &file,
                                      const QString &typeName) const
{
    SCabinetConfig config = configOf(connected.record);
    if (!typeName.isEmpty())
        config.type.name = typeName;
    config.gamma = connected.gamma.value_or(config.gamma);
    return CCabinetConfig::write(file, config);
}

SCabinetConfig CMappingFiles::configOf(const Cabinet &cabinet) const
{
    const auto *known = m_library.find(cabinet.type);
    SCabinetConfig config;
    config.type = known ? *known : customType(cabinet);
    config.rects = cabinet.rects;
    return config;
}
