// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CSafeFile.h"
#include "platform/common/CResult.h"
#include "platform/json/CJsonDocument.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QString>

/// One of our file formats.
struct SFileFormat
{
    const char *id;      ///< written into the file, e.g. "orvo-processor-project"
    const char *article; ///< what it is called in messages, e.g. "a processor project"
    int version;         ///< the newest version that this program knows
};

/// The container of all our files: a header line with format, version, length and SHA-256, then one JSON
/// object. A truncated, altered, hostile or newer file is refused with one text that names the file and the
/// place. Any thread.
class CStrictFile final
{
    Q_DECLARE_TR_FUNCTIONS(CStrictFile)

public:
    static constexpr qint64 MaximumBytes = 128 * 1024 * 1024;

    /// Reads the record in a file. @p make, a Record(const CJsonValue &, QString &error), converts the body;
    /// its error begins with the place.
    template <typename Record, typename Make>
    static CResult<Record> readRecord(const QString &file, const SFileFormat &format, const Make &make);
    /// Writes the body that @p body returns, unless @p make, as above, could not read it again. Keeps the
    /// previous generations. For @p how see CSafeFile::write().
    template <typename Make, typename Body>
    static CStatus writeRecord(const QString &file, const SFileFormat &format, const Make &make,
                               const Body &body, SFileWrite *how = nullptr);
    /// The content that write() puts into the file.
    static QByteArray encode(const SFileFormat &format, const QJsonObject &body);
    /// The body of a file's content; @p file is for the error text.
    static CResult<CJsonDocument> decode(const QByteArray &content, const SFileFormat &format,
                                         const QString &file);
    /// Whether the content names the format in a version that this program does not know.
    static bool isNewer(const QByteArray &content, const SFileFormat &format);
    /// The error text for an intact file with wrong content; @p what begins with the place.
    static QString wrongContent(const QString &file, const QString &what);

private:
    static CStatus write(const QString &file, const SFileFormat &format, const QJsonObject &body,
                         SFileWrite *how);
    static CResult<CJsonDocument> read(const QString &file, const SFileFormat &format);
    /// The error text for a record that is not written because it could not be read again.
    static QString notWritable(const QString &file, const QString &what);
};

template <typename Record, typename Make>
CResult<Record> CStrictFile::readRecord(const QString &file, const SFileFormat &format, const Make &make)
{
    return CSafeFile::withMemory(file, [&] {
        const CResult<CJsonDocument> body = read(file, format);
        if (!body)
            return CResult<Record>::failure(body.error());
        QString error;
        Record record = make(body.value().root(), error);
        return error.isEmpty() ? CResult<Record>(std::move(record))
                               : CResult<Record>::failure(wrongContent(file, error));
    });
}

template <typename Make, typename Body>
CStatus CStrictFile::writeRecord(const QString &file, const SFileFormat &format, const Make &make,
                                 const Body &body, SFileWrite *how)
{
    return CSafeFile::withMemory(file, [&] {
        const QJsonObject written = body();
        QString error;
        make(CJsonDocument::of(written).root(), error);
        return error.isEmpty() ? write(file, format, written, how)
                               : CStatus::failure(notWritable(file, error));
    });
}
