// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CJournals.h"

#include "host/projects/CSafeFile.h"

#include <QFile>

#include <algorithm>
#include <fcntl.h>
#include <new>
#include <utility>
#include <vector>

namespace {

constexpr std::chrono::milliseconds Turn(500);
constexpr std::chrono::milliseconds HistoryPatience(1000);

bool isLarge(int cabinets)
{
    return cabinets > CJournalSet::LargeStep;
}

int cabinetsIn(const SEditStep &step)
{
    int count = 0;
    for (const SEditStep::SPort &port : step.ports)
        count += port.after.cabinetCount();
    return count;
}

} // namespace

CJournals::CJournals(const QString &folder, Tell tell, Arrived arrived)
    : m_folder(folder)
    , m_listeners(std::move(tell), std::move(arrived))
    , m_nextTurn(Clock::now() + Turn)
    , m_histories(
          m_folder, m_listeners,
          [this](const CKeptHistories::SFound &found) {
              submitLater(isLarge(found.cabinetCount), [this, found] { takeFound(found); });
          },
          [this] {
              const std::lock_guard<std::mutex> lock(m_mutex);
              m_idle.notify_all();
          })
    , m_journals(m_folder, m_listeners, m_histories)
    , m_diskThread([this] { onAnswer(); })
    , m_thread([this] { run(); })
{
}

CJournals::~CJournals()
{
    stop();
}

void CJournals::stop()
{
    endWithin(std::nullopt);
}

void CJournals::stop(std::shared_ptr<CJournals> journals, std::chrono::milliseconds patience)
{
    if (journals->endWithin(patience))
        return;
    qWarning("The disk does not answer: the last edits may be missing in %s.",
             qPrintable(journals->m_folder.path()));
    static auto &left = *new std::vector<std::shared_ptr<CJournals>>; // never destroyed: threads use them
    left.push_back(journals);
}

/// False: the threads go on, but tell nothing any more.
bool CJournals::endWithin(std::optional<std::chrono::milliseconds> patience)
{
    if (!m_thread.joinable())
        return true;
    {
        Lock lock(m_mutex);
        m_stopped = true;
        m_wake.notify_all();
        const auto ended = [this] { return m_ended && !m_histories.isBusy(); };
        if (patience && !m_idle.wait_for(lock, *patience, ended)) {
            m_thread.detach();
            m_listeners.silence();
            return false;
        }
    }
    m_thread.join();
    m_histories.stop();
    return true;
}

void CJournals::setHistory(bool kept, qint64 bytes)
{
    submitLater(false, [this, kept, bytes] {
        m_journals.setHistoryBytes(bytes);
        m_histories.setKept(kept);
    });
}

/// What is not large is with the operating system afterwards, so that a kill cannot take it any more. It is
/// written here where that cannot hang: waking the thread takes as long as writing.
void CJournals::submit(bool large, const Task &task)
{
    Lock lock(m_mutex);
    if (m_stopped)
        return;
    if (!large && m_local && !isDiskSlow() && m_queue.waitUntilFree(lock))
        return carryOut(task); // the thread looks for what is to be confirmed once a while
    m_queue.push(task, large);
    m_wake.notify_all();
    m_queue.waitUntilFree(lock);
}

/// For what may take the disk's time, or comes from another thread.
void CJournals::submitLater(bool large, const Task &task)
{
    const Lock lock(m_mutex);
    if (m_stopped)
        return;
    m_queue.push(task, large);
    m_wake.notify_all();
}

/// A task that runs out of memory leaves what it was about half noted.
void CJournals::carryOut(const Task &task)
{
    try {
        task();
    } catch (const std::bad_alloc &) {
        m_journals.failAll();
    }
}

void CJournals::know(const QUuid &processor)
{
    m_known.insert(processor);
    m_edited.remove(processor);
    m_restored.erase(processor);
}

void CJournals::begin(const SJournalOwner &owner, const SProcessorProject &state)
{
    know(owner.processor);
    submit(false, [this, owner, state] { m_journals.open(owner, state); });
}

