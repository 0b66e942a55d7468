// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/services/SDevice.h"
#include "host/devices/simulated/CSimulatedProcessor.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QUuid>

#include <functional>
#include <mutex>

class CDeviceServices;
class CTypeLibrary;

/// Changes the settings that processors keep beside their mapping: checks them, sends them to the device, and
/// announces them. For a project, which has no device, only stores them. Each command ends within 100
/// milliseconds. Any thread.
class CDeviceCommands final
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceCommands)

public:
    using Cabinets = QList<CabinetLayout::CabinetPort::Cabinet>;

    CDeviceCommands(CDeviceServices &services, const CTypeLibrary &library);

    CStatus setPortCount(const QUuid &processor, int count);
    CStatus setWorkMode(const QUuid &processor, ProcessorWorkMode mode);
    CStatus setThreeD(const QUuid &processor, bool on);
    CStatus setLowLatency(const QUuid &processor, bool on);
    /// A null @p primary: is the redundancy of none. @p error gets what the processor answered.
    CStatus setPrimary(const QUuid &processor, const QUuid &primary, DeviceError *error = nullptr);
    CStatus setOffsets(const ProcessorOffsets &offsets); ///< all or none
    CStatus setBackground(const SBackgroundInfo &info);

    // of the current processor
    CStatus setCanvasSize(const QSize &size);
    CStatus setSignal(int hertz, int bits);
    CStatus setPortAreas(const QList<SPortArea> &areas);
    CStatus setStatusLed(bool on);
    CStatus importGains(const QString &file);
    CStatus clearGains();
    CStatus sendGains(const QList<SCurrentGain> &gains);
    CStatus highlight(const Cabinets &cabinets, CabinetHighlight highlight);

    /// Sends to the processors that have @p cabinets in their saved mapping, one after the other.
    CStatus sendParameters(const Cabinets &cabinets, const SMD5 &type, double gamma);
    /// The one of @p devices that has @p cabinet in its saved mapping; null: none.
    static const SDevice *holderOf(const QList<SDevice> &devices,
                                   const CabinetLayout::CabinetPort::Cabinet &cabinet);

    /// What prevents the canvas size of a processor from being changed.
    static CanvasBlock canvasBlock(const SDevice &device);
    /// One entry per frame rate and gain level: whether its parameters are imported and switched on.
    static QList<SCurrentGain> gains(const SDevice &device);
    /// Whether the device answers; a failure for a project.
    CStatus reach(const SDevice &device) const;
    /// Reads from the device what a cabinet of its mapping reports; fails for a project.
    CResult<SConnectedCabinet> readCabinet(const SDevice &device, const QUuid &cabinet) const;

private:
    using Edit = std::function<void(SProcessorSettings &)>;

    CStatus apply(const QUuid &processor, const Edit &edit, DeviceError *error = nullptr);
    CStatus moveAreas(const ProcessorOffsets &offsets);
    CStatus failure(const SDevice &device, const QString &reason) const;
    /// Stores whether the device answered.
    CStatus answered(const SDevice &device, DeviceError error) const;

    CDeviceServices &m_services;
    const CTypeLibrary &m_library;
    QUuid m_highlighted; // the processor with highlighted cabinets; null: none; GUI thread
    std::mutex m_mutex;  // serialises changes of settings
};
