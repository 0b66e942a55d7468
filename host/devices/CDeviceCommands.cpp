// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CDeviceCommands.h"

#include "host/devices/services/CDeviceServices.h"
#include "host/library/CTypeLibrary.h"
#include "layout/api/records/LayoutLimits.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr int GainFrameRates = 3;
constexpr int GainLevels = 3;

QString unknownProcessor()
{
    return CDeviceCommands::tr("There is no such processor.");
}

QString withoutCabinets()
{
    return CDeviceCommands::tr("A project has no cabinets that are connected.");
}

} // namespace

CDeviceCommands::CDeviceCommands(CDeviceServices &services, const CTypeLibrary &library)
    : m_services(services)
    , m_library(library)
{
}

CStatus CDeviceCommands::failure(const SDevice &device, const QString &reason) const
{
    return CStatus::failure(device.failureText(reason));
}

CStatus CDeviceCommands::answered(const SDevice &device, DeviceError error) const
{
    if (error == DeviceError::Offline || error == DeviceError::NoAnswer)
        m_services.setOnline(device.node.uuid, false);
    return error == DeviceError::None ? CStatus::done() : failure(device, deviceErrorText(error));
}

CStatus CDeviceCommands::apply(const QUuid &processor, const Edit &edit, DeviceError *error)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const std::optional<SDevice> device = m_services.table().device(processor);
    if (!device)
        return CStatus::failure(unknownProcessor());
    SProcessorSettings settings = device->settings;
    edit(settings);
    if (const auto simulated = m_services.device(processor)) {
        const DeviceError answer = simulated->apply(settings);
        if (answer == DeviceError::Damaged)
            simulated->apply(device->settings); // it may have done what it was asked
        if (error)
            *error = answer;
        CStatus status = answered(*device, answer);
        if (!status)
            return status;
    }
    m_services.takeSettings(processor, settings);
    return CStatus::done();
}

CStatus CDeviceCommands::reach(const SDevice &device) const
{
    const auto simulated = m_services.device(device.node.uuid);
    return simulated ? answered(device, simulated->probe()) : failure(device, withoutCabinets());
}

CResult<SConnectedCabinet> CDeviceCommands::readCabinet(const SDevice &device, const QUuid &cabinet) const
{
    using Result = CResult<SConnectedCabinet>;
    const auto simulated = m_services.device(device.node.uuid);
    if (!simulated)
        return Result::failure(device.failureText(withoutCabinets()));
    std::optional<SConnectedCabinet> connected;
    const CStatus status = answered(device, simulated->readCabinet(cabinet, connected));
    if (!status)
        return Result::failure(status.error());
    return connected ? Result(*connected)
                     : Result::failure(device.failureText(tr("The cabinet is no longer connected to it.")));
}

CStatus CDeviceCommands::setPortCount(const QUuid &processor, int count)
{
    const std::optional<SDevice> device = m_services.table().device(processor);
    if (!device)
        return CStatus::failure(unknownProcessor());
    if (count < 1 || count > device->kind.ports)
        return failure(*device, tr("It has 1 to %1 output ports.").arg(device->kind.ports));
    if (!device->layoutRefusal().isEmpty())
        return failure(*device, device->layoutRefusal());
    for (const CabinetLayout::CabinetPort &port : device->working.layout().ports) {
        if (port.index >= count && port.cabinetCount() > 0)
            return failure(*device, tr("Output port %1 holds cabinets.").arg(port.index + 1));
        if (port.index >= count && !port.redundancyProcessor.isNull())
            return failure(*device, tr("Output port %1 is in a redundancy pair.").arg(port.index + 1));
        const bool pairGoes = port.redundancyProcessor.isNull() && port.redundancyPort >= count;
        if (port.index < count ? pairGoes : port.locked)
            return failure(
                *device,
                port.locked && port.index >= count
                    ? tr("Output port %1 is locked.").arg(port.index + 1)
                    : tr("Output port %1 has its redundancy on a port that would go.").arg(port.index + 1));
    }
    return apply(processor, [count](SProcessorSettings &settings) { settings.portCount = count; });
}

