// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/CDeviceCommands.h"
#include "host/devices/CDeviceTreeModel.h"
#include "host/devices/CProjectShelf.h"
#include "host/devices/jobs/CDeviceJobs.h"
#include "host/devices/services/CDeviceServices.h"

enum class SimulationFault : int;

/// Owns everything about the host's devices, brings it together, and stops it in order. GUI thread.
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
    CDeviceCommands &commands() { return m_commands; }
    CProjectShelf &projects() { return m_projects; }
    CDeviceTreeModel &treeModel() { return m_tree; }

    /// Switches what a simulated processor is told to show. The host learns of a fault at the next exchange;
    /// a state is announced by the processor itself.
    void simulate(const QUuid &processor, SimulationFault fault, bool on);
    bool isSimulated(const QUuid &processor, SimulationFault fault) const;

    /// Cancels what runs, waits for it and tells that it was cancelled; delivers the notifications that wait.
    /// Nothing can be started afterwards. A second call does nothing.
    void stop();

private:
    CDeviceServices m_services;
    CDeviceTreeModel m_tree;
    CDeviceCommands m_commands;
    CProjectShelf m_projects;
    CDeviceJobs m_jobs; // last: stops before what it works with goes
};
