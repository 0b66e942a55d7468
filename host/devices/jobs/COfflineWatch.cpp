// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/jobs/COfflineWatch.h"

#include "host/devices/jobs/CDetection.h"
#include "host/devices/services/CDeviceServices.h"

#include <new>

COfflineWatch::COfflineWatch(CDeviceServices &services)
    : m_services(services)
{
}

COfflineWatch::~COfflineWatch()
{
    stop();
}

void COfflineWatch::start(int milliseconds)
{
    if (!m_thread.joinable() && !m_cancel->isCancelled())
        m_thread = std::thread([this, milliseconds] { run(milliseconds); });
}

void COfflineWatch::stop()
{
    m_cancel->cancel();
    if (m_thread.joinable())
        m_thread.join();
}

void COfflineWatch::run(int milliseconds)
{
    while (m_cancel->wait(milliseconds)) {
        try {
            askAll();
        } catch (const std::bad_alloc &) {
            continue; // there will be another time
        }
    }
}

void COfflineWatch::askAll()
{
    SJobContext context;
    context.cancel = m_cancel;
    context.report = [](int, const QString &) {};
    for (const SDevice &device : m_services.table().devices()) {
        // A job that works with it finds out by itself.
        if (device.project || m_services.table().isBusy(device.node.uuid))
            continue;
        if (device.node.online)
            askOnline(device.node.uuid);
        else
            CDetection(m_services, context).askAgain(device.node.uuid);
    }
}

void COfflineWatch::askOnline(const QUuid &processor)
{
    const auto simulated = m_services.device(processor);
    const DeviceError error = simulated ? simulated->ping(*m_cancel) : DeviceError::None;
    if (error == DeviceError::Offline || error == DeviceError::NoAnswer)
        m_services.setOnline(processor, false);
}
