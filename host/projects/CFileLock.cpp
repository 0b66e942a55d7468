// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CFileLock.h"

#include "host/projects/CFileHandle.h"
#include "host/projects/CSafeFile.h"
#include "host/projects/CStrayFiles.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace {

constexpr int LongestLock = 4096; // bytes
constexpr int Tries = 3;          // while others take and release
constexpr std::chrono::milliseconds LockPatience(1000);

QByteArray pathFor(const QString &file)
{
    const QFileInfo target(CSafeFile::withoutLinks(file));
    return QFile::encodeName(target.absolutePath() + QStringLiteral("/.%1.lock").arg(target.fileName()));
}

} // namespace

CFileLock::CFileLock(const QString &file)
    : m_path(pathFor(file))
    , m_self(SLockHolder::ofThisProcess())
{
}

CFileLock::~CFileLock()
{
    release();
}

QString CFileLock::lockFile() const
{
    return QFile::decodeName(m_path);
}

CFileLock::Outcome CFileLock::take(Others others)
{
    // Without this lock, which some file systems do not have, two windows may both take over a dead one's.
    CFileHandle folder(CStrayFiles::folderOf(m_path), O_RDONLY | O_DIRECTORY);
    if (!folder.isOpen())
        return Impossible;
    folder.lockWithin(LockPatience);
    if (m_taken && isOurs())
        return Taken;
    const Outcome outcome = tryToTake(others);
    m_taken = outcome == Taken;
    return outcome;
}

CFileLock::Outcome CFileLock::tryToTake(Others others)
{
    for (int i = 0; i < Tries; ++i) {
        if (create())
            return Taken;
        if (errno != EEXIST)
            return Impossible;
        m_holder = {};
        if (!read(m_holder) && errno == ENOENT)
            continue;
        if (others == Respect && !m_holder.isDead())
            return Held;
        return replace() && isOurs() ? Taken : Impossible;
    }
    return Impossible;
}

bool CFileLock::isHeld()
{
    m_holder = {};
    struct stat status = {};
    const bool isThere = read(m_holder) || lstat(m_path.constData(), &status) == 0; // also if it says nothing
    return isThere && !m_holder.isDead();
}

void CFileLock::release()
{
    if (!m_taken)
        return;
    m_taken = false;
    CFileHandle folder(CStrayFiles::folderOf(m_path), O_RDONLY | O_DIRECTORY);
    if (folder.isOpen())
        folder.lockWithin(LockPatience);
    if (isOurs())
        CFileSystem::current().unlink(m_path);
}

void CFileLock::removeDead()
{
    CFileHandle folder(CStrayFiles::folderOf(m_path), O_RDONLY | O_DIRECTORY);
    SLockHolder holder;
    if (folder.isOpen() && folder.lock(LOCK_EX | LOCK_NB) && read(holder) && holder.isDead())
        CFileSystem::current().unlink(m_path);
}

/// Makes the lock, whole from the first moment on. Fails with EEXIST if there is one.
bool CFileLock::create() const
{
    const QByteArray path = CStrayFiles::newFile(m_path);
    if (!writeNew(path))
        return false;
    const bool made = CFileSystem::current().link(path, m_path) == 0;
    const int reason = errno;
    CFileSystem::current().unlink(path);
    errno = reason;
    return made || (reason != EEXIST && createWithoutLinks());
}

bool CFileLock::createWithoutLinks() const
{
    CFileHandle lock(m_path, O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (!lock.isOpen())
        return false;
    if (lock.write(m_self.encode()) && lock.close())
        return true;
    const int reason = errno;
    CFileSystem::current().unlink(m_path);
    errno = reason;
    return false;
}

bool CFileLock::replace() const
{
    const QByteArray path = CStrayFiles::newFile(m_path);
    if (!writeNew(path))
        return false;
    if (CFileSystem::current().rename(path, m_path) == 0)
        return true;
    CFileSystem::current().unlink(path);
    return false;
}

bool CFileLock::writeNew(const QByteArray &path) const
{
    CFileHandle file(path, O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (!file.isOpen()) {
        if (errno == EEXIST) // a stray, not the lock
            errno = EIO;
        return false;
    }
    if (file.write(m_self.encode()) && file.close())
        return true;
    const int reason = errno;
    CFileSystem::current().unlink(path);
    errno = reason;
    return false;
}

/// False: it cannot be read, see errno. The holder of a lock that makes no sense has no session.
bool CFileLock::read(SLockHolder &holder) const
{
    const CFileHandle lock(m_path, O_RDONLY | O_NONBLOCK);
    if (!lock.isOpen())
        return false;
    QByteArray content(LongestLock, 0);
    const qint64 found = lock.read(content, 0);
    if (found < 0)
        return false;
    holder = SLockHolder::decode(content.left(int(found)));
    return true;
}

bool CFileLock::isOurs() const
{
    SLockHolder now;
    return read(now) && now.session == m_self.session;
}
