// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>

#include <sys/types.h>

/// The calls to the operating system by which our files are read and written. Each does one call (again where
/// a signal interrupted it) and gives its result: below 0 it failed, and errno tells why. Any thread.
class CFileSystem
{
public:
    virtual ~CFileSystem() = default;

    virtual int open(const QByteArray &path, int flags, mode_t mode);
    /// Reads from that place of the file, without moving its position.
    virtual qint64 read(int file, char *data, qint64 size, qint64 place);
    virtual qint64 write(int file, const char *data, qint64 size);
    virtual int sync(int file);
    virtual int lock(int file, int operation);
    virtual int close(int file); ///< the file is closed also when it fails
    virtual int rename(const QByteArray &from, const QByteArray &to);
    virtual int link(const QByteArray &from, const QByteArray &to);
    virtual int unlink(const QByteArray &path);

    /// What all files go through.
    static CFileSystem &current();
    /// Puts @p other in its place, which must outlive all that use it; null: the operating system again. For
    /// tests that let calls fail.
    static void setCurrent(CFileSystem *other);
};