CStatus CDeviceCommands::setWorkMode(const QUuid &processor, ProcessorWorkMode mode)
{
    const std::optional<SDevice> device = m_services.table().device(processor);
    if (device && device->project)
        return failure(*device, tr("A project has no work mode."));
    return apply(processor, [mode](SProcessorSettings &settings) { settings.workMode = mode; });
}

CStatus CDeviceCommands::setThreeD(const QUuid &processor, bool on)
{
    return apply(processor, [on](SProcessorSettings &settings) { settings.threeD = on; });
}

CStatus CDeviceCommands::setLowLatency(const QUuid &processor, bool on)
{
    return apply(processor, [on](SProcessorSettings &settings) { settings.lowLatency = on; });
}

CStatus CDeviceCommands::setPrimary(const QUuid &processor, const QUuid &primary, DeviceError *error)
{
    return apply(
        processor, [&primary](SProcessorSettings &settings) { settings.primary = primary; }, error);
}

CStatus CDeviceCommands::setOffsets(const ProcessorOffsets &offsets)
{
    for (auto it = offsets.begin(); it != offsets.end(); ++it) {
        const std::optional<SDevice> device = m_services.table().device(it.key());
        if (!device)
            return CStatus::failure(unknownProcessor());
        if (!device->node.online)
            return failure(*device, deviceErrorText(DeviceError::Offline));
        if (!LayoutLimits::isOffset(it.value()))
            return failure(*device, tr("An offset has at most %1 pixels.").arg(LayoutLimits::LargestOffset));
    }
    return moveAreas(offsets);
}

CStatus CDeviceCommands::moveAreas(const ProcessorOffsets &offsets)
{
    DeviceError error = DeviceError::None;
    const auto move = [this, &error](const QUuid &processor, const QPoint &offset) {
        return apply(
            processor, [&offset](SProcessorSettings &settings) { settings.offset = offset; }, &error);
    };
    ProcessorOffsets before; // of those that were moved
    for (auto it = offsets.begin(); it != offsets.end(); ++it) {
        const SDevice device = m_services.table().device(it.key()).value_or(SDevice());
        const CStatus status = move(it.key(), it.value());
        if (status) {
            before.insert(it.key(), device.settings.offset);
            continue;
        }
        QStringList problems{status.error()};
        if (error == DeviceError::NoAnswer) { // it may have done it
            if (!move(it.key(), device.settings.offset))
                problems << tr("Its offset is read again when it answers.");
        }
        for (auto moved = before.begin(); moved != before.end(); ++moved) {
            const CStatus back = move(moved.key(), moved.value());
            if (!back)
                problems << tr("%1 It has its new offset already.").arg(back.error());
        }
        return CStatus::failure(problems.join(QLatin1Char('\n')));
    }
    return CStatus::done();
}

CStatus CDeviceCommands::setBackground(const SBackgroundInfo &info)
{
    return apply(info.processor, [&info](SProcessorSettings &settings) { settings.background = info; });
}

CanvasBlock CDeviceCommands::canvasBlock(const SDevice &device)
{
    const SProcessorSettings &settings = device.settings;
    if (settings.frozen)
        return CanvasBlock::Frozen;
    if (settings.lowLatency)
        return CanvasBlock::ZeroFrameDelay;
    // In both other modes the processor passes its input through.
    if (settings.workMode != ProcessorWorkMode::VideoProcessor)
        return CanvasBlock::Bypass;
    if (settings.polling)
        return CanvasBlock::Polling;
    return settings.hdmiOutput ? CanvasBlock::HdmiOutput : CanvasBlock::None;
}

