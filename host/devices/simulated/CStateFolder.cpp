// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/CStateFolder.h"

#include <QDir>
#include <QHash>

std::shared_ptr<CStateFolder> CStateFolder::at(const QString &path)
{
    static std::mutex mutex;
    static QHash<QString, std::weak_ptr<CStateFolder>> folders;
    const std::lock_guard<std::mutex> lock(mutex);
    std::weak_ptr<CStateFolder> &known = folders[QDir(path).absolutePath()];
    std::shared_ptr<CStateFolder> folder = known.lock();
    if (!folder)
        known = folder = std::make_shared<CStateFolder>(path);
    return folder;
}

CStateFolder::CStateFolder(const QString &path)
    : m_path(path)
    , m_lock(QDir(path).filePath(QStringLiteral("processors")))
{
}

CStateFolder::Access CStateFolder::access()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_access == Owned)
        return m_access;
    const CFileLock::Outcome outcome = m_lock.take();
    const bool held = outcome == CFileLock::Held && !m_lock.holder().isThisProcess();
    m_access = outcome == CFileLock::Taken ? Owned : held ? Others : Free;
    return m_access;
}

QString CStateFolder::otherUser()
{
    if (access() != Others)
        return {};
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_lock.holder().text();
}
