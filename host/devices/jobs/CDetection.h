// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/jobs/CJobRunner.h"
#include "host/devices/services/SDevice.h"
#include "host/devices/simulated/CSimulatedProcessor.h"

#include <QCoreApplication>
#include <QStringList>

class CDeviceServices;

/// Searches the network for processors, as the work of a job, on its thread. Each processor that answers is
/// read; working layouts with unsaved edits are kept.
class CDetection final
{
    Q_DECLARE_TR_FUNCTIONS(CDetection)

public:
    CDetection(CDeviceServices &services, const SJobContext &context);

    SDeviceOutcome run();
    /// Asks one processor that is known and offline; nothing changes unless it answers.
    void askAgain(const QUuid &processor);

private:
    void report(int percent) const; ///< of the current processor
    void detectOne(CSimulatedProcessor &processor);
    SDevice knownOrNew(const CSimulatedProcessor &processor) const;
    DeviceError ask(CSimulatedProcessor &processor, SDevice &device);
    DeviceError readMapping(CSimulatedProcessor &processor, SDevice &device, bool &read);
    void take(const SDevice &before, const SDevice &device, bool read);

    CDeviceServices &m_services;
    const SJobContext &m_context;
    QStringList m_failures;
    int m_online = 0;
    int m_index = 0;
    int m_count = 1;
};
