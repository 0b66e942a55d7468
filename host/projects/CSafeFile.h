// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/common/CResult.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <new>

/// Reads and writes whole files so that a failure never costs what was there: the file is the old or the new
/// one, whole, also when the process is killed or the disk is full. Error texts name the file. Any thread.
class CSafeFile final
{
    Q_DECLARE_TR_FUNCTIONS(CSafeFile)

public:
    enum Previous {
        DropPrevious, ///< what was in the file is gone
        KeepPrevious  ///< what was in the file is kept as "file~", in place of the generation before it
    };
    /// What became of reading a file.
    enum Found {
        Content,
        Nothing,   ///< there is no such file
        Unreadable ///< there is one, but its content is not known
    };

    /// The content of a regular file of at most @p limit bytes. @p found, which may be null, tells why it
    /// failed.
    static CResult<QByteArray> read(const QString &file, qint64 limit, Found *found = nullptr);
    /// Done only when the disk has confirmed that the file holds @p content. A file that could not be kept as
    /// "file~" is replaced all the same. Waits up to five seconds while another writes in the same folder.
    static CStatus write(const QString &file, const QByteArray &content, Previous previous);
    /// Makes a folder and those above it, confirmed by the disk.
    static CStatus makeFolder(const QString &folder);
    /// Gives a file another name in its folder, confirmed by the disk, unless that name is taken.
    static CStatus putAside(const QString &file, const QString &name);
    /// Removes what killed processes left beside @p file, unless somebody writes there now.
    static void cleanAround(const QString &file);

    /// Runs @p work, which reads or writes @p file and gives a CResult or CStatus; a lack of memory in it is
    /// a failure like others.
    template <typename Work>
    static auto withMemory(const QString &file, const Work &work) -> decltype(work());

    /// Begin of all error texts: the file's path, quoted.
    static QString quoted(const QString &file);
    /// Why the last call to the system failed.
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
