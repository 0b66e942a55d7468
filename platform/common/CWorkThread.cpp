// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/common/CWorkThread.h"

#include <QLoggingCategory>

#include <algorithm>
#include <exception>
#include <iterator>

namespace {

Q_LOGGING_CATEGORY(workThreadLog, "orvo.platform.thread")

void runGuarded(const CWorkThread::Event &event)
{
    try {
        event.second();
    } catch (const std::exception &error) {
        qCWarning(workThreadLog, "Work of key %d failed: %s", event.first, error.what());
    } catch (...) {
        qCWarning(workThreadLog, "Work of key %d failed", event.first);
    }
}

} // namespace

CWorkThread::~CWorkThread()
{
    ThreadExit();
    wait();
}

void CWorkThread::AppendEvent(Event event, bool atOnce)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_exit)
        return;
    const auto delay = atOnce ? m_delays.end() : m_delays.find(event.first);
    if (delay == m_delays.end()) {
        m_queue.push_back({std::move(event), false, Clock::time_point::min()});
        return;
    }
    const auto waiting = std::find_if(m_queue.begin(), m_queue.end(), [&](const SQueued &queued) {
        return queued.waiting && queued.event.first == event.first;
    });
    if (waiting == m_queue.end())
        m_queue.push_back({std::move(event), true, Clock::now() + delay->second});
    else
        std::swap(waiting->event, event); // the replaced one is destroyed with the parameter, after unlocking
}

bool CWorkThread::RemoveEvent(int key)
{
    std::vector<SQueued> removed; // destroyed after unlocking: a closure may own much
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto end = std::stable_partition(
        m_queue.begin(), m_queue.end(), [key](const SQueued &queued) { return queued.event.first != key; });
    removed.assign(std::make_move_iterator(end), std::make_move_iterator(m_queue.end()));
    m_queue.erase(end, m_queue.end());
    return !removed.empty();
}

void CWorkThread::ActivateThread()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_exit)
        return;
    m_activated = true;
    if (!m_started) {
        m_started = true;
        m_thread = std::thread(&CWorkThread::run, this);
    }
    m_wake.notify_one();
}

void CWorkThread::AddTimeOutEventFilter(int key, std::chrono::milliseconds delay)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_delays[key] = delay;
}

void CWorkThread::ThreadExit()
{
    std::vector<SQueued> dropped;
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_exit = true;
    dropped.swap(m_queue);
    m_wake.notify_one();
}

void CWorkThread::wait()
{
    if (m_thread.joinable())
        m_thread.join();
}

void CWorkThread::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_exit) {
        const auto next = nextDue(Clock::now());
        if (next != m_queue.end()) {
            Event event = std::move(next->event);
            m_queue.erase(next);
            lock.unlock();
            runGuarded(event);
            event.second = nullptr; // what the closure owns is destroyed outside the lock
            lock.lock();
            continue;
        }
        m_activated = false;
        const auto woken = [this] { return m_activated || m_exit; };
        if (m_queue.empty())
            m_wake.wait(lock, woken);
        else
            m_wake.wait_until(lock, earliest(), woken);
    }
}

std::vector<CWorkThread::SQueued>::iterator CWorkThread::nextDue(Clock::time_point now)
{
    return std::find_if(m_queue.begin(), m_queue.end(),
                        [now](const SQueued &queued) { return queued.due <= now; });
}

CWorkThread::Clock::time_point CWorkThread::earliest() const
{
    return std::min_element(m_queue.begin(), m_queue.end(),
                            [](const SQueued &a, const SQueued &b) { return a.due < b.due; })
        ->due;
}
