// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

/// What is to be done with the journals, one after another, and who may do it. Under its owner's lock.
class CJournalQueue final
{
public:
    using Task = std::function<void()>;
    using Lock = std::unique_lock<std::mutex>;

    /// @p idle is notified when a task has ended.
    explicit CJournalQueue(std::condition_variable &idle)
        : m_idle(idle)
    {
    }

    /// Whether the caller may use the journals now, on its own thread. Small tasks before it are waited for,
    /// so that its own is done when it goes on; large ones are not, nor a disk that does not answer.
    bool waitForTurn(Lock &lock);
    void push(const Task &task, bool large) { m_waiting.push_back({task, large}); }

    bool isEmpty() const { return m_waiting.empty(); }
    /// Whether nothing waits or runs.
    bool isFree() const { return m_waiting.empty() && !m_running; }
    bool isSyncing() const { return m_syncing; }
    void setSyncing(bool syncing);

    /// Takes the first task.
    Task next(bool &large);
    /// Runs @p task without the lock, while nobody else may use the journals.
    void run(Lock &lock, const Task &task, bool large);

private:
    using Clock = std::chrono::steady_clock;
    struct STask
    {
        Task task;
        bool large = false;
    };

    std::condition_variable &m_idle;
    std::deque<STask> m_waiting;
    bool m_running = false;
    bool m_largeRuns = false;
    bool m_hangs = false;   // somebody has waited in vain for what runs
    bool m_syncing = false; // the thread waits for the disk
    Clock::time_point m_syncStart;
};
