// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CFileHandle.h"
#include "host/projects/SFileWrite.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QString>

/// One write of a whole file: writes a new file beside it, has it confirmed by the disk, compares it, and
/// then renames it. Until the rename, a failure changes nothing; nothing ever has to be restored.
class CSafeWrite final
{
    Q_DECLARE_TR_FUNCTIONS(CSafeWrite)

public:
    /// @p file must not be a link.
    CSafeWrite(const QString &file, const QByteArray &content);

    /// Success: the disk has confirmed content and name. For @p keepPrevious see CSafeFile.
    CStatus run(bool keepPrevious, SFileWrite &how);

private:
    /// What becomes of the content that is replaced. No: there is none, or it will be lost, which must not
    /// prevent saving.
    enum class Kept { Yes, No, NameTaken };

    CStatus failure(const QString &why) const;
    CStatus replace(bool keepPrevious, SFileWrite &how);
    QString writeNew();
    QString fill(CFileHandle &file) const;
    Kept keepPending() const;
    Kept copyPending() const;

    const QString m_file;
    const QByteArray m_target;
    const QByteArray &m_content;
    QByteArray m_new; ///< path of the new file, until it is renamed
};
