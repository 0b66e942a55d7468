// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/SFileWrite.h"
#include "platform/common/CResult.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <new>

/// Reads and writes whole files so that a failure never loses the old content: the file always has the
/// complete old or new content, even if the process is killed or the disk is full. Error texts name the file.
/// Any thread.
class CSafeFile final
{
    Q_DECLARE_TR_FUNCTIONS(CSafeFile)

public:
    enum Previous {
        DropPrevious, ///< the old content is lost
        KeepPrevious  ///< the old content is kept as "file~", older generations as "file~2" and so on
    };
    static constexpr int MostVersions = 9;
    /// The result of reading a file.
    enum Found {
        Content,
        Nothing,   ///< there is no such file
        Unreadable ///< there is one, but it cannot be read
    };

    /// Reads a regular file of at most @p limit bytes. @p found, which may be null, says how it failed.
    static CResult<QByteArray> read(const QString &file, qint64 limit, Found *found = nullptr);
    /// Succeeds only when the disk has confirmed that the file holds @p content. The file is replaced even if
    /// the old one could not be kept as "file~". Waits up to five seconds while another process writes in the
    /// same folder. @p how, which may be null, can refuse to replace a file that was changed meanwhile.
    static CStatus write(const QString &file, const QByteArray &content, Previous previous,
                         SFileWrite *how = nullptr);
    /// Sets how many generations KeepPrevious keeps from now on: 0 to MostVersions, at first 1. Those that
    /// are beyond a lower number stay where they are.
    static void setVersions(int count);
    static int versions();
    using Note = void (*)(const QString &file, Previous previous);
    /// Sets what is told of each file before it is written, on the writing thread, so that what a killed
    /// process leaves can be found; null: nothing.
    static void setNote(Note note);
    /// Creates a folder and its parents, confirmed by the disk.
    static CStatus makeFolder(const QString &folder);
    /// Renames a file within its folder, confirmed by the disk; fails if the name is taken.
    static CStatus putAside(const QString &file, const QString &name);
    /// Removes what killed processes left beside @p file, unless a process is writing there now or the folder
    /// cannot be opened; then returns false.
    static bool cleanAround(const QString &file);
    /// What @p file leads to if it is a link, otherwise @p file itself.
    static QString withoutLinks(const QString &file);

    /// Runs @p work, which reads or writes @p file and returns a CResult or CStatus. Running out of memory in
    /// it becomes a failure.
    template <typename Work>
    static auto withMemory(const QString &file, const Work &work) -> decltype(work());

    /// The beginning of all error texts: the file's path, quoted.
    static QString quoted(const QString &file);
    /// Why the last system call failed.
    static QString systemReason();

private:
    static QString memoryText(const QString &file);
};

template <typename Work>
auto CSafeFile::withMemory(const QString &file, const Work &work) -> decltype(work())
{
    try {
        return work();
    } catch (const std::bad_alloc &) {
        return decltype(work())::failure(memoryText(file));
    }
}
