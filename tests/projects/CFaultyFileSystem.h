// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CFileSystem.h"

#include <QByteArrayList>

#include <atomic>
#include <mutex>

/// Replaces the operating system during its lifetime: records the calls, and makes one, or all from one on,
/// fail. A failing call has no effect, except close(). Any thread.
class CFaultyFileSystem final : public CFileSystem
{
public:
    /// Which calls fail.
    struct SFault
    {
        QByteArray call;     ///< e.g. "open"; "any": all count; empty: none
        int number = 1;      ///< number of the call of that name, from 1
        int reason = 0;      ///< the value of errno
        bool onward = false; ///< all later ones fail, too
        int second = 0;      ///< number of another one; 0: none
    };

    CFaultyFileSystem(); ///< nothing fails
    explicit CFaultyFileSystem(SFault fault);
    ~CFaultyFileSystem() override;

    bool hasFailed() const { return m_failed; }
    const QByteArrayList &calls() const { return m_calls; } ///< not while other threads make some

    int open(const QByteArray &path, int flags, mode_t mode) override;
    qint64 read(int file, char *data, qint64 size, qint64 place) override;
    qint64 write(int file, const char *data, qint64 size) override;
    int sync(int file) override;
    int lock(int file, int operation) override;
    int close(int file) override;
    int rename(const QByteArray &from, const QByteArray &to) override;
    int link(const QByteArray &from, const QByteArray &to) override;
    int unlink(const QByteArray &path) override;

private:
    bool fails(const char *call);

    const SFault m_fault;
    std::mutex m_mutex; // guards the calls
    QByteArrayList m_calls;
    std::atomic<bool> m_failed{false};
};
