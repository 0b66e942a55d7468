// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CJournals.h"

#include "host/journal/CByteWriter.h"
#include "host/journal/CStateCodec.h"
#include "host/projects/CSafeFile.h"

#include <QDateTime>
#include <QFile>
#include <QMap>

#include <algorithm>
#include <fcntl.h>
#include <new>
#include <utility>
#include <vector>

namespace {

constexpr int LargeStep = 10000; // cabinets
constexpr std::chrono::milliseconds Turn(500);
constexpr std::chrono::milliseconds HistoryPatience(1000);
constexpr qint64 UsualHistoryBytes = 256 * 1024 * 1024;

int cabinetsIn(const SEditStep &step)
{
    int count = 0;
    for (const SEditStep::SPort &port : step.ports)
        count += port.after.cabinetCount();
    return count;
}

qint64 now()
{
    return QDateTime::currentMSecsSinceEpoch();
}

bool isLargeToTend(const std::pair<const QUuid, std::unique_ptr<CJournal>> &entry)
{
    CJournal &journal = *entry.second;
    return (journal.isBroken() || journal.isOutgrown()) &&
           journal.state().project().layout.cabinetCount() > LargeStep;
}

} // namespace

CJournals::CJournals(const QString &folder, Tell tell, Arrived arrived)
    : m_folder(folder)
    , m_nextTurn(Clock::now() + Turn)
    , m_historyBytes(UsualHistoryBytes)
    , m_tell(std::move(tell))
    , m_arrived(std::move(arrived))
    , m_chores([this] {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_idle.notify_all();
    })
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
        const auto ended = [this] { return m_ended && !m_chores.isBusy(); };
        if (patience && !m_idle.wait_for(lock, *patience, ended)) {
            m_thread.detach();
            const std::lock_guard<std::mutex> telling(m_tellMutex);
            m_tell = {};
            m_arrived = {};
            return false;
        }
    }
    m_thread.join();
    m_chores.stop();
    return true;
}

void CJournals::tell(const QString &text)
{
    const std::lock_guard<std::mutex> lock(m_tellMutex);
    if (m_tell)
        m_tell(text);
}

void CJournals::setHistory(bool kept, qint64 bytes)
{
    submitLater(false, [this, kept, bytes] {
        m_keepHistory = kept;
        m_historyBytes = bytes;
        for (const auto &journal : m_journals)
            journal.second->state().trail().limit(mostHistory());
        if (!kept)
            m_chores.submit([this] { m_folder.dropHistories(); });
    });
}

/// A file that holds it must be readable. In the editor, the same steps need several times as much memory, so
/// that the limit that the user sets is reached there first.
qint64 CJournals::mostHistory() const
{
    return std::min(m_historyBytes, CJournal::LargestFile / 4 * 3);
}

