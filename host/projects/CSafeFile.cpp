// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CSafeFile.h"

#include "host/projects/CFileHandle.h"
#include "host/projects/CSafeWrite.h"
#include "host/projects/CStrayFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::atomic<CSafeFile::Note> writeNote{nullptr};
std::atomic<int> keptVersions{1};

/// The content of an open file, or why there is none.
QString readInto(QByteArray &content, const CFileHandle &file, qint64 limit)
{
    struct stat status = {};
    if (fstat(file.descriptor(), &status) != 0)
        return CSafeFile::systemReason();
    if (S_ISDIR(status.st_mode))
        return CSafeFile::tr("it is a folder");
    if (!S_ISREG(status.st_mode))
        return CSafeFile::tr("it is not a regular file");
    if (status.st_size > limit)
        return CSafeFile::tr("it is larger than %1 bytes").arg(limit);
    content.resize(int(status.st_size) + 1); // one more, to detect that the file grew
    const qint64 found = file.read(content, 0);
    if (found < 0)
        return CSafeFile::systemReason();
    if (found != status.st_size)
        return CSafeFile::tr("it changed while it was read");
    content.chop(1);
    return {};
}

/// Why @p target cannot be replaced; empty if it can.
QString replaceProblem(const QByteArray &target)
{
    struct stat status = {};
    if (stat(target.constData(), &status) != 0)
        return errno == ENOENT ? QString() : CSafeFile::systemReason();
    if (S_ISDIR(status.st_mode))
        return CSafeFile::tr("it is a folder");
    if (!S_ISREG(status.st_mode))
        return CSafeFile::tr("it is not a regular file");
    // The folder's permissions would suffice, but a read-only file is read-only on purpose.
    return faccessat(AT_FDCWD, target.constData(), W_OK, AT_EACCESS) == 0 ? QString()
                                                                          : CSafeFile::systemReason();
}

CStatus confirmFolder(const QString &folder)
{
    CFileHandle handle(QFile::encodeName(folder), O_RDONLY | O_DIRECTORY);
    if (handle.isOpen() && handle.syncNames())
        return CStatus::done();
    return CStatus::failure(CSafeFile::tr("The disk has not confirmed a change of the folder %1: %2.")
                                .arg(CSafeFile::quoted(folder), CSafeFile::systemReason()));
}

} // namespace

QString CSafeFile::quoted(const QString &file)
{
    return QStringLiteral("\"%1\"").arg(file);
}

QString CSafeFile::systemReason()
{
    return qt_error_string(errno);
}

QString CSafeFile::memoryText(const QString &file)
{
    return tr("%1 needs more memory than there is.").arg(quoted(file));
}

CResult<QByteArray> CSafeFile::read(const QString &file, qint64 limit, Found *found)
{
    const auto failure = [&](Found how, const QString &why) {
        if (found)
            *found = how;
        return CResult<QByteArray>::failure(tr("%1 cannot be read: %2.").arg(quoted(file), why));
    };
    const CFileHandle handle(QFile::encodeName(file), O_RDONLY | O_NONBLOCK | O_NOCTTY);
    if (!handle.isOpen())
        return errno == ENOENT ? failure(Nothing, tr("there is no such file"))
                               : failure(Unreadable, systemReason());
    QByteArray content;
    const QString problem = readInto(content, handle, limit);
    if (!problem.isEmpty())
        return failure(Unreadable, problem);
    if (found)
        *found = Content;
    return content;
}

QString CSafeFile::withoutLinks(const QString &file)
{
    const QFileInfo info(file);
    if (info.exists())
        return info.canonicalFilePath();
    return info.isSymLink() ? info.symLinkTarget() : file;
}

CStatus CSafeFile::write(const QString &file, const QByteArray &content, Previous previous, SFileWrite *how)
{
    const QString target = withoutLinks(file);
    const QString problem = replaceProblem(QFile::encodeName(target));
    if (!problem.isEmpty())
        return CStatus::failure(tr("%1 cannot be written: %2.").arg(quoted(file), problem));
    return withMemory(file, [&] {
        if (const Note note = writeNote)
            note(target, previous);
        CSafeWrite writing(target, content);
        SFileWrite unasked;
        return writing.run(previous == KeepPrevious && versions() > 0, how ? *how : unasked);
    });
}

void CSafeFile::setVersions(int count)
{
    keptVersions = qBound(0, count, MostVersions);
}

int CSafeFile::versions()
{
    return keptVersions;
}

void CSafeFile::setNote(Note note)
{
    writeNote = note;
}

CStatus CSafeFile::makeFolder(const QString &folder)
{
    const QFileInfo info(folder);
    if (info.isDir())
        return CStatus::done();
    const QString parent = info.absolutePath();
    const CStatus above = makeFolder(parent);
    if (!above)
        return above;
    if (mkdir(QFile::encodeName(info.absoluteFilePath()).constData(), 0777) != 0 && errno != EEXIST)
        return CStatus::failure(tr("The folder %1 cannot be made: %2.").arg(quoted(folder), systemReason()));
    return confirmFolder(parent);
}

CStatus CSafeFile::putAside(const QString &file, const QString &name)
{
    const QByteArray from = QFile::encodeName(file);
    const QByteArray to = QFile::encodeName(name);
    const auto failure = [&] {
        return CStatus::failure(
            tr("%1 cannot be renamed to %2: %3.").arg(quoted(file), quoted(name), systemReason()));
    };
    struct stat taken = {};
    if (lstat(to.constData(), &taken) == 0)
        errno = EEXIST;
    if (errno == EEXIST || CFileSystem::current().rename(from, to) < 0)
        return failure();
    CStatus confirmed = confirmFolder(QFileInfo(file).absolutePath());
    return confirmed ? confirmed
                     : CStatus::failure(
                           tr("%1 was renamed to %2. %3").arg(quoted(file), quoted(name), confirmed.error()));
}

bool CSafeFile::cleanAround(const QString &file)
{
    return CStrayFiles::cleanUnlessUsed(QFile::encodeName(withoutLinks(file)));
}
