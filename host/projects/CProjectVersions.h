// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

/// The earlier versions of a file that are kept beside it. Any thread; may wait for a slow disk.
class CProjectVersions final
{
public:
    struct SVersion
    {
        QString file;
        int age = 1;        ///< 1: the one before the file, 2: the one before that
        QDateTime modified; ///< when it was saved
        qint64 bytes = 0;
    };

    /// Those that are there, the latest first; also those that are beyond the number kept now.
    static QVector<SVersion> of(const QString &file);
};
