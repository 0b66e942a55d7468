// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/CDeviceCommands.h"
#include "host/devices/CDeviceTreeModel.h"
#include "host/devices/CJournalKeeper.h"
#include "host/devices/CProjectShelf.h"
#include "host/devices/jobs/CDeviceJobs.h"
#include "host/devices/jobs/COfflineWatch.h"
#include "host/devices/services/CDeviceServices.h"

enum class SimulationFault : int;

/// Owns everything related to the host's devices, connects it, and stops it in order. GUI thread.
class CDeviceManager final
{
public:
    explicit CDeviceManager(const SDeviceSettings &settings);
    ~CDeviceManager(); ///< stops first

    CDeviceServices &services() { return m_services; }
    CDeviceTable &table() { return m_services.table(); }
    const CDeviceTable &table() const { return m_services.table(); }
    CDeviceAnnouncer &announcer() { return m_services.announcer(); }
    CDeviceJobs &jobs() { return m_jobs; }
    COfflineWatch &offlineWatch() { return m_offline; }
    CDeviceCommands &commands() { return m_commands; }
    CProjectShelf &projects() { return m_projects; }
    CJournalKeeper &keeper() { return m_keeper; }
    CDeviceTreeModel &treeModel() { return m_tree; }

    /// Switches a simulated fault or state of a processor. The host notices a fault at the next exchange; the
    /// processor announces a state itself. Fails if the processor cannot store the change; then nothing
    /// changes.
    DeviceError simulate(const QUuid &processor, SimulationFault fault, bool on);
    bool isSimulated(const QUuid &processor, SimulationFault fault) const;

    /// Cancels the running job, waits for it and reports it as cancelled; delivers pending notifications.
    /// Nothing can be started afterwards. A second call does nothing.
    void stop();

private:
    CDeviceServices m_services;
    CDeviceTreeModel m_tree;
    CDeviceCommands m_commands;
    CProjectShelf m_projects;
    CJournalKeeper m_keeper;
    COfflineWatch m_offline;
    CDeviceJobs m_jobs; // last: stops before the members that it uses are destroyed
};
