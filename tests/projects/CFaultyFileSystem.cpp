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
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_calls << call;
    if (m_fault.call.isEmpty())
        return false;
    const bool any = m_fault.call == "any";
    const int number = any ? m_calls.size() : m_calls.count(call);
    const bool isIt =
        number == m_fault.number || number == m_fault.second || (m_fault.onward && number > m_fault.number);
    if (!isIt || (!any && m_fault.call != call))
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
