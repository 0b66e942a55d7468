// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CSafeWrite.h"

#include "host/projects/CSafeFile.h"
#include "host/projects/CStrayFiles.h"

#include <QFile>

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

constexpr int TakenNames = 100;                   // of strays that could not be removed
constexpr std::chrono::seconds WriterPatience(5); // after which the file is written without the lock
constexpr qint64 LargestCopy = 128 * 1024 * 1024; // bytes, of a previous generation
constexpr mode_t PermissionBits = 07777;

} // namespace

CSafeWrite::CSafeWrite(const QString &file, const QByteArray &content)
    : m_file(file)
    , m_target(QFile::encodeName(file))
    , m_content(content)
{
}

CStatus CSafeWrite::failure(const QString &why) const
{
    return CStatus::failure(tr("%1 cannot be written: %2.").arg(CSafeFile::quoted(m_file), why));
}

CStatus CSafeWrite::run(bool keepPrevious, SFileWrite &how)
{
    CFileHandle folder(CStrayFiles::folderOf(m_target), O_RDONLY | O_DIRECTORY);
    if (!folder.isOpen())
        return failure(CSafeFile::systemReason());
    if (folder.lockWithin(WriterPatience))
        CStrayFiles::clean(m_target);
    const QString problem = writeNew();
    if (!problem.isEmpty())
        return failure(problem);
    const CStatus replaced = replace(keepPrevious, how);
    if (!replaced)
        return replaced;
    if (folder.syncNames())
        return CStatus::done();
    return CStatus::failure(tr("%1 holds the new content, but the disk has not confirmed it: %2.")
                                .arg(CSafeFile::quoted(m_file), CSafeFile::systemReason()));
}

/// Gives the new file the name of the old one. The lock of the folder is held, so that of two programs that
/// compare and replace at the same time one notices the other.
CStatus CSafeWrite::replace(bool keepPrevious, SFileWrite &how)
{
    CFileSystem &system = CFileSystem::current();
    const Kept previous = keepPrevious ? keepPending() : Kept::No;
    const bool kept = previous == Kept::Yes;
    const auto giveUp = [&] {
        system.unlink(m_new);
        if (kept)
            system.unlink(CStrayFiles::pending(m_target));
    };
    if (previous == Kept::NameTaken) {
        giveUp();
        return failure(tr("%1 is in the way, and what the file holds now would be lost")
                           .arg(CSafeFile::quoted(QFile::decodeName(CStrayFiles::pending(m_target)))));
    }
    if (how.expected) {
        const SFileStamp now = SFileStamp::of(m_file);
        how.changed = now.exists && now != *how.expected;
    }
    if (how.changed) {
        giveUp();
        return CStatus::failure(tr("%1 was not written: another window or program has changed it meanwhile.")
                                    .arg(CSafeFile::quoted(m_file)));
    }
    if (system.rename(m_new, m_target) < 0) {
        const QString why = CSafeFile::systemReason();
        giveUp();
        return failure(why);
    }
    how.replaced = true;
    how.stamp = SFileStamp::of(m_file);
    if (kept)
        CStrayFiles::keepPending(m_target); // if this fails, the next clean-up does it
    return CStatus::done();
}

/// Writes the new file; returns the reason if that fails.
QString CSafeWrite::writeNew()
{
    for (int i = 0; i < TakenNames; ++i) {
        m_new = CStrayFiles::newFile(m_target);
        CFileHandle file(m_new, O_RDWR | O_CREAT | O_EXCL, 0666);
        if (file.isOpen()) {
            const QString problem = fill(file);
            if (!problem.isEmpty())
                CFileSystem::current().unlink(m_new);
            return problem;
        }
        if (errno != EEXIST)
            break;
    }
    return CSafeFile::systemReason();
}

QString CSafeWrite::fill(CFileHandle &file) const
{
    struct stat replaced = {};
    if (stat(m_target.constData(), &replaced) == 0 &&
        fchmod(file.descriptor(), replaced.st_mode & PermissionBits) != 0)
        return CSafeFile::systemReason();
    if (!file.write(m_content) || !file.sync())
        return CSafeFile::systemReason();
    if (!file.holds(m_content))
        return errno == 0 ? tr("what was read back differs from what was written")
                          : CSafeFile::systemReason();
    return file.close() ? QString() : CSafeFile::systemReason();
}

/// Gives the previous content a second name. The name can be taken by another writer, or by what the clean-up
/// could not settle; then nobody would notice that a version is lost.
CSafeWrite::Kept CSafeWrite::keepPending() const
{
    const QByteArray pending = CStrayFiles::pending(m_target);
    if (CFileSystem::current().link(m_target, pending) == 0)
        return Kept::Yes;
    if (errno == EEXIST)
        return Kept::NameTaken;
    return errno == ENOENT ? Kept::No : copyPending(); // a file system without links
}

CSafeWrite::Kept CSafeWrite::copyPending() const
{
    const QByteArray pending = CStrayFiles::pending(m_target);
    const CResult<QByteArray> content = CSafeFile::read(m_file, LargestCopy);
    if (!content)
        return Kept::No;
    CFileHandle copy(pending, O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (copy.isOpen() && copy.write(content.value()) && copy.sync() && copy.close())
        return Kept::Yes;
    if (!copy.isOpen() && errno == EEXIST)
        return Kept::NameTaken;
    CFileSystem::current().unlink(pending);
    return Kept::No;
}
