// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/common/ThreadAttributes.h"

#include <QReadWriteLock>

/// A QReadWriteLock that compilers and sanitizers can follow. Not recursive; a waiting writer takes
/// precedence over new readers, so a thread that holds the lock must not lock it again. Use CReadLocker and
/// CWriteLocker.
class ORVO_CAPABILITY("lock") CReadWriteLock final
{
public:
    CReadWriteLock();
    ~CReadWriteLock();
    CReadWriteLock(const CReadWriteLock &) = delete;
    CReadWriteLock &operator=(const CReadWriteLock &) = delete;

    void lockForRead() ORVO_ACQUIRE_SHARED();
    void unlockRead() ORVO_RELEASE_SHARED();
    void lockForWrite() ORVO_ACQUIRE();
    void unlockWrite() ORVO_RELEASE();

private:
    QReadWriteLock m_lock;
};

/// Holds a lock for reading for its lifetime.
class ORVO_SCOPED_CAPABILITY CReadLocker final
{
public:
    explicit CReadLocker(CReadWriteLock &lock) ORVO_ACQUIRE_SHARED(lock)
        : m_lock(lock)
    {
        m_lock.lockForRead();
    }
    ~CReadLocker() ORVO_RELEASE_ANY() { m_lock.unlockRead(); }
    CReadLocker(const CReadLocker &) = delete;
    CReadLocker &operator=(const CReadLocker &) = delete;

private:
    CReadWriteLock &m_lock;
};

/// Holds a lock for writing for its lifetime.
class ORVO_SCOPED_CAPABILITY CWriteLocker final
{
public:
    explicit CWriteLocker(CReadWriteLock &lock) ORVO_ACQUIRE(lock)
        : m_lock(lock)
    {
        m_lock.lockForWrite();
    }
    ~CWriteLocker() ORVO_RELEASE() { m_lock.unlockWrite(); }
    CWriteLocker(const CWriteLocker &) = delete;
    CWriteLocker &operator=(const CWriteLocker &) = delete;

private:
    CReadWriteLock &m_lock;
};