bool CJournals::isLargeToBegin(const QUuid &processor)
{
    Lock lock(m_mutex);
    if (!m_queue.waitUntilFree(lock))
        return false; // it waits in any case
    return m_journals.isLargeToBegin(processor);
}

void CJournals::note(const SEditRecord &record)
{
    m_edited.insert(record.processor);
    m_restored.erase(record.processor);
    const bool large = isLarge(cabinetsIn(record.step)) || isLargeToBegin(record.processor);
    submit(large, [this, record] { m_journals.note(record); });
}

void CJournals::note(const SJournalOwner &owner, const SProcessorProject &state, Work work)
{
    const auto restored = m_restored.find(owner.processor);
    if (restored != m_restored.end())
        restored->second.ports = state.layout.ports;
    submit(isLarge(state.layout.cabinetCount()),
           [this, owner, state, work] { m_journals.note(owner, state, work); });
}

void CJournals::noteLook(const SJournalOwner &owner, const SProcessorProject &state, Work work)
{
    submit(isLargeToBegin(owner.processor),
           [this, owner, state, work] { m_journals.noteLook(owner, state, work); });
}

void CJournals::settle(const SJournalOwner &owner)
{
    m_restored.erase(owner.processor);
    submit(false, [this, owner] { m_journals.settle(owner); });
}

void CJournals::drop(const QUuid &processor)
{
    if (!m_known.remove(processor))
        return;
    m_edited.remove(processor);
    m_restored.erase(processor);
    submit(false, [this, processor] { m_journals.drop(processor); });
}

void CJournals::dropAll()
{
    for (const QUuid &processor : m_known.values())
        drop(processor);
}

/// The steps are at hand at once, however long files take.
void CJournals::adopt(const SStrayJournal &stray, const SJournalOwner &owner)
{
    know(owner.processor);
    CJournalState state = stray.journal.state;
    state.trail().renumber(state.project().layout.ports);
    m_restored[owner.processor] = {state.trail(), state.project().layout.ports};
    submitLater(isLarge(state.project().layout.cabinetCount()), [this, stray, owner, state] {
        m_journals.adopt(stray, owner, state);
        const Lock lock(m_mutex);
        m_nextTurn = Clock::now();
    });
}

void CJournals::beginOpened(const SJournalOwner &owner, const SProcessorProject &state)
{
    know(owner.processor);
    submit(false, [this, owner, state] {
        m_journals.open(owner, state);
        m_histories.search(owner);
    });
}

bool CJournals::isUnedited(const QUuid &processor) const
{
    return m_known.contains(processor) && !m_edited.contains(processor);
}

/// Under the lock.
bool CJournals::isReady(const QUuid &processor) const
{
    return m_queue.isFree() && !m_histories.isSearching(processor);
}

SEditHistory CJournals::history(const QUuid &processor)
{
    const auto restored = m_restored.find(processor);
    if (restored != m_restored.end())
        return restored->second.trail.history(restored->second.ports);
    Lock lock(m_mutex);
    const auto ready = [&] { return isReady(processor); };
    if (m_queue.hangs() || !m_idle.wait_for(lock, HistoryPatience, ready)) {
        m_late.insert(processor);
        return {};
    }
    return m_journals.history(processor);
}

void CJournals::sync()
{
    Lock lock(m_mutex);
    m_nextTurn = Clock::now();
    m_wake.notify_all();
    m_idle.wait(lock, [this] {
        return m_stopped || (m_queue.isFree() && m_disk == EDisk::Idle && !m_journals.hasUnsynced() &&
                             !m_histories.isBusy());
    });
}

// The thread.

