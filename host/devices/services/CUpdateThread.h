// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/control/CSubject.h"

#include <any>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

enum class LayoutNotification : int;

/// The Update thread: the one thread from which the host's notifications are sent, in the order of their
/// posting.
class CUpdateThread final
{
public:
    /// What happens to pending notifications when the thread is stopped.
    enum Rest { Deliver, Drop };

    CUpdateThread();
    ~CUpdateThread(); ///< drops pending notifications

    /// Observers attach to it; their updates run on the Update thread.
    CSubject &subject() { return m_subject; }
    /// Queues a notification; @p argument must have the code's type. @p sent is called on the Update thread
    /// once all observers have it. Ignored once stopped. Any thread.
    void post(LayoutNotification code, std::any argument = {}, std::function<void()> sent = {});
    /// Ends the thread; no update runs when this returns. A second call does nothing. Not from an update.
    void stop(Rest rest);

private:
    struct SNotification
    {
        int code;
        std::any argument;
        std::function<void()> sent;
    };
    void run();
    bool take(SNotification &next);
    void send(SNotification &next);

    CSubject m_subject;
    std::mutex m_mutex; // guards the queue and the flag
    std::condition_variable m_wake;
    std::deque<SNotification> m_queue;
    bool m_stopping = false;
    std::thread m_thread; // last: runs as soon as it is constructed
};
