// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <mutex>

/// Cancels a blocking operation. Any thread.
class CCancelToken final
{
public:
    void cancel()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_cancelled = true;
        m_wake.notify_all();
    }
    bool isCancelled() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_cancelled;
    }
    /// Waits; false as soon as it is cancelled.
    bool wait(int milliseconds);

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_cancelled = false;
};
