// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/journal/CJournalState.h"
#include "host/journal/SJournalOwner.h"
#include "host/projects/CFileHandle.h"

#include <QVector>

#include <memory>
#include <utility>
#include <vector>

/// The journal of one processor: what it holds, and the file that it is appended to, which no other journal
/// of the processor shares. While the file is open it is locked, so that other processes leave it alone. Any
/// thread, one at a time.
class CJournal final
{
public:
    using Handle = std::shared_ptr<CFileHandle>;

    /// @p followed is the file of an earlier run whose edits the state goes on with; empty: there is none.
    CJournal(const QString &folder, const SJournalOwner &owner, const CJournalState &state,
             const QString &followed = {});

    const SJournalOwner &owner() const { return m_owner; }
    void setOwner(const SJournalOwner &owner) { m_owner = owner; }
    CJournalState &state() { return m_state; }
    const CJournalState &state() const { return m_state; }

    /// Whether there is a file, so that nothing is lost.
    bool isWritten() const { return bool(m_file); }
    /// Whether there is a file, or should be.
    bool isInUse() const { return isWritten() || isBroken(); }
    /// Whether the disk holds everything in it, so that no other file is needed.
    bool isConfirmed() const { return m_file && !m_new && !m_unsynced && !m_broken; }
    /// Whether the last attempt to write failed; errors() tells why. What happens is still noted in memory.
    bool isBroken() const { return m_broken; }
    const QString &error() const { return m_error; }

    /// Writes the entry of a change that the state has taken over; begins the file if there is none.
    void append(int entry, const QByteArray &content);
    /// Whether the file has become much larger than what it is about.
    bool isOutgrown() const;
    /// Begins a new file beside the old one, if there is one; from then on both are written. It replaces the
    /// old one once the disk has confirmed it.
    bool beginNew();
    /// Begins a file where there is none. Does not wait for the disk.
    bool begin();
    /// The disk holds what was written to @p file.
    void confirm(const Handle &file);

    /// What must be confirmed by the disk, since the last call.
    QVector<Handle> takeUnsynced();
    bool hasUnsynced() const { return m_unsynced; }
    /// The disk did not confirm what was written.
    void fail(const QString &why);
    /// Removes the file. The state stays. What the disk does not let go is among what removeLeft() removes.
    void removeFile();
    /// Tries again to remove what is neither this journal's file nor needed any more.
    void removeLeft();
    bool hasLeft() const { return !m_superseded.empty(); }
    /// Another journal's file, kept locked by @p lock, is to be removed as soon as the disk holds this one's
    /// or it is needed no more.
    void supersede(const QByteArray &path, const Handle &lock);
    void supersede(const CJournal &other);
    /// Of two files of the same story, the one of the later turn holds all that the other one does.
    struct SStory
    {
        QString name;
        int turn = 0;
    };
    static SStory storyOf(const QString &file);
    /// Removes the file that @p lock keeps from others, if it still has that name. False: the disk refuses,
    /// see errno.
    static bool remove(const QByteArray &path, const Handle &lock);

    static constexpr qint64 LargestFile = 1024 * 1024 * 1024; ///< bytes that are read
    static QString suffix() { return QStringLiteral(".journal"); }

private:
    QByteArray newPath() const { return m_path + "~new"; }
    Handle create(const QByteArray &path);
    bool put(const Handle &file, const QByteArray &bytes);
    void finishNew();

    const QByteArray m_path;
    SJournalOwner m_owner;
    CJournalState m_state;
    Handle m_file;
    Handle m_new;          ///< is to replace the file
    quint64 m_last = 0;    ///< digest of the last entry in the file
    quint64 m_lastNew = 0; ///< the same, of the new file
    qint64 m_size = 0;     ///< bytes that were appended
    qint64 m_base = 0;     ///< bytes of the snapshot
    bool m_unsynced = false;
    bool m_broken = false;
    QString m_error;
    std::vector<std::pair<QByteArray, Handle>> m_superseded; // and their locks
};
