// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CKeptHistories.h"

#include "host/journal/CJournalListeners.h"

#include <new>
#include <utility>

CKeptHistories::CKeptHistories(const CJournalFolder &folder, CJournalListeners &listeners, Found found,
                               CTaskThread::Task done)
    : m_folder(folder)
    , m_listeners(listeners)
    , m_found(std::move(found))
    , m_thread(std::move(done))
{
}

void CKeptHistories::setKept(bool kept)
{
    m_kept = kept;
    if (!kept)
        m_thread.submit([this] {
            const CStatus dropped = m_folder.dropHistories();
            if (!dropped)
                tellLeft(tr("Histories that are no longer kept are still there: %1").arg(dropped.error()));
        });
}

void CKeptHistories::keep(const SJournalOwner &owner, const CJournalState &state)
{
    const bool kept = m_kept && !state.trail().isEmpty();
    m_thread.submit([this, kept, owner, state] {
        if (kept)
            tellUnkept(owner, m_folder.keepHistory(owner, state));
        else
            drop(owner);
    });
}

void CKeptHistories::keepUndone(const SJournalOwner &owner, const CJournalState &state)
{
    if (!m_kept || state.trail().isEmpty())
        return;
    m_thread.submit([this, owner, state] { tellUnkept(owner, m_folder.keepHistory(owner, state)); });
}

void CKeptHistories::tellUnkept(const SJournalOwner &owner, const QString &problem)
{
    if (!problem.isEmpty())
        m_listeners.tell(tr("The history of %1 cannot be kept: %2").arg(owner.name, problem));
}

/// On the thread.
void CKeptHistories::drop(const SJournalOwner &owner)
{
    const CStatus dropped = m_folder.dropHistory(owner.file);
    if (!dropped)
        tellLeft(
            tr("The history of %1 is no longer kept, but still there: %2").arg(owner.name, dropped.error()));
}

/// Once, whatever is left later. On the thread.
void CKeptHistories::tellLeft(const QString &text)
{
    if (!std::exchange(m_toldLeft, true))
        m_listeners.tell(text);
}

void CKeptHistories::search(const SJournalOwner &owner)
{
    if (!m_kept)
        return;
    const quint64 search = ++m_lastSearch;
    m_thread.submit([this, owner, search] { carryOut(owner, search); });
    m_searches[owner.processor] = search;
}

/// On the thread.
void CKeptHistories::carryOut(const SJournalOwner &owner, quint64 search)
{
    try {
        m_found(find(owner, search));
    } catch (const std::bad_alloc &) {
        m_found({owner.processor, search, {}, 0}); // first: somebody may wait for it
        m_listeners.tell(tr("There is not enough memory for the earlier steps of %1.").arg(owner.name));
    }
}

/// On the thread.
CKeptHistories::SFound CKeptHistories::find(const SJournalOwner &owner, quint64 search)
{
    SJournal history;
    const CJournalFolder::Kept kept = m_folder.findHistory(owner.file, history);
    if (kept == CJournalFolder::Kept::Unread)
        m_listeners.tell(tr("The earlier steps of %1 cannot be undone: %2").arg(owner.name, history.reason));
    if (kept == CJournalFolder::Kept::Damaged) {
        drop(owner);
        m_listeners.tell(tr("The earlier steps of %1 are damaged and cannot be undone.").arg(owner.name));
    }
    if (kept == CJournalFolder::Kept::Changed) {
        drop(owner);
        m_listeners.tell(tr("%1 was changed elsewhere: its earlier steps cannot be undone.").arg(owner.name));
    }
    SFound found{owner.processor, search, {}, history.state.project().layout.cabinetCount()};
    if (kept == CJournalFolder::Kept::Same)
        found.trail = history.state.trail();
    return found;
}

bool CKeptHistories::endSearch(const SFound &found)
{
    const auto known = m_searches.find(found.processor);
    if (known == m_searches.end() || known->second != found.search)
        return false;
    m_searches.erase(known);
    return true;
}
