// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

/// Delivers work from other threads to the thread that it lives on, in the order of posting.
class CMailbox final : public QObject
{
    Q_OBJECT

public:
    explicit CMailbox(QObject *parent = nullptr);

    /// Queues @p work; ignored once closed. Any thread.
    void post(std::function<void()> work);
    /// Runs all queued work at once. Own thread.
    void deliver();
    /// Drops queued work and ignores any further. Own thread.
    void close();

    bool event(QEvent *event) override;

private:
    bool take(std::function<void()> &next);

    std::mutex m_mutex; // guards the members below
    std::deque<std::function<void()>> m_waiting;
    bool m_closed = false;
};
