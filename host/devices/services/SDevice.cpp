// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/SDevice.h"

#include "layout/api/records/EditRefusal.h"

#include <utility>

QString SDevice::layoutRefusal() const
{
    return settings.primary.isNull() ? QString() : EditRefusal::redundancy();
}

SUnsavedEdits SDevice::unsavedEdits() const
{
    const bool ofProject = project && (settings != savedSettings || print != savedPrint);
    return {working.savedNumber(), working.haveCabinetsChanged(), ofProject || working.haveSettingsChanged()};
}

LayoutData SDevice::data() const
{
    LayoutData data;
    data.processor = node.uuid;
    data.layout = working.layout();
    data.layout.processor = node.uuid;
    data.canvas = settings.canvas;
    data.bounds = working.bounds(); // not walked for each question
    return data;
}

LayoutData SDevice::dataWithLoads() const
{
    LayoutData complete = data();
    for (CabinetLayout::CabinetPort &port : complete.layout.ports)
        port.load = portLoad(port, port.index).percent;
    return complete;
}

SPortLoad SDevice::portLoad(const CabinetLayout::CabinetPort &port, int index) const
{
    const qint64 used = CPortCapacity::charged(kind.generation, CPortCapacity::carried(port));
    const qint64 total =
        working.chargedPixels() - working.chargedPixels(index) + CPortCapacity::added(port, node.uuid, used);
    return CPortCapacity::load(kind, {settings.frameRate, settings.colorDepth, settings.threeD}, used, total);
}

CabinetLayout SDevice::withPortsInUse(const CabinetLayout &layout) const
{
    CabinetLayout complete;
    complete.processor = node.uuid;
    complete.ports.reserve(settings.portCount);
    for (int i = 0; i < settings.portCount; ++i) {
        const CabinetLayout::CabinetPort *port = layout.port(i);
        complete.ports << (port ? *port : CabinetLayout::CabinetPort());
        complete.ports.last().index = i;
    }
    return complete;
}

QString SDevice::failureText(const QString &reason) const
{
    return QStringLiteral("%1: %2").arg(node.displayText(), reason);
}

void SDevice::takeSettings(const SProcessorSettings &taken)
{
    settings = taken;
    node.colorDepth = settings.colorDepth;
    node.fiberTransceiver = settings.workMode == ProcessorWorkMode::FiberTransceiver;
    ++changes;
}

void SDevice::takeLayout(const CabinetLayout &layout)
{
    working.take(withPortsInUse(layout), kind.generation);
}

void SDevice::swapWorking(CWorkingLayout &other, bool replaces)
{
    if (replaces) {
        replaced << working.layout().ports;
        ++replacements;
    }
    std::swap(working, other);
}

void SDevice::takeSaved(const CabinetLayout &mapping)
{
    working.setSaved(CWorkingLayout::numbered(withPortsInUse(mapping)));
}
