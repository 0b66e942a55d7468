// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CStrayFiles.h"

#include "host/projects/CFileHandle.h"
#include "host/projects/CSafeFile.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr char newPrefix[] = ".orvo-";
constexpr char newSuffix[] = ".new";
constexpr qint64 ComparedBytes = 64 * 1024; // at a time

bool isRegularFile(const QByteArray &path)
{
    struct stat status = {};
    return lstat(path.constData(), &status) == 0 && S_ISREG(status.st_mode);
}

bool isAbsent(const QByteArray &path)
{
    struct stat status = {};
    return lstat(path.constData(), &status) != 0 && errno == ENOENT;
}

/// Whether two files have the same content; empty if one of them cannot be read.
std::optional<bool> sameContent(const QByteArray &a, const QByteArray &b)
{
    const CFileHandle first(a, O_RDONLY);
    const CFileHandle second(b, O_RDONLY);
    QByteArray blocks[2] = {QByteArray(int(ComparedBytes), 0), QByteArray(int(ComparedBytes), 0)};
    for (qint64 place = 0; first.isOpen() && second.isOpen(); place += ComparedBytes) {
        const qint64 found = first.read(blocks[0], place);
        const qint64 other = second.read(blocks[1], place);
        if (found < 0 || other < 0)
            return {};
        if (found != other || std::memcmp(blocks[0].constData(), blocks[1].constData(), size_t(found)) != 0)
            return false;
        if (found < ComparedBytes)
            return true;
    }
    return {};
}

} // namespace

QByteArray CStrayFiles::folderOf(const QByteArray &file)
{
    const int slash = file.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : file.left(slash);
}

QByteArray CStrayFiles::previous(const QByteArray &file, int age)
{
    return file + '~' + (age > 1 ? QByteArray::number(age) : QByteArray());
}

QByteArray CStrayFiles::newFile(const QByteArray &file)
{
    static std::atomic<int> count{0};
    return folderOf(file) + '/' + newPrefix + QByteArray::number(getpid()) + '-' +
           QByteArray::number(++count) + newSuffix;
}

void CStrayFiles::clean(const QByteArray &file)
{
    removeNewFiles(folderOf(file));
    settlePending(file);
}

bool CStrayFiles::cleanUnlessUsed(const QByteArray &file)
{
    CFileHandle folder(folderOf(file), O_RDONLY | O_DIRECTORY);
    if (!folder.isOpen() || !folder.lock(LOCK_EX | LOCK_NB))
        return false;
    clean(file);
    return true;
}

void CStrayFiles::removeNewFiles(const QByteArray &folder)
{
    DIR *entries = opendir(folder.constData());
    if (!entries)
        return;
    while (const dirent *entry = readdir(entries)) {
        const QByteArray name = QByteArray::fromRawData(entry->d_name, int(std::strlen(entry->d_name)));
        const QByteArray path = folder + '/' + name;
        if (name.startsWith(newPrefix) && name.endsWith(newSuffix) && isRegularFile(path))
            CFileSystem::current().unlink(path);
    }
    closedir(entries);
}

void CStrayFiles::settlePending(const QByteArray &file)
{
    const QByteArray kept = pending(file);
    if (!isRegularFile(kept))
        return;
    const std::optional<bool> same = isAbsent(file) ? false : sameContent(kept, file);
    if (!same)
        return; // to be cleaned up next time
    if (*same)
        CFileSystem::current().unlink(kept);
    else
        keepPending(file);
}

void CStrayFiles::keepPending(const QByteArray &file)
{
    CFileSystem &system = CFileSystem::current();
    const int most = std::max(1, CSafeFile::versions());
    int free = 1; // a gap, such as a killed process leaves, takes what would otherwise grow older
    while (free < most && !isAbsent(previous(file, free)))
        ++free;
    for (; free > 1; --free) {
        if (system.rename(previous(file, free - 1), previous(file, free)) < 0)
            return;
    }
    system.rename(pending(file), previous(file));
}
