// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/CStoreOptions.h"

SLayoutOptions CStoreOptions::layout() const
{
    const CReadLocker locker(m_lock);
    return m_layout;
}

bool CStoreOptions::setLayout(const SLayoutOptions &options)
{
    const CWriteLocker locker(m_lock);
    if (m_layout == options)
        return false;
    m_layout = options;
    return true;
}

QList<QPair<QUuid, QUuid>> CStoreOptions::processorRedundancies() const
{
    const CReadLocker locker(m_lock);
    return m_processorPairs;
}

bool CStoreOptions::setProcessorRedundancies(const QList<QPair<QUuid, QUuid>> &pairs)
{
    const CWriteLocker locker(m_lock);
    if (m_processorPairs == pairs)
        return false;
    m_processorPairs = pairs;
    return true;
}

CStoreOptions::TypeLibrary CStoreOptions::typeLibrary() const
{
    const CReadLocker locker(m_lock);
    return m_typeLibrary;
}

void CStoreOptions::setTypeLibrary(TypeLibrary library)
{
    const CWriteLocker locker(m_lock);
    m_typeLibrary.swap(library); // the old tree is destroyed with the parameter, without the lock
}
