// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/services/CDeviceTable.h"
#include "host/devices/simulated/CSimulatedProcessor.h"

#include <QCoreApplication>
#include <QStringList>

#include <memory>
#include <vector>

class QJsonObject;

/// The processors of the simulated network, from a data file. Immutable except for the processors; any
/// thread.
class CSimulatedPark final
{
    Q_DECLARE_TR_FUNCTIONS(CSimulatedPark)

public:
    using Processor = std::shared_ptr<CSimulatedProcessor>;

    /// The built-in park; the processors keep their state in @p stateFolder.
    CSimulatedPark(const QString &stateFolder, double delayScale);

    const std::vector<Processor> &processors() const { return m_processors; }
    Processor find(const QUuid &uuid) const; ///< null for an unknown key
    QStringList names() const;               ///< of the processors
    /// Who else stores the processors' state, so that they store nothing for us; empty: nobody does.
    QString otherUser() const { return m_folder->otherUser(); }
    const QList<CDeviceTable::SGroup> &groups() const { return m_groups; }

private:
    Processor make(const QJsonObject &entry, const QString &stateFolder, double delayScale) const;

    const std::shared_ptr<CStateFolder> m_folder;
    QList<CDeviceTable::SGroup> m_groups;
    std::vector<Processor> m_processors;
};
