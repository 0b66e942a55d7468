// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/common/CResult.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

/// Reads and writes whole files so that a failure never costs what was there: the file is the old or the new
/// one, whole, also when the process is killed or the disk is full. Error texts name the file. Any thread.
class CSafeFile final
{
    Q_DECLARE_TR_FUNCTIONS(CSafeFile)

public:
    enum Previous {
        DropPrevious, ///< what was in the file is gone
        KeepPrevious  ///< what was in the file is kept as "file~", in place of the generation before it
    };

    /// The content of a regular file of at most @p limit bytes.
    static CResult<QByteArray> read(const QString &file, qint64 limit);
    /// Done only when the file was read back and holds @p content.
    static CStatus write(const QString &file, const QByteArray &content, Previous previous);

    /// Begin of all error texts: the file's path, quoted.
    static QString quoted(const QString &file);
};
