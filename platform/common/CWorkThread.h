// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

/// Runs closures one after the other on a thread of its own. An event is a key and a closure; keys are chosen
/// by the caller and need not be unique. What a closure throws is logged. All operations may be called from
/// any thread, also from a closure, except wait() and the destructor.
class CWorkThread final
{
public:
    using Event = std::pair<int, std::function<void()>>;

    CWorkThread() = default;
    /// Drops the events that have not begun and waits for the running one.
    ~CWorkThread();
    CWorkThread(const CWorkThread &) = delete;
    CWorkThread &operator=(const CWorkThread &) = delete;

    /// Queues @p event behind those that are queued. With @p atOnce false, an event whose key has a time-out
    /// filter waits: it becomes due one delay after the first event that waits under the key, and a later one
    /// takes the earlier one's place without a new delay. Dropped after ThreadExit().
    void AppendEvent(Event event, bool atOnce = true);

    /// Drops all events of @p key that have not begun. Returns whether there were any.
    bool RemoveEvent(int key);

    /// Starts the thread, or wakes it: every event queued before this call runs, waiting ones when they are
    /// due.
    void ActivateThread();

    /// From now on events of @p key that are not appended at once wait for @p delay.
    void AddTimeOutEventFilter(int key, std::chrono::milliseconds delay);

    /// Asks the thread to end after the closure that is running; drops everything else. Returns at once.
    void ThreadExit();

    /// Waits without limit until the thread has ended; returns at once when it never ran. Only after
    /// ThreadExit(), and not from a closure.
    void wait();

private:
    using Clock = std::chrono::steady_clock;
    struct SQueued
    {
        Event event;
        bool waiting = false; // under the key's time-out filter
        Clock::time_point due;
    };

    void run();
    std::vector<SQueued>::iterator nextDue(Clock::time_point now);
    Clock::time_point earliest() const;

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::vector<SQueued> m_queue; // in the order of arrival
    std::map<int, std::chrono::milliseconds> m_delays;
    std::thread m_thread;
    bool m_started = false;
    bool m_activated = false;
    bool m_exit = false;
};
