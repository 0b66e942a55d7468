// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QUuid>

#include <functional>
#include <mutex>
#include <utility>

/// Who learns what happens to journals and histories, until silence() is called. Any thread; they are told on
/// the thread that calls.
class CJournalListeners final
{
public:
    using Tell = std::function<void(const QString &)>;
    using Arrived = std::function<void(const QUuid &)>;

    CJournalListeners(Tell tell, Arrived arrived)
        : m_tell(std::move(tell))
        , m_arrived(std::move(arrived))
    {
    }

    /// A text for the user.
    void tell(const QString &text)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_tell)
            m_tell(text);
    }
    /// The history of @p processor was asked for in vain, and is here now.
    void tellArrived(const QUuid &processor)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_arrived)
            m_arrived(processor);
    }
    /// Nobody is told anything afterwards.
    void silence()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_tell = {};
        m_arrived = {};
    }

private:
    std::mutex m_mutex; // guards what follows; taken last
    Tell m_tell;
    Arrived m_arrived;
};
