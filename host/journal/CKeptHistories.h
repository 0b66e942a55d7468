// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/journal/CJournalFolder.h"
#include "host/journal/CTaskThread.h"

#include <QCoreApplication>

#include <functional>
#include <map>

class CJournalListeners;

/// Keeps the histories of saved projects and finds them again, on a thread of its own, because that may wait
/// for the disk. One thread at a time, unless a function says otherwise.
class CKeptHistories final
{
    Q_DECLARE_TR_FUNCTIONS(CKeptHistories)

public:
    /// What a search has found: no steps, if nothing was kept that still belongs to the file.
    struct SFound
    {
        QUuid processor;
        quint64 search = 0;
        CStepTrail trail;
        int cabinetCount = 0;
    };
    using Found = std::function<void(const SFound &)>;

    /// @p found is called at the end of each search, @p done after everything that was done; both on the
    /// thread. @p folder and @p listeners must outlive this object.
    CKeptHistories(const CJournalFolder &folder, CJournalListeners &listeners, Found found,
                   CTaskThread::Task done);

    /// Whether histories are kept. If not, those that were are removed.
    void setKept(bool kept);
    /// Keeps the history of a project that was saved, instead of the one before.
    void keep(const SJournalOwner &owner, const CJournalState &state);
    /// Keeps what was done and undone since, unless the file has become another one. A history that was kept
    /// before stays, where there is none to replace it.
    void keepUndone(const SJournalOwner &owner, const CJournalState &state);

    /// Searches for the history of a project that was opened, after what is being kept now.
    void search(const SJournalOwner &owner);
    bool isSearching(const QUuid &processor) const { return m_searches.count(processor) > 0; }
    /// What a search finds is not wanted any more.
    void endSearch(const QUuid &processor) { m_searches.erase(processor); }
    /// False: it was ended meanwhile, or another one was begun.
    bool endSearch(const SFound &found);

    bool isBusy() { return m_thread.isBusy(); } ///< any thread
    void stop() { m_thread.stop(); }            ///< waits until everything is done

private:
    void carryOut(const SJournalOwner &owner, quint64 search);
    SFound find(const SJournalOwner &owner, quint64 search);
    void tellUnkept(const SJournalOwner &owner, const QString &problem);
    void drop(const SJournalOwner &owner);
    void tellLeft(const QString &text);

    const CJournalFolder &m_folder;
    CJournalListeners &m_listeners;
    const Found m_found;
    bool m_kept = true;
    std::map<QUuid, quint64> m_searches; // which are under way; with their numbers
    quint64 m_lastSearch = 0;
    bool m_toldLeft = false; // the thread's
    CTaskThread m_thread;    // last
};
