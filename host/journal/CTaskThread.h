// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// Carries out tasks on a thread of its own, one after the other. Any thread.
class CTaskThread final
{
public:
    using Task = std::function<void()>;

    /// @p done is called on the thread after each task.
    explicit CTaskThread(Task done);
    ~CTaskThread(); ///< see stop()
    Q_DISABLE_COPY(CTaskThread)

    /// Ignored after stop().
    void submit(const Task &task);
    /// Whether a task waits or is being carried out.
    bool isBusy();
    /// Waits until everything is done. Not on the thread itself.
    void stop();

private:
    void run();

    const Task m_done;
    std::mutex m_mutex; // guards what follows
    std::condition_variable m_wake;
    std::deque<Task> m_tasks; // the first one is being carried out
    bool m_stopped = false;
    std::thread m_thread; // last
};
