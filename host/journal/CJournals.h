// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/journal/CJournalListeners.h"
#include "host/journal/CJournalQueue.h"
#include "host/journal/CJournalSet.h"
#include "host/journal/CKeptHistories.h"
#include "host/journal/CTaskThread.h"

#include <QSet>

#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

/// The journals of all processors with edits. Small changes are with the operating system when a call
/// returns. Large ones, those behind them, and those that a disk or another machine takes too long for, are
/// written later by a thread of its own; another one has the disk confirm everything within a second. No call
/// waits for a disk that does not answer. GUI thread, unless a function says otherwise.
class CJournals final
{
public:
    using Tell = CJournalListeners::Tell;
    using Arrived = CJournalListeners::Arrived;
    using Work = CJournalSet::Work;

    /// @p tell gets texts for the user, @p arrived the processors whose history() came too late; both on any
    /// thread.
    CJournals(const QString &folder, Tell tell, Arrived arrived = {});
    ~CJournals(); ///< writes what waits; files stay
    Q_DISABLE_COPY(CJournals)

    const CJournalFolder &folder() const { return m_folder; }
    /// Whether the histories of saved projects are kept, and how much memory the history of a processor may
    /// take.
    void setHistory(bool kept, qint64 bytes);

    /// Whether the processor's state is known here.
    bool knows(const QUuid &processor) const { return m_known.contains(processor); }
    /// Begins with a state that needs no file. The first change makes one.
    void begin(const SJournalOwner &owner, const SProcessorProject &state);
    /// Notes an edit of a processor that is known.
    void note(const SEditRecord &record);
    /// Notes a state that is not the result of an edit, if it is another one. If it is saved and there are no
    /// further edits, a crash loses nothing: then there is no file.
    void note(const SJournalOwner &owner, const SProcessorProject &state, Work work = Work::Unsaved);
    /// Notes everything of a state except the cabinets of its ports: for when edits of these are under way.
    void noteLook(const SJournalOwner &owner, const SProcessorProject &state, Work work = Work::Unsaved);
    /// The processor was saved, in the state that is noted: a project's history is kept beside its journal,
    /// which is removed.
    void settle(const SJournalOwner &owner);
    /// The processor is gone, or its edits are to be forgotten.
    void drop(const QUuid &processor);
    void dropAll();
    /// Goes on with a journal of another run, whose file is taken over. Looks at no other file: what the
    /// journal says to be saved must be so.
    void adopt(const SStrayJournal &stray, const SJournalOwner &owner);
    /// Begins with a project that was opened, in the state of its file, and its kept history if that still
    /// belongs to the file and arrives before the first edit.
    void beginOpened(const SJournalOwner &owner, const SProcessorProject &state);

    /// The steps that lead to the layout noted last. Waits for what is not read or written yet, but not for
    /// long: then it is empty, and told as soon as it is here.
    SEditHistory history(const QUuid &processor);
    /// Whether no step was noted since the processor became known.
    bool isUnedited(const QUuid &processor) const;

    /// Waits until everything is written and confirmed.
    void sync();
    /// As the destructor; nothing is noted afterwards.
    void stop();
    /// The same, but if the disk does not answer for as long as @p patience, the log says so, and the object
    /// and its threads live until the process ends.
    static void stop(std::shared_ptr<CJournals> journals,
                     std::chrono::milliseconds patience = std::chrono::seconds(5));

private:
    using Clock = std::chrono::steady_clock;
    using Task = CJournalQueue::Task;
    using Lock = CJournalQueue::Lock;

    void know(const QUuid &processor);
    void submit(bool large, const Task &task);
    void submitLater(bool large, const Task &task);
    void carryOut(const Task &task);
    bool isLargeToBegin(const QUuid &processor);
    bool endWithin(std::optional<std::chrono::milliseconds> patience);
    void takeFound(const CKeptHistories::SFound &found);

    void run();
    void work(Lock &lock);
    bool isReady(const QUuid &processor) const;
    void tellArrived(Lock &lock);
    bool isDiskSlow() const;
    void beginSync(int more);
    void endSync(Lock &lock);
    void waitForDisk(std::vector<CJournalSet::SUnsynced> &written) const;
    void onAnswer();

    const CJournalFolder m_folder;

    // GUI thread.
    struct SRestored
    {
        CStepTrail trail;
        CStepTrail::Ports ports;
    };
    QSet<QUuid> m_known;
    QSet<QUuid> m_edited;
    std::map<QUuid, SRestored> m_restored; // without edits since

    CJournalListeners m_listeners;

    std::mutex m_mutex; // guards what follows
    std::condition_variable m_wake;
    std::condition_variable m_idle;
    CJournalQueue m_queue{m_idle};
    bool m_local = false;         // the folder, so that a write hangs only when the disk does
    Clock::time_point m_nextTurn; // of what is done once a while
    enum class EDisk { Idle, Asked, Answered };
    EDisk m_disk = EDisk::Idle;                    // whether it confirms what was written
    std::vector<CJournalSet::SUnsynced> m_syncing; // while it is asked, its thread's
    int m_moreSyncs = 0;
    Clock::time_point m_asked;
    bool m_stopped = false;
    bool m_ended = false; // the thread uses nothing any more but the lock
    QSet<QUuid> m_late;   // whose history was asked for in vain

    // Under the lock while nothing runs, else the thread's.
    CKeptHistories m_histories;
    CJournalSet m_journals;

    CTaskThread m_diskThread;
    std::thread m_thread; // last
};
