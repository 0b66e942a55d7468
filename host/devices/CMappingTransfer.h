// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/CJobRunner.h"
#include "host/devices/SDevice.h"
#include "host/devices/simulated/CSimulatedProcessor.h"

#include <QCoreApplication>
#include <QStringList>

class CDeviceManager;

/// Reads and saves mappings: the work of a job, on its thread. Processors that fail do not keep the others
/// from being done; on every failure the working layout stays.
class CMappingTransfer final
{
    Q_DECLARE_TR_FUNCTIONS(CMappingTransfer)

public:
    CMappingTransfer(CDeviceManager &manager, const SJobContext &context);

    SDeviceOutcome read(const QList<QUuid> &processors, const SMappingOptions &options);
    SDeviceOutcome save(const QList<QUuid> &processors);

    /// "name(address): reason", for the user.
    static QString failureText(const SDevice &device, const QString &reason);

private:
    enum class Step { Done, Skipped, Cancelled, Failed };

    SDeviceOutcome each(const QList<QUuid> &processors, const QString &progressText,
                        const std::function<Step(const SDevice &)> &step);
    Step readOne(const SDevice &device, const SMappingOptions &options);
    Step takeOver(const SDevice &device, const SProcessorMapping &mapping);
    CabinetLayout withLockedPortsKept(const SDevice &device, const CabinetLayout &read) const;
    Step saveOne(const SDevice &device);
    bool mayOverwrite(const SDevice &device, quint64 revision) const;
    Step failed(const SDevice &device, const QString &reason);
    Step failed(const SDevice &device, DeviceError error);
    CSimulatedProcessor::Progress progressOf() const;

    CDeviceManager &m_manager;
    const SJobContext &m_context;
    QStringList m_failures;
    QString m_progressText;
    int m_index = 0;
    int m_count = 1;
};