/// What is not large is with the operating system afterwards, so that a kill cannot take it any more.
void CJournals::submit(bool large, const Task &task)
{
    Lock lock(m_mutex);
    if (m_stopped)
        return;
    if (!large && m_queue.waitForTurn(lock))
        return carryOut(task); // the thread looks for what is to be confirmed once a while
    m_queue.push(task, large);
    m_wake.notify_all();
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

/// A task that runs out of memory leaves what it was about half noted. The files that are begun then are
/// right again with the next state that is noted.
void CJournals::carryOut(const Task &task)
{
    try {
        task();
    } catch (const std::bad_alloc &) {
        for (const auto &entry : m_journals) {
            CJournal &journal = *entry.second;
            if (journal.isWritten())
                journal.fail(tr("there is not enough memory"));
            tellAbout(journal);
        }
    }
}

CJournal *CJournals::find(const QUuid &processor)
{
    const auto found = m_journals.find(processor);
    return found == m_journals.end() ? nullptr : found->second.get();
}

void CJournals::open(const SJournalOwner &owner, const CJournalState &state)
{
    m_searches.erase(owner.processor);
    m_journals[owner.processor] = std::make_unique<CJournal>(m_folder.path(), owner, state);
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
    submit(false, [this, owner, state] { open(owner, CJournalState(state)); });
}

/// Whether the next change writes a whole layout that is large.
bool CJournals::isLargeToBegin(const QUuid &processor)
{
    Lock lock(m_mutex);
    if (!m_queue.waitForTurn(lock))
        return false; // it waits in any case
    const CJournal *journal = find(processor);
    return journal && !journal->isWritten() && journal->state().project().layout.cabinetCount() > LargeStep;
}

/// Once for all processors, and again when all journals are good.
void CJournals::tellAbout(const CJournal &journal)
{
    const bool broken = std::any_of(m_journals.begin(), m_journals.end(),
                                    [](const auto &entry) { return entry.second->isBroken(); });
    if (broken == m_toldBroken || journal.isBroken() != broken)
        return;
    m_toldBroken = broken;
    tell(broken ? tr("Edits of %1 cannot be kept for a crash (%2): save your work.")
                      .arg(journal.owner().name, journal.error())
                : tr("Edits are kept for a crash again."));
}

void CJournals::change(CJournal &journal, int entry, const QByteArray &content)
{
    if (!journal.isWritten() && !journal.isBroken()) {
        const CStatus made = m_folder.make();
        if (!made)
            journal.fail(made.error());
    }
    journal.append(entry, content);
    journal.state().trail().limit(mostHistory());
    tellAbout(journal);
}

void CJournals::note(const SEditRecord &record)
{
    m_edited.insert(record.processor);
    m_restored.erase(record.processor);
    const bool large = cabinetsIn(record.step) > LargeStep || isLargeToBegin(record.processor);
    submit(large, [this, record] {
        if (CJournal *journal = find(record.processor)) {
            const QByteArray content = journal->state().note(record, now());
            change(*journal, CJournalState::Step, content);
        }
    });
}

void CJournals::takeOwner(CJournal &journal, const SJournalOwner &owner)
{
    if (journal.owner() == owner)
        return;
    journal.setOwner(owner);
    CByteWriter content;
    owner.write(content);
    if (journal.isInUse())
        change(journal, CJournalState::Owner, content.bytes());
}

void CJournals::take(const SJournalOwner &owner, const SProcessorProject &state, Work work)
{
    CJournal &journal = *find(owner.processor);
    takeOwner(journal, owner);
    if (CStateCodec::sameState(journal.state().project(), state))
        return;
    const QByteArray content = journal.state().note(state, now());
    if (work == Work::Unsaved)
        journal.state().trail().setOther(true);
    if (work == Work::Unsaved || journal.isInUse())
        change(journal, CJournalState::State, content);
}

/// A saved state that is not what is noted is older than the last edits.
void CJournals::endIfSaved(CJournal &journal, const SProcessorProject &state, Work work)
{
    if (work == Work::Saved && journal.isInUse() && CStateCodec::sameState(journal.state().project(), state))
        endUnedited(journal);
}

/// What was done and undone can be redone later, unless the file has become another one. A history that was
/// kept before stays, where there is none to replace it.
void CJournals::endUnedited(CJournal &journal)
{
    journal.state().trail().setOther(false);
    if (m_keepHistory && journal.owner().project && !journal.owner().file.isEmpty() &&
        !journal.state().trail().isEmpty()) {
        m_chores.submit([this, owner = journal.owner(), state = journal.state()] {
            if (SFileStamp::of(owner.file) == owner.stamp)
                tellUnkept(owner, m_folder.keepHistory(owner, state));
        });
    }
    journal.removeFile();
}

/// The history stays where the next start finds it.
void CJournals::end(CJournal &journal)
{
    if (journal.owner().project && !journal.owner().file.isEmpty())
        keepHistoryLater(journal);
    journal.removeFile();
}

void CJournals::note(const SJournalOwner &owner, const SProcessorProject &state, Work work)
{
    const auto restored = m_restored.find(owner.processor);
    if (restored != m_restored.end())
        restored->second.ports = state.layout.ports;
    const bool large = state.layout.cabinetCount() > LargeStep;
    submit(large, [this, owner, state, work] {
        CJournal *journal = find(owner.processor);
        if (!journal)
            return;
        take(owner, state, work);
        endIfSaved(*journal, state, work);
    });
}

void CJournals::noteLook(const SJournalOwner &owner, const SProcessorProject &state, Work work)
{
    submit(isLargeToBegin(owner.processor), [this, owner, state, work] {
        CJournal *journal = find(owner.processor);
        if (!journal)
            return;
        SProcessorProject look = state;
        for (CabinetLayout::CabinetPort &port : look.layout.ports) {
            if (const auto *known = journal->state().project().layout.port(port.index))
                port.groups = known->groups;
        }
        take(owner, look, work);
        endIfSaved(*journal, state, work);
    });
}

void CJournals::settle(const SJournalOwner &owner)
{
    m_restored.erase(owner.processor);
    submit(false, [this, owner] {
        CJournal *journal = find(owner.processor);
        if (!journal)
            return;
        journal->setOwner(owner);
        journal->state().trail().setSaved();
        end(*journal);
    });
}

/// Elsewhere, because it waits for the disk; steps that are noted meanwhile need not, nor what is confirmed.
void CJournals::keepHistoryLater(const CJournal &journal)
{
    const bool kept = m_keepHistory && !journal.state().trail().isEmpty();
    m_chores.submit([this, kept, owner = journal.owner(), state = journal.state()] {
        if (kept)
            tellUnkept(owner, m_folder.keepHistory(owner, state));
        else
            m_folder.dropHistory(owner.file);
    });
}

void CJournals::tellUnkept(const SJournalOwner &owner, const QString &problem)
{
    if (!problem.isEmpty())
        tell(tr("The history of %1 cannot be kept: %2").arg(owner.name, problem));
}

void CJournals::drop(const QUuid &processor)
{
    if (!m_known.remove(processor))
        return;
    m_edited.remove(processor);
    m_restored.erase(processor);
    submit(false, [this, processor] {
        m_searches.erase(processor);
        if (CJournal *journal = find(processor))
            journal->removeFile();
        m_journals.erase(processor);
    });
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
    if (!owner.file.isEmpty() && SFileStamp::of(owner.file) != owner.stamp)
        state.trail().forgetSaved(); // the file was changed since
    state.trail().renumber(state.project().layout.ports);
    m_restored[owner.processor] = {state.trail(), state.project().layout.ports};
    submitLater(state.project().layout.cabinetCount() > LargeStep, [this, stray, owner, state] {
        auto journal = std::make_unique<CJournal>(m_folder.path(), owner, state, stray.path);
        journal->supersede(QFile::encodeName(stray.path), stray.lock);
        for (const auto &[path, lock] : stray.followed)
            journal->supersede(path, lock);
        if (const CJournal *before = find(owner.processor))
            journal->supersede(*before);
        m_searches.erase(owner.processor);
        m_journals[owner.processor] = std::move(journal);
        CJournal &adopted = *find(owner.processor);
        if (!adopted.begin()) // then the old files stay until it succeeds
            tellAbout(adopted);
        const Lock lock(m_mutex);
        m_nextTurn = Clock::now();
    });
}

void CJournals::beginOpened(const SJournalOwner &owner, const SProcessorProject &state)
{
    know(owner.processor);
    submit(false, [this, owner, state] {
        open(owner, CJournalState(state));
        if (m_keepHistory)
            findHistoryLater(owner);
    });
}

/// After what is being kept now.
void CJournals::findHistoryLater(const SJournalOwner &owner)
{
    const quint64 search = ++m_lastSearch;
    m_searches[owner.processor] = search;
    m_chores.submit([this, owner, search] {
        SJournal history;
        CJournalFolder::Kept kept = CJournalFolder::Kept::None;
        try {
            kept = m_folder.findHistory(owner.file, history);
        } catch (const std::bad_alloc &) {
            tell(tr("There is not enough memory for the earlier steps of %1.").arg(owner.name));
        }
        if (kept == CJournalFolder::Kept::Changed) {
            m_folder.dropHistory(owner.file);
            tell(tr("%1 was changed elsewhere: its earlier steps cannot be undone.").arg(owner.name));
        }
        const CStepTrail trail = kept == CJournalFolder::Kept::Same ? history.state.trail() : CStepTrail();
        submitLater(
            history.state.project().layout.cabinetCount() > LargeStep,
            [this, processor = owner.processor, search, trail] { takeHistory(processor, search, trail); });
    });
}

/// On the thread. Steps that were noted meanwhile do not follow those that were kept.
void CJournals::takeHistory(const QUuid &processor, quint64 search, const CStepTrail &trail)
{
    const auto known = m_searches.find(processor);
    if (known == m_searches.end() || known->second != search)
        return; // it was opened again since
    m_searches.erase(known);
    CJournal *journal = find(processor);
    if (!journal || journal->state().trail().isBegun())
        return;
    CStepTrail &own = journal->state().trail();
    const bool other = own.hasOther();
    own = trail;
    own.setOther(other);
    own.limit(mostHistory());
    own.renumber(journal->state().project().layout.ports);
    if (journal->isWritten() && !own.isEmpty())
        journal->beginNew(); // the file began without them
}

/// Under the lock.
bool CJournals::isReady(const QUuid &processor) const
{
    return m_queue.isFree() && m_searches.count(processor) == 0;
}

bool CJournals::isUnedited(const QUuid &processor) const
{
    return m_known.contains(processor) && !m_edited.contains(processor);
}

SEditHistory CJournals::history(const QUuid &processor)
{
    const auto restored = m_restored.find(processor);
    if (restored != m_restored.end())
        return restored->second.trail.history(restored->second.ports);
    Lock lock(m_mutex);
    if (!m_idle.wait_for(lock, HistoryPatience, [&] { return isReady(processor); })) {
        m_late.insert(processor);
        return {};
    }
    const CJournal *journal = find(processor);
    return journal ? journal->state().history() : SEditHistory();
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
    for (const QUuid &processor : std::as_const(arrived)) {
        const std::lock_guard<std::mutex> telling(m_tellMutex);
        if (m_arrived)
            m_arrived(processor);
    }
    lock.lock();
}

void CJournals::sync()
{
    Lock lock(m_mutex);
    m_nextTurn = Clock::now();
    m_wake.notify_all();
    m_idle.wait(lock, [this] {
        return m_stopped || (m_queue.isFree() && !m_queue.isSyncing() && !isUnsynced() && !m_chores.isBusy());
    });
}

bool CJournals::isUnsynced() const
{
    return std::any_of(m_journals.begin(), m_journals.end(),
                       [](const auto &journal) { return journal.second->hasUnsynced(); });
}

// The thread.

void CJournals::run()
{
    (void)m_folder.make(); // confirmed here, so that no edit has to; a failure is told by the first one
    Lock lock(m_mutex);
    while (!m_stopped || !m_queue.isEmpty()) {
        if (!m_queue.isEmpty()) {
            bool large = false;
            const Task task = m_queue.next(large);
            m_queue.run(
                lock, [this, &task] { carryOut(task); }, large);
            tellArrived(lock);
        } else if (Clock::now() >= m_nextTurn) {
            const bool large = std::any_of(m_journals.begin(), m_journals.end(), isLargeToTend);
            m_queue.run(
                lock, [this] { carryOut([this] { tend(); }); }, large);
            tellArrived(lock);
            confirm(lock);
            m_nextTurn = Clock::now() + Turn;
        } else {
            m_wake.wait_until(lock, m_nextTurn);
        }
    }
    confirm(lock);
    m_journals.clear();
    m_ended = true;
    m_idle.notify_all();
}

/// Begins new files in place of those that are too large or could not be written.
void CJournals::tend()
{
    for (const auto &entry : m_journals) {
        CJournal &journal = *entry.second;
        if (journal.isBroken()) {
            if (m_folder.make())
                journal.beginNew(); // the disk must confirm it
        } else if (journal.isOutgrown()) {
            journal.beginNew();
            tellAbout(journal);
        }
    }
}

/// Waits for the disk, without the lock.
void CJournals::confirm(Lock &lock)
{
    std::vector<std::pair<QUuid, QVector<CJournal::Handle>>> written;
    for (const auto &entry : m_journals) {
        if (entry.second->hasUnsynced())
            written.emplace_back(entry.first, entry.second->takeUnsynced());
    }
    if (written.empty())
        return;
    m_queue.setSyncing(true);
    lock.unlock();
    QMap<QUuid, QString> problems;
    for (const auto &[processor, handles] : written) {
        for (const CJournal::Handle &handle : handles) {
            if (!handle->sync())
                problems[processor] = CSafeFile::systemReason();
        }
    }
    CFileHandle(QFile::encodeName(m_folder.path()), O_RDONLY | O_DIRECTORY).syncNames();
    lock.lock();
    m_queue.setSyncing(false);
    const auto take = [&] {
        for (const auto &[processor, handles] : written) {
            CJournal *journal = find(processor);
            if (!journal)
                continue;
            if (problems.contains(processor))
                journal->fail(problems.value(processor));
            else if (!handles.isEmpty())
                journal->confirm(handles.last());
            tellAbout(*journal);
        }
    };
    m_queue.run(
        lock, [this, &take] { carryOut(take); }, false); // renames and removes files, which may hang
}
