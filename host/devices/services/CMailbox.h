// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

class CCancelToken;

/// Delivers work from other threads to the thread that it lives on, in the order of posting.
class CMailbox final : public QObject
{
    Q_OBJECT

public:
    explicit CMailbox(QObject *parent = nullptr);

    /// Queues @p work; ignored once closed. Any thread.
    void post(std::function<void()> work);
    /// Runs @p work on the own thread and returns when it has ended. Returns false, and does not run it, if
    /// @p cancel is cancelled or the mailbox closed before it begins. Any thread; on the own one a plain
    /// call.
    bool call(const std::function<void()> &work, const CCancelToken &cancel);
    /// Runs all queued work at once. Own thread.
    void deliver();
    /// Drops queued work and ignores any further. Own thread.
    void close();

    bool event(QEvent *event) override;

private:
    bool take(std::function<void()> &next);
    bool isClosed();

    std::mutex m_mutex; // guards the members below
    std::deque<std::function<void()>> m_waiting;
    bool m_closed = false;
};
