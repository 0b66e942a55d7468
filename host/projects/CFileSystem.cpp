// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CFileSystem.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/file.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace {

std::atomic<CFileSystem *> replacedSystem{nullptr};

template <typename Call>
auto uninterrupted(const Call &call) -> decltype(call())
{
    decltype(call()) result;
    do
        result = call();
    while (result < 0 && errno == EINTR);
    return result;
}

} // namespace

int CFileSystem::open(const QByteArray &path, int flags, mode_t mode)
{
    return uninterrupted([&] { return ::open(path.constData(), flags | O_CLOEXEC, mode); });
}

qint64 CFileSystem::read(int file, char *data, qint64 size, qint64 place)
{
    return uninterrupted([&] { return qint64(::pread(file, data, size_t(size), off_t(place))); });
}

qint64 CFileSystem::write(int file, const char *data, qint64 size)
{
    return uninterrupted([&] { return qint64(::write(file, data, size_t(size))); });
}

int CFileSystem::sync(int file)
{
    return uninterrupted([&] { return ::fsync(file); });
}

int CFileSystem::lock(int file, int operation)
{
    return uninterrupted([&] { return ::flock(file, operation); });
}

int CFileSystem::close(int file)
{
    return ::close(file); // only once: after a signal the descriptor may already be reused
}

int CFileSystem::rename(const QByteArray &from, const QByteArray &to)
{
    return ::rename(from.constData(), to.constData());
}

int CFileSystem::link(const QByteArray &from, const QByteArray &to)
{
    return ::link(from.constData(), to.constData());
}

int CFileSystem::unlink(const QByteArray &path)
{
    return ::unlink(path.constData());
}

/// Kinds that are not named here count as remote, which costs time only.
bool CFileSystem::isLocal(const QByteArray &folder)
{
    struct statfs status = {};
    if (uninterrupted([&] { return ::statfs(folder.constData(), &status); }) < 0)
        return false;
    switch (static_cast<unsigned long>(status.f_type)) {
    case EXT4_SUPER_MAGIC:
    case XFS_SUPER_MAGIC:
    case BTRFS_SUPER_MAGIC:
    case F2FS_SUPER_MAGIC:
    case TMPFS_MAGIC:
    case OVERLAYFS_SUPER_MAGIC:
        return true;
    }
    return false;
}

CFileSystem &CFileSystem::current()
{
    static CFileSystem system;
    CFileSystem *replaced = replacedSystem.load();
    return replaced ? *replaced : system;
}

void CFileSystem::setCurrent(CFileSystem *other)
{
    replacedSystem.store(other);
}
