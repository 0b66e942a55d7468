// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CDeviceManager.h"

CDeviceManager::CDeviceManager(const SDeviceSettings &settings)
    : m_services(settings)
    , m_tree(m_services.table())
    , m_projects(m_services)
    , m_jobs(m_services)
{
    QObject::connect(&announcer(), &CDeviceAnnouncer::notifyProcessorsChanged, &m_tree,
                     &CDeviceTreeModel::refresh);
}

CDeviceManager::~CDeviceManager()
{
    stop();
}

void CDeviceManager::simulate(const QUuid &processor, SimulationFault fault, bool on)
{
    const auto simulated = m_services.device(processor);
    if (!simulated)
        return;
    simulated->setFault(fault, on);
    if (on && fault == SimulationFault::Changed)
        m_jobs.onMappingChanged(processor);
}

bool CDeviceManager::isSimulated(const QUuid &processor, SimulationFault fault) const
{
    const auto simulated = m_services.device(processor);
    return simulated && simulated->hasFault(fault);
}

void CDeviceManager::stop()
{
    m_jobs.stop();
    m_services.stop();
}
