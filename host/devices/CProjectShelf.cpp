// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CProjectShelf.h"

#include "host/devices/CDeviceTable.h"
#include "host/devices/simulated/CProcessorKinds.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CSafeFile.h"
#include "host/projects/CWallBuilder.h"

#include <QFileInfo>

#include <algorithm>

namespace {

int portsInUse(const SProcessorProject &project)
{
    const int last = project.layout.ports.isEmpty() ? -1 : project.layout.ports.last().index;
    return std::max({1, project.portCount, last + 1});
}

const SProcessorKind *kindFor(const SProcessorProject &project)
{
    const CProcessorKinds &kinds = CProcessorKinds::builtIn();
    return project.kind.isEmpty() ? kinds.withPorts(portsInUse(project)) : kinds.find(project.kind);
}

} // namespace

CProjectShelf::CProjectShelf(CDeviceTable &table)
    : m_table(table)
{
}

QUuid CProjectShelf::openedAs(const QString &file) const
{
    const QString path = QFileInfo(file).canonicalFilePath();
    for (const SDevice &device : m_table.devices()) {
        if (!path.isEmpty() && !device.file.isEmpty() && QFileInfo(device.file).canonicalFilePath() == path)
            return device.node.uuid;
    }
    return {};
}

CResult<QUuid> CProjectShelf::open(const QString &file)
{
    const QUuid opened = openedAs(file);
    if (!opened.isNull())
        return opened;
    const CResult<SProcessorProject> project = CProcessorProject::read(file);
    return project ? add(project.value(), file, project.value().layout)
                   : CResult<QUuid>::failure(project.error());
}

CResult<QUuid> CProjectShelf::openDemo()
{
    SWallPlan plan = CWallBuilder::plan(CWallBuilder::Medium);
    const CResult<CabinetLayout> layout = CWallBuilder::build(plan);
    if (!layout)
        return CResult<QUuid>::failure(layout.error());
    SProcessorProject project = SProcessorProject::ofPlan(plan, layout.value());
    project.name = tr("Demo wall");
    project.portCount = 16; // one without cabinets, to try things out
    return add(project, {}, project.layout);
}

CResult<QUuid> CProjectShelf::addUnsaved(const SProcessorProject &project)
{
    return add(project, {}, {});
}

CResult<QUuid> CProjectShelf::add(const SProcessorProject &project, const QString &file,
                                  const CabinetLayout &saved)
{
    const SProcessorKind *kind = kindFor(project);
    if (!kind || kind->ports < portsInUse(project)) {
        return CResult<QUuid>::failure(
            tr("%1 needs a processor of the kind \"%2\" with %3 output ports, which is not known.")
                .arg(CSafeFile::quoted(file.isEmpty() ? project.name : file), project.kind)
                .arg(portsInUse(project)));
    }
    SDevice device;
    device.project = true;
    device.file = file;
    device.kind = *kind;
    device.node.uuid = QUuid::createUuid(); // the file may come from a processor that is on the network
    device.node.name = project.name.isEmpty() ? QFileInfo(file).completeBaseName() : project.name;
    device.node.address = 0;
    device.node.model = kind->name;
    device.node.colorDepth = project.colorDepth;
    device.node.online = true;
    device.settings.portCount = portsInUse(project);
    device.settings.canvas = project.canvas;
    device.settings.frameRate = project.frameRate;
    device.settings.colorDepth = project.colorDepth;
    device.settings.background = project.background;
    device.settings.background.processor = device.node.uuid;
    device.savedSettings = device.settings;
    device.takeLayout(project.layout);
    device.takeSaved(saved);
    m_table.put(device);
    return device.node.uuid;
}

SProcessorProject CProjectShelf::projectOf(const SDevice &device)
{
    SProcessorProject project;
    project.name = device.node.name;
    project.kind = device.kind.id;
    project.portCount = device.settings.portCount;
    project.canvas = device.settings.canvas;
    project.frameRate = device.settings.frameRate;
    project.colorDepth = device.settings.colorDepth;
    project.background = device.settings.background;
    project.layout = device.working.layout();
    project.layout.processor = device.node.uuid;
    return project;
}

CStatus CProjectShelf::save(const QUuid &processor, const QString &file)
{
    const std::optional<SDevice> device = m_table.device(processor);
    if (!device)
        return CStatus::failure(tr("There is no such processor."));
    const CStatus status = CProcessorProject::write(file, projectOf(*device));
    if (!status || !device->project)
        return status;
    m_table.change(processor, [&](SDevice &known) {
        known.file = file;
        known.savedSettings = device->settings;
    });
    m_table.changeLayout(processor, [&device](SDevice &known) { known.takeSaved(device->working.layout()); });
    return status;
}
