// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CTaskThread.h"

#include <new>
#include <utility>

CTaskThread::CTaskThread(Task done)
    : m_done(std::move(done))
    , m_thread([this] { run(); })
{
}

CTaskThread::~CTaskThread()
{
    stop();
}

void CTaskThread::submit(const Task &task)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_stopped)
            return;
        m_tasks.push_back(task);
    }
    m_wake.notify_all();
}

bool CTaskThread::isBusy()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return !m_tasks.empty();
}

void CTaskThread::stop()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_stopped = true;
    }
    m_wake.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void CTaskThread::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_stopped || !m_tasks.empty()) {
        if (m_tasks.empty()) {
            m_wake.wait(lock);
            continue;
        }
        Task task = std::move(m_tasks.front());
        lock.unlock();
        try {
            task();
        } catch (const std::bad_alloc &) { // what it was about is left undone
        }
        task = {};
        lock.lock();
        m_tasks.pop_front();
        lock.unlock();
        m_done();
        lock.lock();
    }
}
