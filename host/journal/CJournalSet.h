// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/journal/CJournalFolder.h"

#include <QCoreApplication>
#include <QMap>

#include <map>
#include <memory>
#include <vector>

class CJournalListeners;
class CKeptHistories;

/// The journals of all processors with edits, and what happens to them: what is written when, and told if it
/// cannot be. Any thread, one at a time. Processors that are not known are ignored.
class CJournalSet final
{
    Q_DECLARE_TR_FUNCTIONS(CJournalSet)

public:
    /// Whether what is noted differs from what is saved.
    enum class Work { Unsaved, Saved };
    /// Layouts with more cabinets take their time to be written.
    static constexpr int LargeStep = 10000;

    /// All must outlive this object.
    CJournalSet(const CJournalFolder &folder, CJournalListeners &listeners, CKeptHistories &histories);

    void setHistoryBytes(qint64 bytes); ///< how much memory the history of a processor may take
    void open(const SJournalOwner &owner, const SProcessorProject &state);
    void adopt(const SStrayJournal &stray, const SJournalOwner &owner, const CJournalState &state);
    void note(const SEditRecord &record);
    void note(const SJournalOwner &owner, const SProcessorProject &state, Work work);
    void noteLook(const SJournalOwner &owner, const SProcessorProject &state, Work work);
    void settle(const SJournalOwner &owner);
    void drop(const QUuid &processor);
    void dropAll(); ///< files stay
    /// Steps that were noted already do not follow those that were kept: then these are not taken.
    void takeHistory(const QUuid &processor, const CStepTrail &kept);
    SEditHistory history(const QUuid &processor) const;

    /// Whether the next change of a processor writes a whole layout that is large.
    bool isLargeToBegin(const QUuid &processor) const;
    bool isLargeToTend() const;
    /// Begins new files in place of those that are too large or could not be written, and removes what could
    /// not be removed.
    void tend();
    /// Memory has run out while something was noted. The files that are begun now are right again with the
    /// next state that is noted.
    void failAll();

    /// What the disk must confirm, of one processor.
    struct SUnsynced
    {
        QUuid processor;
        QVector<CJournal::Handle> files;
        QString problem; ///< empty: all were confirmed
    };
    bool hasUnsynced() const;
    std::vector<SUnsynced> takeUnsynced();
    void confirm(const std::vector<SUnsynced> &synced);

private:
    CJournal *find(const QUuid &processor) const;
    qint64 mostHistory() const;
    void take(CJournal &journal, const SJournalOwner &owner, const SProcessorProject &state, Work work);
    void takeOwner(CJournal &journal, const SJournalOwner &owner);
    void endIfSaved(CJournal &journal, const SProcessorProject &state, Work work);
    void change(CJournal &journal, int entry, const QByteArray &content);
    void tellAbout(const CJournal &journal);
    void removeLeft(CJournal &journal);

    const CJournalFolder &m_folder;
    CJournalListeners &m_listeners;
    CKeptHistories &m_histories;
    std::map<QUuid, std::unique_ptr<CJournal>> m_journals;
    std::vector<std::unique_ptr<CJournal>> m_dropped; // but their files could not be removed
    qint64 m_historyBytes;
    bool m_toldBroken = false;
    bool m_toldLeft = false;
};