void CJournals::run()
{
    (void)m_folder.make(); // confirmed here, so that no edit has to; a failure is told by the first one
    const bool local = CFileSystem::current().isLocal(QFile::encodeName(m_folder.path()));
    Lock lock(m_mutex);
    m_local = local;
    while (!m_stopped || !m_queue.isEmpty() || m_disk != EDisk::Idle)
        work(lock);
    m_queue.run(
        lock, [this] { carryOut([this] { m_journals.tend(); }); }, true); // what failed may succeed now
    while (m_journals.hasUnsynced()) {
        beginSync(0);
        while (m_disk != EDisk::Idle)
            work(lock);
    }
    m_journals.dropAll();
    m_ended = true;
    m_idle.notify_all();
}

/// Does the next thing, or waits for one.
void CJournals::work(Lock &lock)
{
    if (m_disk == EDisk::Answered) {
        endSync(lock);
    } else if (!m_queue.isEmpty()) {
        bool large = false;
        const Task task = m_queue.next(large);
        m_queue.run(
            lock, [this, &task] { carryOut(task); }, large);
        tellArrived(lock);
    } else if (m_disk == EDisk::Asked) {
        m_wake.wait(lock);
    } else if (Clock::now() >= m_nextTurn) {
        m_nextTurn = Clock::time_point::max();
        m_queue.run(
            lock, [this] { carryOut([this] { m_journals.tend(); }); }, m_journals.isLargeToTend());
        tellArrived(lock);
        beginSync(1); // and the names of new files
    } else {
        m_wake.wait_until(lock, m_nextTurn);
    }
}

void CJournals::takeFound(const CKeptHistories::SFound &found)
{
    if (m_histories.endSearch(found)) // else it was opened again since
        m_journals.takeHistory(found.processor, found.trail);
}

/// To those who have asked too early.
void CJournals::tellArrived(Lock &lock)
{
    QSet<QUuid> arrived;
    for (const QUuid &processor : std::as_const(m_late)) {
        if (isReady(processor))
            arrived << processor;
    }
    if (arrived.isEmpty())
        return;
    m_late -= arrived;
    lock.unlock();
    for (const QUuid &processor : std::as_const(arrived))
        m_listeners.tellArrived(processor);
    lock.lock();
}

/// Has the disk confirm what was written, on another thread, so that edits can be written meanwhile. Then
/// @p more times what that has led to.
void CJournals::beginSync(int more)
{
    m_syncing = m_journals.takeUnsynced();
    m_moreSyncs = more;
    if (m_syncing.empty()) {
        m_nextTurn = std::min(m_nextTurn, Clock::now() + Turn);
        return;
    }
    m_disk = EDisk::Asked;
    m_asked = Clock::now();
    m_diskThread.submit([this] { waitForDisk(m_syncing); });
}

bool CJournals::isDiskSlow() const
{
    return m_disk == EDisk::Asked && Clock::now() - m_asked > CJournalQueue::DiskPatience;
}

/// On the disk's thread.
void CJournals::waitForDisk(std::vector<CJournalSet::SUnsynced> &written) const
{
    for (CJournalSet::SUnsynced &entry : written) {
        for (const CJournal::Handle &file : std::as_const(entry.files)) {
            if (!file->sync())
                entry.problem = CSafeFile::systemReason();
        }
    }
    if (!CFileHandle(QFile::encodeName(m_folder.path()), O_RDONLY | O_DIRECTORY).syncNames()) {
        for (CJournalSet::SUnsynced &entry : written)
            entry.problem = CSafeFile::systemReason();
    }
}

/// On the disk's thread.
void CJournals::onAnswer()
{
    const Lock lock(m_mutex);
    m_disk = EDisk::Answered;
    m_wake.notify_all();
}

void CJournals::endSync(Lock &lock)
{
    m_disk = EDisk::Idle;
    std::vector<CJournalSet::SUnsynced> written;
    written.swap(m_syncing);
    const auto confirm = [&] {
        carryOut([&] { m_journals.confirm(written); });
        written.clear(); // closes files
    };
    m_queue.run(lock, confirm, false); // renames and removes files, which may hang
    if (m_moreSyncs > 0)
        beginSync(m_moreSyncs - 1);
    else
        m_nextTurn = std::min(m_nextTurn, Clock::now() + Turn); // one may be wanted already
}
