// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CJournalSet.h"

#include "host/journal/CByteWriter.h"
#include "host/journal/CJournalListeners.h"
#include "host/journal/CKeptHistories.h"
#include "host/journal/CStateCodec.h"

#include <QDateTime>
#include <QFile>

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 UsualHistoryBytes = 256 * 1024 * 1024;

qint64 now()
{
    return QDateTime::currentMSecsSinceEpoch();
}

bool isFileOfProject(const SJournalOwner &owner)
{
    return owner.project && !owner.file.isEmpty();
}

} // namespace

CJournalSet::CJournalSet(const CJournalFolder &folder, CJournalListeners &listeners,
                         CKeptHistories &histories)
    : m_folder(folder)
    , m_listeners(listeners)
    , m_histories(histories)
    , m_historyBytes(UsualHistoryBytes)
{
}

CJournal *CJournalSet::find(const QUuid &processor) const
{
    const auto found = m_journals.find(processor);
    return found == m_journals.end() ? nullptr : found->second.get();
}

void CJournalSet::setHistoryBytes(qint64 bytes)
{
    m_historyBytes = bytes;
    for (const auto &journal : m_journals)
        journal.second->state().trail().limit(mostHistory());
}

/// A file that holds it must be readable. In the editor, the same steps need several times as much memory, so
/// that the limit that the user sets is reached there first.
qint64 CJournalSet::mostHistory() const
{
    return std::min(m_historyBytes, CJournal::LargestFile / 4 * 3);
}

void CJournalSet::open(const SJournalOwner &owner, const SProcessorProject &state)
{
    m_histories.endSearch(owner.processor);
    m_journals[owner.processor] = std::make_unique<CJournal>(m_folder.path(), owner, CJournalState(state));
}

void CJournalSet::adopt(const SStrayJournal &stray, const SJournalOwner &owner, const CJournalState &state)
{
    auto journal = std::make_unique<CJournal>(m_folder.path(), owner, state, stray.path);
    journal->supersede(QFile::encodeName(stray.path), stray.lock);
    for (const auto &[path, lock] : stray.followed)
        journal->supersede(path, lock);
    if (const CJournal *before = find(owner.processor))
        journal->supersede(*before);
    m_histories.endSearch(owner.processor);
    m_journals[owner.processor] = std::move(journal);
    CJournal &adopted = *find(owner.processor);
    if (!adopted.begin()) // then the old files stay until it succeeds
        tellAbout(adopted);
}

bool CJournalSet::isLargeToBegin(const QUuid &processor) const
{
    const CJournal *journal = find(processor);
    return journal && !journal->isWritten() && journal->state().project().layout.cabinetCount() > LargeStep;
}

/// Once for all processors, and again when all journals are good.
void CJournalSet::tellAbout(const CJournal &journal)
{
    const bool broken = std::any_of(m_journals.begin(), m_journals.end(),
                                    [](const auto &entry) { return entry.second->isBroken(); });
    if (broken == m_toldBroken || journal.isBroken() != broken)
        return;
    m_toldBroken = broken;
    m_listeners.tell(broken ? tr("Edits of %1 cannot be kept for a crash (%2): save your work.")
                                  .arg(journal.owner().name, journal.error())
                            : tr("Edits are kept for a crash again."));
}

void CJournalSet::failAll()
{
    for (const auto &entry : m_journals) {
        CJournal &journal = *entry.second;
        if (journal.isWritten())
            journal.fail(tr("there is not enough memory"));
        tellAbout(journal);
    }
}

void CJournalSet::change(CJournal &journal, int entry, const QByteArray &content)
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

void CJournalSet::note(const SEditRecord &record)
{
    if (CJournal *journal = find(record.processor)) {
        const QByteArray content = journal->state().note(record, now());
        change(*journal, CJournalState::Step, content);
    }
}

void CJournalSet::takeOwner(CJournal &journal, const SJournalOwner &owner)
{
    if (journal.owner() == owner)
        return;
    journal.setOwner(owner);
    CByteWriter content;
    owner.write(content);
    if (journal.isInUse())
        change(journal, CJournalState::Owner, content.bytes());
}

void CJournalSet::take(CJournal &journal, const SJournalOwner &owner, const SProcessorProject &state,
                       Work work)
{
    takeOwner(journal, owner);
    if (CStateCodec::sameState(journal.state().project(), state))
        return;
    const QByteArray content = journal.state().note(state, now());
    if (work == Work::Unsaved)
        journal.state().trail().setOther(true);
    if (work == Work::Unsaved || journal.isInUse())
        change(journal, CJournalState::State, content);
}

/// A saved state that is not what is noted is older than the last edits. What was done and undone can be
/// redone later.
void CJournalSet::endIfSaved(CJournal &journal, const SProcessorProject &state, Work work)
{
    if (work != Work::Saved || !journal.isInUse() ||
        !CStateCodec::sameState(journal.state().project(), state))
        return;
    journal.state().trail().setOther(false);
    if (isFileOfProject(journal.owner()))
        m_histories.keepUndone(journal.owner(), journal.state());
    journal.removeFile();
}

