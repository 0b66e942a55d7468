// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CFileHandle.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QString>

/// One writing of a whole file: a new file beside it is written, confirmed by the disk and compared, and then
/// takes its name. Up to there a failure leaves everything as it was; nothing is ever put back.
class CSafeWrite final
{
    Q_DECLARE_TR_FUNCTIONS(CSafeWrite)

public:
    /// @p file is no link.
    CSafeWrite(const QString &file, const QByteArray &content);

    /// Done: the disk has confirmed the content and the name. @p keepPrevious as in CSafeFile.
    CStatus run(bool keepPrevious);

private:
    CStatus failure(const QString &why) const;
    QString writeNew();
    QString fill(CFileHandle &file) const;
    bool keepPending() const;
    bool copyPending() const;

    const QString m_file;
    const QByteArray m_target;
    const QByteArray &m_content;
    QByteArray m_new; ///< the new file, until it has its name
};
