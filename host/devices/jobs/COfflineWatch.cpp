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
        if (!device.project && !device.node.online && !m_services.table().isBusy(device.node.uuid))
            CDetection(m_services, context).askAgain(device.node.uuid);
    }
}
