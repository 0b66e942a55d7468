// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CJournalQueue.h"

#include <algorithm>
#include <utility>

/// A disk that does not answer lets the queue grow, instead of keeping edits waiting: only the first one
/// does, until everything is done again.
bool CJournalQueue::waitUntilFree(Lock &lock)
{
    const auto isLarge = [](const STask &task) { return task.large; };
    const bool large = m_largeRuns || std::any_of(m_waiting.begin(), m_waiting.end(), isLarge);
    if (!isFree() && !large && !m_hangs)
        m_hangs = !m_idle.wait_for(lock, DiskPatience, [this] { return isFree(); });
    return isFree();
}

CJournalQueue::Task CJournalQueue::next(bool &large)
{
    STask first = std::move(m_waiting.front());
    m_waiting.pop_front();
    large = first.large;
    return std::move(first.task);
}

void CJournalQueue::run(Lock &lock, const Task &task, bool large)
{
    m_running = true;
    m_largeRuns = large;
    lock.unlock();
    task();
    lock.lock();
    m_running = false;
    m_largeRuns = false;
    m_hangs = m_hangs && !isFree();
    m_idle.notify_all();
}
