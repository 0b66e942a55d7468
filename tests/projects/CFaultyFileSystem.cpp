// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/projects/CFaultyFileSystem.h"

#include <cerrno>

CFaultyFileSystem::CFaultyFileSystem()
    : CFaultyFileSystem(SFault())
{
}

CFaultyFileSystem::CFaultyFileSystem(SFault fault)
    : m_fault(std::move(fault))
{
    setCurrent(this);
}

CFaultyFileSystem::~CFaultyFileSystem()
{
    setCurrent(nullptr);
}

bool CFaultyFileSystem::fails(const char *call)
{
    m_calls << call;
    const int number = m_calls.count(call);
    if (m_fault.call != call || number < m_fault.number || (number > m_fault.number && !m_fault.onward))
        return false;
    m_failed = true;
    errno = m_fault.reason;
    return true;
}

int CFaultyFileSystem::open(const QByteArray &path, int flags, mode_t mode)
{
    return fails("open") ? -1 : CFileSystem::open(path, flags, mode);
}

qint64 CFaultyFileSystem::read(int file, char *data, qint64 size, qint64 place)
{
    return fails("read") ? -1 : CFileSystem::read(file, data, size, place);
}

qint64 CFaultyFileSystem::write(int file, const char *data, qint64 size)
{
    return fails("write") ? -1 : CFileSystem::write(file, data, size);
}

int CFaultyFileSystem::sync(int)
{
    return fails("sync") ? -1 : 0; // no power will fail: the test need not wait for the disk
}

int CFaultyFileSystem::lock(int file, int operation)
{
    return fails("lock") ? -1 : CFileSystem::lock(file, operation);
}

int CFaultyFileSystem::close(int file)
{
    const int closed = CFileSystem::close(file);
    return fails("close") ? -1 : closed;
}

int CFaultyFileSystem::rename(const QByteArray &from, const QByteArray &to)
{
    return fails("rename") ? -1 : CFileSystem::rename(from, to);
}

int CFaultyFileSystem::link(const QByteArray &from, const QByteArray &to)
{
    return fails("link") ? -1 : CFileSystem::link(from, to);
}

int CFaultyFileSystem::unlink(const QByteArray &path)
{
    return fails("unlink") ? -1 : CFileSystem::unlink(path);
}