void CJournalSet::note(const SJournalOwner &owner, const SProcessorProject &state, Work work)
{
    if (CJournal *journal = find(owner.processor)) {
        take(*journal, owner, state, work);
        endIfSaved(*journal, state, work);
    }
}

void CJournalSet::noteLook(const SJournalOwner &owner, const SProcessorProject &state, Work work)
{
    CJournal *journal = find(owner.processor);
    if (!journal)
        return;
    SProcessorProject look = state;
    for (CabinetLayout::CabinetPort &port : look.layout.ports) {
        if (const auto *known = journal->state().project().layout.port(port.index))
            port.groups = known->groups;
    }
    take(*journal, owner, look, work);
    endIfSaved(*journal, state, work);
}

/// The history stays where the next start finds it.
void CJournalSet::settle(const SJournalOwner &owner)
{
    CJournal *journal = find(owner.processor);
    if (!journal)
        return;
    journal->setOwner(owner);
    journal->state().trail().setSaved();
    if (isFileOfProject(owner))
        m_histories.keep(owner, journal->state());
    journal->removeFile();
}

void CJournalSet::drop(const QUuid &processor)
{
    m_histories.endSearch(processor);
    const auto found = m_journals.find(processor);
    if (found == m_journals.end())
        return;
    found->second->removeFile();
    if (found->second->hasLeft())
        m_dropped.push_back(std::move(found->second));
    m_journals.erase(found);
}

void CJournalSet::dropAll()
{
    m_journals.clear();
    m_dropped.clear();
}

void CJournalSet::takeHistory(const QUuid &processor, const CStepTrail &kept)
{
    CJournal *journal = find(processor);
    if (!journal || journal->state().trail().isBegun())
        return;
    CStepTrail &own = journal->state().trail();
    const bool other = own.hasOther();
    own = kept;
    own.setOther(other);
    own.limit(mostHistory());
    own.renumber(journal->state().project().layout.ports);
    if (journal->isWritten() && !own.isEmpty())
        journal->beginNew(); // the file began without them
}

SEditHistory CJournalSet::history(const QUuid &processor) const
{
    const CJournal *journal = find(processor);
    return journal ? journal->state().history() : SEditHistory();
}

bool CJournalSet::isLargeToTend() const
{
    return std::any_of(m_journals.begin(), m_journals.end(), [](const auto &entry) {
        const CJournal &journal = *entry.second;
        return (journal.isBroken() || journal.isOutgrown()) &&
               journal.state().project().layout.cabinetCount() > LargeStep;
    });
}

void CJournalSet::tend()
{
    for (const auto &entry : m_journals) {
        CJournal &journal = *entry.second;
        if (!journal.isInUse())
            removeLeft(journal);
        else if (journal.isConfirmed())
            journal.removeLeft(); // holds the same, so that it is not offered
        if (journal.isBroken()) {
            if (m_folder.make())
                journal.beginNew(); // the disk must confirm it
        } else if (journal.isOutgrown()) {
            journal.beginNew();
            tellAbout(journal);
        }
    }
    for (const auto &journal : m_dropped)
        removeLeft(*journal);
    const auto isGone = [](const auto &journal) { return !journal->hasLeft(); };
    m_dropped.erase(std::remove_if(m_dropped.begin(), m_dropped.end(), isGone), m_dropped.end());
}

/// Once for all processors.
void CJournalSet::removeLeft(CJournal &journal)
{
    journal.removeLeft();
    if (!journal.hasLeft() || std::exchange(m_toldLeft, true))
        return;
    m_listeners.tell(tr("Edits of %1 that are saved or discarded cannot be removed: they are offered again.")
                         .arg(journal.owner().name));
}

bool CJournalSet::hasUnsynced() const
{
    return std::any_of(m_journals.begin(), m_journals.end(),
                       [](const auto &journal) { return journal.second->hasUnsynced(); });
}

std::vector<CJournalSet::SUnsynced> CJournalSet::takeUnsynced()
{
    std::vector<SUnsynced> unsynced;
    for (const auto &entry : m_journals) {
        if (entry.second->hasUnsynced())
            unsynced.push_back({entry.first, entry.second->takeUnsynced(), {}});
    }
    return unsynced;
}

void CJournalSet::confirm(const std::vector<SUnsynced> &synced)
{
    for (const SUnsynced &entry : synced) {
        CJournal *journal = find(entry.processor);
        if (!journal)
            continue;
        if (!entry.problem.isEmpty())
            journal->fail(entry.problem);
        else if (!entry.files.isEmpty())
            journal->confirm(entry.files.last());
        tellAbout(*journal);
    }
}
