// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CFileSystem.h"

#include <QByteArray>

#include <chrono>

/// An open file or folder, closed by the destructor. Failures leave the reason in errno.
class CFileHandle final
{
public:
    CFileHandle(const QByteArray &path, int flags, mode_t mode = 0);
    ~CFileHandle();
    Q_DISABLE_COPY(CFileHandle)

    bool isOpen() const { return m_file >= 0; }
    int descriptor() const { return m_file; }

    bool write(const QByteArray &content); ///< all of it, at the file's position
    /// Fills @p block from position @p place on. Returns the number of bytes, which is less at the end of the
    /// file, or -1.
    qint64 read(QByteArray &block, qint64 place) const;
    /// Whether the file holds exactly @p content. False with errno 0: it holds something else.
    bool holds(const QByteArray &content) const;
    /// Returns true if everything written is on the disk.
    bool sync();
    /// The same for the names in a folder; some file systems neither support nor need this request.
    bool syncNames();
    /// Locks or unlocks the file, see flock(2).
    bool lock(int operation);
    /// Locks the file alone, waiting for others up to a limit. False: without lock, also where there are
    /// none.
    bool lockWithin(std::chrono::milliseconds limit);
    bool close();

private:
    CFileSystem &m_system;
    int m_file;
};
