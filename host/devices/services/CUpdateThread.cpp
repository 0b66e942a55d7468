// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CUpdateThread.h"

#include "host/devices/simulated/DevicesLog.h"
#include "layout/api/LayoutNotification.h"

CUpdateThread::CUpdateThread()
    : m_thread([this] { run(); })
{
}

CUpdateThread::~CUpdateThread()
{
    stop(Drop);
}

void CUpdateThread::post(LayoutNotification code, std::any argument, std::function<void()> sent)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_stopping)
        return;
    m_queue.push_back({static_cast<int>(code), std::move(argument), std::move(sent)});
    m_wake.notify_one();
}

void CUpdateThread::stop(Rest rest)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
        if (rest == Drop)
            m_queue.clear();
        m_wake.notify_one();
    }
    if (m_thread.joinable())
        m_thread.join();
}

bool CUpdateThread::take(SNotification &next)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_wake.wait(lock, [this] { return m_stopping || !m_queue.empty(); });
    if (m_queue.empty())
        return false;
    next = std::move(m_queue.front());
    m_queue.pop_front();
    return true;
}

void CUpdateThread::send(SNotification &next)
{
    try {
        m_subject.notify(next.code, std::move(next.argument));
    } catch (const std::exception &error) {
        // An observer that reads a wrong argument type must not end the program.
        qCCritical(devicesLog, "Notification %d: %s", next.code, error.what());
    }
    if (next.sent)
        next.sent();
}

void CUpdateThread::run()
{
    SNotification next;
    while (take(next))
        send(next);
}
