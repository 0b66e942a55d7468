// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

/// What is to be done with the journals, one after another, and who waits for it. Under its owner's lock.
class CJournalQueue final
{
public:
    using Task = std::function<void()>;
    using Lock = std::unique_lock<std::mutex>;
    /// How long a disk may take to answer.
    static constexpr std::chrono::milliseconds DiskPatience{250};

    /// @p idle is notified when a task has ended.
    explicit CJournalQueue(std::condition_variable &idle)
        : m_idle(idle)
    {
    }

    /// Waits until nothing waits or runs, so that the caller may use the journals under the lock: but not for
    /// large tasks, and not for a disk that does not answer. False: something still waits or runs.
    bool waitUntilFree(Lock &lock);
    void push(const Task &task, bool large) { m_waiting.push_back({task, large}); }

    bool isEmpty() const { return m_waiting.empty(); }
    /// Whether nothing waits or runs.
    bool isFree() const { return m_waiting.empty() && !m_running; }
    /// Whether somebody has waited in vain for what waits or runs.
    bool hangs() const { return m_hangs; }

    /// Takes the first task.
    Task next(bool &large);
    /// Runs @p task without the lock, while nobody else may use the journals.
    void run(Lock &lock, const Task &task, bool large);

private:
    struct STask
    {
        Task task;
        bool large = false;
    };

    std::condition_variable &m_idle;
    std::deque<STask> m_waiting;
    bool m_running = false;
    bool m_largeRuns = false;
    bool m_hangs = false;
};
