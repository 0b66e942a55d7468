// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/common/CReadWriteLock.h"

// The thread sanitizer cannot see into Qt's lock, so these annotations describe what it does.
#if defined(__SANITIZE_THREAD__)
#define ORVO_TELL_SANITIZER
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define ORVO_TELL_SANITIZER
#endif
#endif

#ifdef ORVO_TELL_SANITIZER
#include <sanitizer/tsan_interface.h>
#else
#define __tsan_mutex_create(lock, flags)
#define __tsan_mutex_destroy(lock, flags)
#define __tsan_mutex_pre_lock(lock, flags)
#define __tsan_mutex_post_lock(lock, flags, recursion)
#define __tsan_mutex_pre_unlock(lock, flags)
#define __tsan_mutex_post_unlock(lock, flags)
#endif

CReadWriteLock::CReadWriteLock()
{
    __tsan_mutex_create(&m_lock, 0);
}

CReadWriteLock::~CReadWriteLock()
{
    __tsan_mutex_destroy(&m_lock, 0);
}

void CReadWriteLock::lockForRead()
{
    __tsan_mutex_pre_lock(&m_lock, __tsan_mutex_read_lock);
    m_lock.lockForRead();
    __tsan_mutex_post_lock(&m_lock, __tsan_mutex_read_lock, 0);
}

void CReadWriteLock::unlockRead()
{
    __tsan_mutex_pre_unlock(&m_lock, __tsan_mutex_read_lock);
    m_lock.unlock();
    __tsan_mutex_post_unlock(&m_lock, __tsan_mutex_read_lock);
}

void CReadWriteLock::lockForWrite()
{
    __tsan_mutex_pre_lock(&m_lock, 0);
    m_lock.lockForWrite();
    __tsan_mutex_post_lock(&m_lock, 0, 0);
}

void CReadWriteLock::unlockWrite()
{
    __tsan_mutex_pre_unlock(&m_lock, 0);
    m_lock.unlock();
    __tsan_mutex_post_unlock(&m_lock, 0);
}