CStatus CDeviceCommands::setCanvasSize(const QSize &size)
{
    const std::optional<SDevice> device = m_services.table().currentDevice();
    if (!device)
        return CStatus::failure(unknownProcessor());
    if (canvasBlock(*device) != CanvasBlock::None)
        return failure(*device, tr("In its present state the canvas cannot be changed."));
    const SCanvasLimits &limits = device->kind.canvas;
    const int smallest = LayoutLimits::SmallestCanvasSide;
    const bool fits = LayoutLimits::isCanvasSize(size) && size.width() >= smallest &&
                      size.height() >= smallest && size.width() <= limits.maximumWidth &&
                      size.height() <= limits.maximumHeight &&
                      qint64(size.width()) * size.height() <= limits.maximumArea;
    if (!fits)
        return failure(
            *device,
            tr("A canvas of %1×%2 pixels is beyond its limits.").arg(size.width()).arg(size.height()));
    return apply(device->node.uuid, [&size](SProcessorSettings &settings) { settings.canvas = size; });
}

CStatus CDeviceCommands::setSignal(int hertz, int bits)
{
    const std::optional<SDevice> device = m_services.table().currentDevice();
    if (!device)
        return CStatus::failure(unknownProcessor());
    const SSignalModes modes = device->kind.signalModes();
    if (!modes.frameRates.contains(hertz))
        return failure(*device, tr("It does not offer a frame rate of %1 Hz.").arg(hertz));
    if (!modes.colorDepths.contains(bits))
        return failure(*device, tr("It does not offer a color depth of %1 bit.").arg(bits));
    return apply(device->node.uuid, [hertz, bits](SProcessorSettings &settings) {
        settings.frameRate = hertz;
        settings.colorDepth = bits;
    });
}

CStatus CDeviceCommands::setPortAreas(const QList<SPortArea> &areas)
{
    const std::optional<SDevice> device = m_services.table().currentDevice();
    if (!device)
        return CStatus::failure(unknownProcessor());
    const int count = device->settings.portCount;
    const bool known =
        std::all_of(areas.begin(), areas.end(), [count](const SPortArea &area) { return area.port < count; });
    if (!known)
        return failure(*device, tr("It has %1 output ports.").arg(count));
    QList<SPortArea> set; // without those that carry nothing
    std::copy_if(areas.begin(), areas.end(), std::back_inserter(set), [](const SPortArea &area) {
        return area != SPortArea{area.port, 0, 0, 0, 0};
    });
    return apply(device->node.uuid, [&set](SProcessorSettings &settings) { settings.portAreas = set; });
}

CStatus CDeviceCommands::setStatusLed(bool on)
{
    const std::optional<SDevice> device = m_services.table().currentDevice();
    if (!device)
        return CStatus::failure(unknownProcessor());
    if (device->project)
        return failure(*device, withoutCabinets());
    return apply(device->node.uuid, [on](SProcessorSettings &settings) { settings.statusLed = on; });
}

QList<SCurrentGain> CDeviceCommands::gains(const SDevice &device)
{
    QList<SCurrentGain> gains;
    for (int rate = 0; rate < GainFrameRates; ++rate) {
        for (int level = 0; level < GainLevels; ++level) {
            SCurrentGain gain{rate, level, false, false};
            gain.imported = std::any_of(device.gainRows.begin(), device.gainRows.end(),
                                        [rate, level](const SCurrentGainRow &row) {
                                            return row.frameRateCode == rate && row.gainLevel == level;
                                        });
            gain.on = std::any_of(device.settings.gains.begin(), device.settings.gains.end(),
                                  [rate, level](const SCurrentGain &kept) {
                                      return kept.on && kept.frameRateCode == rate && kept.gainLevel == level;
                                  });
            gains << gain;
        }
    }
    return gains;
}

CStatus CDeviceCommands::importGains(const QString &file)
{
    const QUuid processor = m_services.table().current(); // may change while the file is read
    const CResult<QVector<SCurrentGainRow>> rows = CCurrentGainFile::read(file);
    if (!rows)
        return CStatus::failure(rows.error());
    const bool known = m_services.table().change(processor, [&rows](SDevice &device) {
        for (const SCurrentGainRow &row : rows.value()) {
            const auto same = [&row](const SCurrentGainRow &old) {
                return old.frameRateCode == row.frameRateCode && old.gainLevel == row.gainLevel;
            };
            device.gainRows.erase(std::remove_if(device.gainRows.begin(), device.gainRows.end(), same),
                                  device.gainRows.end());
            device.gainRows << row;
        }
    });
    return known ? CStatus::done() : CStatus::failure(unknownProcessor());
}

