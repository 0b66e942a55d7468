// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/SLockHolder.h"

/// Tells others that a file is open here: a file ".NAME.lock" beside it. It does not prevent
/// others from writing: a lock that was left behind leads to a question, and no work is lost. One thread
/// at a time.
class CFileLock final
{
public:
    enum Outcome {
        Taken,
        Held,      ///< by another window or program, see holder()
        Impossible ///< there can be no lock: a folder that is read-only, a full disk
    };
    /// What becomes of a lock that somebody else holds.
    enum Others {
        Respect, ///< it stays, unless its process was one of this machine and has ended
        Replace
    };

    /// The lock of @p file, which need not exist; if it is a link, of what it leads to. Not taken yet.
    explicit CFileLock(const QString &file);
    ~CFileLock(); ///< releases it
    Q_DISABLE_COPY(CFileLock)

    /// Takes the lock; does nothing if it is already taken and has not been replaced.
    Outcome take(Others others = Respect);
    /// Whether another window or program holds it, see holder(). For who needs no lock: writes nothing.
    bool isHeld();
    /// Gives the lock up. If somebody has replaced it, theirs stays.
    void release();
    /// Removes the lock of a process of this machine that has ended, unless another process is writing in the
    /// folder.
    void removeDead();
    const SLockHolder &holder() const { return m_holder; } ///< whoever held it when it was not taken
    QString lockFile() const;

private:
    Outcome tryToTake(Others others);
    bool create() const;
    bool createWithoutLinks() const;
    bool replace() const;
    bool writeNew(const QByteArray &path) const;
    bool read(SLockHolder &holder) const;
    bool isOurs() const;

    const QByteArray m_path;
    SLockHolder m_self;
    SLockHolder m_holder;
    bool m_taken = false;
};
