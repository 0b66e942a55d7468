// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CDeviceManager.h"

#include "host/devices/simulated/ProcessorStates.h"
#include "host/library/CTypeLibrary.h"

CDeviceManager::CDeviceManager(const SDeviceSettings &settings)
    : m_services(settings)
    , m_tree(m_services.table())
    , m_commands(m_services, CTypeLibrary::builtIn())
    , m_projects(m_services)
    , m_keeper(m_services, m_projects, settings.journalFolder)
    , m_offline(m_services)
    , m_jobs(m_services)
{
    QObject::connect(&announcer(), &CDeviceAnnouncer::notifyProcessorsChanged, &m_tree,
                     &CDeviceTreeModel::refresh);
}

CDeviceManager::~CDeviceManager()
{
    stop();
}

DeviceError CDeviceManager::simulate(const QUuid &processor, SimulationFault fault, bool on)
{
    const auto simulated = m_services.device(processor);
    if (!simulated)
        return DeviceError::None;
    const bool isState = ProcessorStates::contains(fault);
    const DeviceError error = isState ? simulated->setState(fault, on) : simulated->setFault(fault, on);
    if (error != DeviceError::None)
        return error;
    if (isState && m_services.table().isOnline(processor))
        m_services.takeSettings(processor, simulated->settings());
    if (on && fault == SimulationFault::Changed)
        m_jobs.onMappingChanged(processor);
    return error;
}

bool CDeviceManager::isSimulated(const QUuid &processor, SimulationFault fault) const
{
    const auto simulated = m_services.device(processor);
    if (simulated && ProcessorStates::contains(fault))
        return ProcessorStates::isOn(simulated->settings(), fault);
    return simulated && simulated->hasFault(fault);
}

void CDeviceManager::stop()
{
    m_offline.stop();
    m_jobs.stop();
    m_keeper.stop();
    m_services.stop();
}
