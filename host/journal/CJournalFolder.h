// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/journal/CJournal.h"
#include "host/journal/SJournal.h"
#include "platform/common/CResult.h"

#include <QList>
#include <QString>

#include <utility>
#include <vector>

/// A journal that no running process writes: what the next start offers.
struct SStrayJournal
{
    Q_DECLARE_TR_FUNCTIONS(SStrayJournal)

public:
    QString path;
    SJournal journal;
    QString line() const;  ///< what it is, when it was edited last and how much, in one line
    CJournal::Handle lock; ///< keeps other processes away while this exists
    /// Files that this one goes on with, and their locks: they are removed with it.
    std::vector<std::pair<QByteArray, CJournal::Handle>> followed;
};

/// The folder of the journals and kept histories, which nobody but the user may read. Any thread.
class CJournalFolder final
{
    Q_DECLARE_TR_FUNCTIONS(CJournalFolder)

public:
    explicit CJournalFolder(QString folder)
        : m_folder(std::move(folder))
    {
    }

    const QString &path() const { return m_folder; }
    CStatus make() const;
    /// The journals that no process has open, the latest edit first; of several of the same story only the
    /// last one that can be restored, and later ones. Removes what killed processes left half written. Those
    /// that cannot be restored or read are there, too.
    QList<SStrayJournal> strays() const;
    /// Removes its file and those that it followed, unless they are no longer those that are locked. Fails if
    /// the disk refuses; then it is still offered.
    [[nodiscard]] static CStatus remove(const SStrayJournal &stray);

    /// Keeps the history of a project that was saved, unless the file is another one since; @p owner names
    /// the file. Returns why it failed; empty: it did not.
    QString keepHistory(SJournalOwner owner, const CJournalState &state) const;
    [[nodiscard]] CStatus dropHistory(const QString &projectFile) const;
    [[nodiscard]] CStatus dropHistories() const; ///< of all projects
    enum class Kept { None, Same, Changed, Damaged, Unread };
    /// Finds the history that belongs to a project file. Changed: the file is no longer the one that was
    /// saved. Unread: the history has the reason, as text for the user; it may be read another time.
    Kept findHistory(const QString &projectFile, SJournal &history) const;

    static QString defaultPath();

private:
    QString historyFile(const QString &projectFile) const;
    QStringList files(const QString &suffix) const;

    const QString m_folder;
};
