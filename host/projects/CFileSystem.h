// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>

#include <sys/types.h>

/// The system calls used to read and write our files. Each makes one call (repeated if a signal interrupts
/// it) and returns its result; if that is below 0, errno has the reason. Any thread.
class CFileSystem
{
public:
    virtual ~CFileSystem() = default;

    virtual int open(const QByteArray &path, int flags, mode_t mode);
    /// Reads from position @p place of the file, without moving its current position.
    virtual qint64 read(int file, char *data, qint64 size, qint64 place);
    virtual qint64 write(int file, const char *data, qint64 size);
    virtual int sync(int file);
    virtual int lock(int file, int operation);
    virtual int close(int file); ///< closes the file even if it fails
    virtual int rename(const QByteArray &from, const QByteArray &to);
    virtual int link(const QByteArray &from, const QByteArray &to);
    virtual int unlink(const QByteArray &path);
    /// Whether files in @p folder are on a disk of this machine, so that no call waits for another machine or
    /// program. False: not known.
    virtual bool isLocal(const QByteArray &folder);

    /// The instance used for all files.
    static CFileSystem &current();
    /// Replaces the instance with @p other, which must outlive all uses; null: the operating system again.
    /// For tests that make calls fail.
    static void setCurrent(CFileSystem *other);
};
