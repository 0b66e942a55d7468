// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CFileHandle.h"

#include <QByteArray>
#include <QString>

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>

/// Writes the lines of the log, on a thread of its own, because a write to a disk or another machine that
/// does not answer may never return. Any thread.
class CLogWriter final
{
public:
    /// The files of @p folder are named by fileName(); a full one becomes older, and the one older than
    /// @p olderFiles is removed.
    CLogWriter(const QString &folder, qint64 maximumBytes, int olderFiles);
    ~CLogWriter(); ///< writes what waits
    Q_DISABLE_COPY(CLogWriter)

    static QString fileName(const QString &folder, int age);
    /// A line of the log: @p message with the present time.
    static QByteArray stamped(const QByteArray &message);
    /// The line is in the file afterwards, unless that takes too long: then it is written later, or is lost
    /// where too many wait, and the log says how many were.
    void write(const QByteArray &line);
    /// As the destructor, but waits for a limited time, and only while lines are being written: the rest is
    /// left to the writer itself until the process ends.
    static void end(std::unique_ptr<CLogWriter> writer);

private:
    void open();
    void run();
    void append(const QByteArray &line);
    void putAside();
    void waitUntilWritten(std::unique_lock<std::mutex> &lock);
    bool waitWhileWriting(std::unique_lock<std::mutex> &lock);
    void tellLost();

    const QString m_folder;
    const qint64 m_maximumBytes;
    const int m_olderFiles;
    std::unique_ptr<CFileHandle> m_file; // the thread's
    qint64 m_size = 0;                   // the thread's

    std::mutex m_mutex; // guards what follows
    std::condition_variable m_wake;
    std::condition_variable m_written;
    std::deque<QByteArray> m_lines; // the first one is being written
    quint64 m_count = 0;            // of the lines that were written
    int m_lost = 0;                 // lines, since too many waited
    bool m_hangs = false;           // somebody has waited in vain
    bool m_ended = false;
    std::thread m_thread; // last
};
