// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CFileLock.h"

#include <QString>

#include <memory>
#include <mutex>

/// The folder in which simulated processors keep their state. One running program at a time stores there;
/// others only read, as each keeps in memory what it has stored. Any thread.
class CStateFolder final
{
public:
    /// The folder with that path, the same object for everybody in this process.
    static std::shared_ptr<CStateFolder> at(const QString &path);

    explicit CStateFolder(const QString &path);

    const QString &path() const { return m_path; }
    enum Access {
        Owned, ///< stays so until this program ends
        Free,  ///< this program may store there, but so may others: there is no folder yet, or no lock in it
        Others ///< another program stores there
    };
    /// Looks again each time, unless the folder is owned.
    Access access();
    /// Who else stores there; empty: nobody does.
    QString otherUser();

private:
    const QString m_path;
    std::mutex m_mutex; // guards the members below
    CFileLock m_lock;
    Access m_access = Free;
};
