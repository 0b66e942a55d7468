// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/jobs/CJobRunner.h"
#include "host/devices/services/SDevice.h"
#include "host/devices/simulated/CSimulatedProcessor.h"

#include <QCoreApplication>
#include <QStringList>

class CDeviceServices;

/// Reads and saves mappings, as the work of a job, on its thread. If one processor fails, the others are
/// still handled; the working layout of a failed one is kept.
class CMappingTransfer final
{
    Q_DECLARE_TR_FUNCTIONS(CMappingTransfer)

public:
    CMappingTransfer(CDeviceServices &services, const SJobContext &context);

    SDeviceOutcome read(const QList<QUuid> &processors, const SMappingOptions &options);
    SDeviceOutcome save(const QList<QUuid> &processors);

private:
    enum class Step { Done, Nothing, Skipped, Cancelled, Failed };

    SDeviceOutcome each(const QList<QUuid> &processors, const QString &progressText, const QString &partText,
                        const std::function<Step(const SDevice &)> &step);
    Step readOne(const SDevice &device, const SMappingOptions &options);
    Step takeOver(const SDevice &device, const SProcessorMapping &mapping);
    CabinetLayout withLockedPortsKept(const SDevice &device, const CabinetLayout &read) const;
    Step saveOne(const SDevice &device);
    bool mayOverwrite(const SDevice &device, quint64 revision) const;
    Step failed(const SDevice &device, const QString &reason);
    Step failed(const SDevice &device, DeviceError error);
    CSimulatedProcessor::Progress progressOf() const;

    CDeviceServices &m_services;
    const SJobContext &m_context;
    QStringList m_failures;
    QString m_progressText;
    int m_index = 0;
    int m_count = 1;
};