CStatus CDeviceCommands::clearGains()
{
    const QUuid processor = m_services.table().current();
    CStatus status = apply(processor, [](SProcessorSettings &settings) {
        settings.gains.clear();
        settings.gainRows.clear();
    });
    if (status)
        m_services.table().change(processor, [](SDevice &known) { known.gainRows.clear(); });
    return status;
}

CStatus CDeviceCommands::sendGains(const QList<SCurrentGain> &gains)
{
    const std::optional<SDevice> device = m_services.table().currentDevice();
    if (!device)
        return CStatus::failure(unknownProcessor());
    if (device->project)
        return failure(*device, withoutCabinets());
    const bool known = std::all_of(gains.begin(), gains.end(), [](const SCurrentGain &gain) {
        return gain.frameRateCode >= 0 && gain.frameRateCode < GainFrameRates && gain.gainLevel >= 0 &&
               gain.gainLevel < GainLevels;
    });
    if (!known)
        return failure(*device, tr("It has three frame rates with three gain levels each."));
    return apply(device->node.uuid, [&](SProcessorSettings &settings) {
        settings.gains = gains;
        settings.gainRows = device->gainRows;
    });
}

CStatus CDeviceCommands::sendParameters(const Cabinets &cabinets, const SMD5 &type, double gamma)
{
    const auto *known = m_library.find(type);
    if (!known || !(gamma >= 1.0 && gamma <= 4.0))
        return CStatus::failure(tr("The cabinet type or the gamma value is not valid."));
    const QList<SDevice> devices = m_services.table().devices();
    QVector<QUuid> receivers; // in the order of their cabinets
    for (const CabinetLayout::CabinetPort::Cabinet &cabinet : cabinets) {
        const SDevice *holder = holderOf(devices, cabinet);
        if (!holder)
            return CStatus::failure(tr("There are cabinets that are in no processor's saved mapping."));
        if (holder->project)
            return failure(*holder, withoutCabinets());
        if (!receivers.contains(holder->node.uuid))
            receivers << holder->node.uuid;
    }
    QStringList served;
    for (const QUuid &processor : qAsConst(receivers)) {
        const CStatus status = apply(processor, [&type, gamma, known](SProcessorSettings &settings) {
            if (known->customGamma) // the table says it all
                settings.gammas.remove(type);
            else
                settings.gammas.insert(type, gamma);
        });
        if (!status)
            return served.isEmpty()
                       ? status
                       : CStatus::failure(tr("%1\nThese have the new parameters already: %2.")
                                              .arg(status.error(), served.join(QLatin1String(", "))));
        served << m_services.table().device(processor).value_or(SDevice()).node.displayText();
    }
    return receivers.isEmpty() ? CStatus::failure(tr("There are no cabinets to send to.")) : CStatus::done();
}

const SDevice *CDeviceCommands::holderOf(const QList<SDevice> &devices,
                                         const CabinetLayout::CabinetPort::Cabinet &cabinet)
{
    const auto found = std::find_if(devices.begin(), devices.end(), [&cabinet](const SDevice &device) {
        return device.working.isMapped(cabinet.uuid);
    });
    return found == devices.end() ? nullptr : &*found;
}

CStatus CDeviceCommands::highlight(const Cabinets &cabinets, CabinetHighlight highlight)
{
    CDeviceAnnouncer &announcer = m_services.announcer();
    if (!m_highlighted.isNull() && m_highlighted != m_services.table().current()) // whichever is in view now
        announcer.announceHighlight(std::exchange(m_highlighted, QUuid()), {}, CabinetHighlight::Off);
    const std::optional<SDevice> device = m_services.table().currentDevice();
    if (!device)
        return CStatus::failure(unknownProcessor());
    CStatus status = reach(*device);
    if (!status)
        return status;
    m_highlighted = cabinets.isEmpty() ? QUuid() : device->node.uuid;
    announcer.announceHighlight(device->node.uuid, cabinets, highlight);
    return status;
}
