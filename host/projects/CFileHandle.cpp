// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CFileHandle.h"

#include <cerrno>
#include <cstring>
#include <sys/file.h>
#include <thread>
#include <utility>

namespace {

constexpr qint64 ComparedBytes = 64 * 1024; // at a time
constexpr std::chrono::milliseconds LockPause(20);

} // namespace

CFileHandle::CFileHandle(const QByteArray &path, int flags, mode_t mode)
    : m_system(CFileSystem::current())
    , m_file(m_system.open(path, flags, mode))
{
}

CFileHandle::~CFileHandle()
{
    const int before = errno;
    close();
    errno = before;
}

bool CFileHandle::write(const QByteArray &content)
{
    qint64 done = 0;
    while (done < content.size()) {
        const qint64 written = m_system.write(m_file, content.constData() + done, content.size() - done);
        if (written < 0)
            return false;
        done += written;
    }
    return true;
}

qint64 CFileHandle::read(QByteArray &block, qint64 place) const
{
    qint64 done = 0;
    while (done < block.size()) {
        const qint64 found = m_system.read(m_file, block.data() + done, block.size() - done, place + done);
        if (found <= 0)
            return found < 0 ? found : done;
        done += found;
    }
    return done;
}

bool CFileHandle::holds(const QByteArray &content) const
{
    QByteArray block(int(ComparedBytes), 0);
    qint64 place = 0;
    qint64 found = ComparedBytes;
    for (; found == ComparedBytes; place += found) {
        found = read(block, place);
        if (found < 0)
            return false;
        errno = 0;
        if (found > content.size() - place ||
            std::memcmp(block.constData(), content.constData() + place, size_t(found)) != 0)
            return false;
    }
    return place == content.size();
}

bool CFileHandle::sync()
{
    return m_system.sync(m_file) == 0;
}

bool CFileHandle::syncNames()
{
    return sync() || errno == EINVAL || errno == ENOTSUP;
}

bool CFileHandle::lock(int operation)
{
    return m_system.lock(m_file, operation) == 0;
}

bool CFileHandle::lockWithin(std::chrono::milliseconds limit)
{
    for (auto waited = LockPause; waited <= limit; waited += LockPause) {
        if (lock(LOCK_EX | LOCK_NB))
            return true;
        if (errno != EWOULDBLOCK)
            return false;
        std::this_thread::sleep_for(LockPause);
    }
    return false;
}

bool CFileHandle::close()
{
    return m_file < 0 || m_system.close(std::exchange(m_file, -1)) == 0;
}
