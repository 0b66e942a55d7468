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

/// Runs closures one after the other on its own thread. An event is a key and a closure; keys are chosen by
/// the caller and need not be unique. Exceptions from closures are logged. All operations may be called from
/// any thread, also from a closure, except wait() and the destructor.
class CWorkThread final
{
public:
    using Event = std::pair<int, std::function<void()>>;

    CWorkThread() = default;
    /// Drops events that have not started and waits for the running one.
    ~CWorkThread();
    CWorkThread(const CWorkThread &) = delete;
    CWorkThread &operator=(const CWorkThread &) = delete;

    /// Queues @p event behind the queued ones. If @p atOnce is false and the key has a time-out filter, the
    /// event is delayed: it is due one delay after the first waiting event of that key, and a later event
    /// replaces the waiting one without extending the delay. Ignored after ThreadExit().
    void AppendEvent(Event event, bool atOnce = true);

    /// Drops all events of @p key that have not started. Returns whether there were any.
    bool RemoveEvent(int key);

    /// Starts the thread, or wakes it: every event queued before this call runs, delayed ones when they are
    /// due.
    void ActivateThread();

    /// From now on events of @p key that are appended with atOnce false are delayed by @p delay.
    void AddTimeOutEventFilter(int key, std::chrono::milliseconds delay);

    /// Asks the thread to end after the running closure; drops all other events. Returns at once.
    void ThreadExit();

    /// Waits without limit until the thread has ended; returns at once if it never ran. Call only after
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
