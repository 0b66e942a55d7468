// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/CProjectShelf.h"
#include "host/devices/services/CDeviceTable.h"
#include "host/journal/CJournals.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <memory>
#include <mutex>

class CDeviceServices;

/// Keeps what was not saved, of projects and devices, for the case that the program ends unexpectedly, and
/// restores it. Learns of edits from the editor, and of everything else from the table of devices. GUI
/// thread.
class CJournalKeeper final : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this object. With an empty @p folder nothing is kept.
    CJournalKeeper(CDeviceServices &services, CProjectShelf &projects, const QString &folder);
    ~CJournalKeeper() override;

    /// Whether the histories of saved projects are kept, and how much memory each history may take.
    void setHistory(bool kept, int megabytes);

    void note(const SEditRecord &record);
    SEditHistory history(const QUuid &processor);

    /// What earlier runs have left. Reads files in the background.
    QList<SStrayJournal> offers() const;
    /// Opens a project, or replaces the layout of a device without unsaved edits, as it was on the screen. A
    /// device that is not known yet gets its layout once it is detected; then the key is null. It is null,
    /// too, if somebody else has the project open and @p ask says not to open it; see
    /// CProjectShelf::restore().
    CResult<QUuid> restore(const SStrayJournal &stray, const CProjectShelf::AskHeld &ask = {});
    /// Opens a copy as a project without a file. What is offered stays as it is.
    CResult<QUuid> look(const SStrayJournal &stray);
    [[nodiscard]] static CStatus discard(const SStrayJournal &stray);

    /// Whether the edits of a processor would be offered after a crash.
    bool keeps(const QUuid &processor) const;

    /// Everything is saved, or the user does not want it: forgets all.
    void finish();
    /// Notes what has changed; nothing is noted afterwards.
    void stop();

Q_SIGNALS:
    void notifyTold(const QString &text); ///< something that the user should know
    /// history() was not to be had when it was asked for, and is now.
    void notifyHistoryFound(const QUuid &processor);

private:
    using Cause = CDeviceTable::Cause;

    /// What of a processor was noted last.
    struct SSeen
    {
        quint64 edition = 0;     ///< of the working layout
        CStepTrail::Ports saved; ///< shared, so that no others take their place in memory
    };

    void onChanged(const QUuid &processor, Cause cause); ///< any thread
    enum class Editor { Flush, Leave };
    void takeChanges(Editor editor = Editor::Flush);
    void take(const QUuid &processor, Cause cause, Editor editor);
    bool isUntouchedCopy(const SDevice &device, const SProcessorProject &state);
    void begin(const SDevice &device);
    void takeAll();
    bool restoreWaiting(const QUuid &processor);
    void adopt(const QUuid &processor, const SStrayJournal &stray);
    void takeRevision(const QUuid &processor, SStrayJournal &stray);
    void offerHistory(const QUuid &processor);
    static SJournalOwner ownerOf(const SDevice &device);

    CDeviceServices &m_services;
    CProjectShelf &m_projects;
    std::shared_ptr<CJournals> m_journals; // null: nothing is kept
    QHash<QUuid, SSeen> m_seen;
    QHash<QUuid, SStrayJournal> m_waiting;    // of devices that are not known yet
    QHash<QUuid, SProcessorProject> m_copies; // of what is offered anyway; until they are edited
    QSet<QUuid> m_later;                      // which were put up while a project was being restored
    bool m_restoring = false;
    bool m_looking = false; // a copy is being opened
    QTimer m_quiet;         // nothing was edited for a while

    std::mutex m_mutex; // guards what follows
    QHash<QUuid, Cause> m_changed;
};
