// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CStrictFile.h"

#include "platform/json/CStrictJson.h"
#include "platform/json/CStrictObject.h"

#include <QCryptographicHash>
#include <QJsonDocument>

#include <future>
#include <limits>
#include <system_error>

namespace {

constexpr int LongestHeader = 512;     // bytes
constexpr int LargeBody = 1024 * 1024; // bytes

/// The first line of a file.
struct SFileHeader
{
    QString format;
    int version = 0;
    qint64 bytes = 0; ///< of the body
    QByteArray sha256;

    QByteArray line() const
    {
        return QStringLiteral("{\"format\":\"%1\",\"version\":%2,\"bytes\":%3,\"sha256\":\"%4\"}\n")
            .arg(format, QString::number(version), QString::number(bytes), QString::fromLatin1(sha256))
            .toUtf8();
    }
};

QByteArray bodyDigest(const QByteArray &body)
{
    return QCryptographicHash::hash(body, QCryptographicHash::Sha256).toHex();
}

QString articleOf(const SFileFormat &format)
{
    return QCoreApplication::translate("SFileFormat", format.article);
}

/// The header of @p line, or what is wrong with it as the rest of a sentence that begins with the file.
CResult<SFileHeader> readHeader(const QByteArray &line, const SFileFormat &format)
{
    using Header = CResult<SFileHeader>;
    const CResult<CJsonDocument> json = CStrictJson::parse(line);
    if (!json)
        return Header::failure(
            CStrictFile::tr("is not %1, or its header is damaged: %2.").arg(articleOf(format), json.error()));
    const SJsonPlace place;
    QString error;
    CStrictObject object(json.value().root(), place, error);
    SFileHeader header;
    header.format = object.text("format", 64);
    header.version = object.smallInteger("version", 1, std::numeric_limits<int>::max());
    if (error.isEmpty() && header.format != QLatin1String(format.id))
        return Header::failure(CStrictFile::tr("is not %1: line 1 names the format \"%2\".")
                                   .arg(articleOf(format), header.format));
    if (error.isEmpty() && header.version > format.version)
        return Header::failure(
            CStrictFile::tr("was written by a newer version: line 1 names version %1 of the "
                            "format, this program reads up to version %2.")
                .arg(header.version)
                .arg(format.version));
    header.bytes = object.integer("bytes", 0, CStrictFile::MaximumBytes);
    header.sha256 = object.text("sha256", 64).toLatin1();
    if (!object.finish())
        return Header::failure(CStrictFile::tr("has a damaged header: line 1, %1.").arg(error));
    if (line != header.line())
        return Header::failure(CStrictFile::tr("has a damaged header: line 1 is not as it was written."));
    return header;
}

/// Checks the length of a file against its header; empty if it matches.
QString lengthDamage(qint64 expected, qint64 found)
{
    if (found < expected)
        return CStrictFile::tr("is cut off: it ends at byte %1 of %2.").arg(found).arg(expected);
    return found > expected ? CStrictFile::tr("is damaged: something was added behind byte %1.").arg(expected)
                            : QString();
}

/// The digest of a body; of a large one computed by another thread, as that takes as long as reading it.
std::future<QByteArray> digestLater(const QByteArray &body)
{
    if (body.size() >= LargeBody) {
        try {
            return std::async(std::launch::async, bodyDigest, body);
        } catch (const std::system_error &) { // no more threads
        }
    }
    return std::async(std::launch::deferred, bodyDigest, body);
}

} // namespace

QByteArray CStrictFile::encode(const SFileFormat &format, const QJsonObject &body)
{
    const QByteArray text = QJsonDocument(body).toJson(QJsonDocument::Compact) + '\n';
    const SFileHeader header{QLatin1String(format.id), format.version, text.size(), bodyDigest(text)};
    return header.line() + text;
}

CResult<CJsonDocument> CStrictFile::decode(const QByteArray &content, const SFileFormat &format,
                                           const QString &file)
{
    const auto failure = [&file](const QString &what) {
        return CResult<CJsonDocument>::failure(QStringLiteral("%1 %2").arg(CSafeFile::quoted(file), what));
    };
    if (content.isEmpty())
        return failure(tr("is empty."));
    const int headerBytes = content.left(LongestHeader).indexOf('\n') + 1;
    if (headerBytes == 0)
        return failure(
            tr("is not %1, or it is cut off: line 1 is no complete header.").arg(articleOf(format)));
    const CResult<SFileHeader> header = readHeader(content.left(headerBytes), format);
    if (!header)
        return failure(header.error());
    const QByteArray body =
        QByteArray::fromRawData(content.constData() + headerBytes, content.size() - headerBytes);
    const QString damage = lengthDamage(headerBytes + header.value().bytes, content.size());
    if (!damage.isEmpty())
        return failure(damage);
    std::future<QByteArray> digest = digestLater(body);
    CResult<CJsonDocument> json = CStrictJson::parse(content, headerBytes);
    if (digest.get() != header.value().sha256)
        return failure(
            json ? tr("is damaged: its content (line 2 and below) does not match the checksum of line 1.")
                 : tr("is damaged: %1.").arg(json.error()));
    return json ? json : CResult<CJsonDocument>::failure(wrongContent(file, json.error()));
}

bool CStrictFile::isNewer(const QByteArray &content, const SFileFormat &format)
{
    const QByteArray start = content.left(LongestHeader);
    const CResult<CJsonDocument> header = CStrictJson::parse(start.left(start.indexOf('\n') + 1));
    const CJsonValue root = header ? header.value().root() : CJsonValue();
    return root.member("format").toString() == QLatin1String(format.id) &&
           root.member("version").toInt(0) > format.version;
}

QString CStrictFile::wrongContent(const QString &file, const QString &what)
{
    return tr("%1 cannot be read: %2.").arg(CSafeFile::quoted(file), what);
}

CStatus CStrictFile::write(const QString &file, const SFileFormat &format, const QJsonObject &body,
                           SFileWrite *how)
{
    return CSafeFile::write(file, encode(format, body), CSafeFile::KeepPrevious, how);
}

CResult<CJsonDocument> CStrictFile::read(const QString &file, const SFileFormat &format)
{
    CSafeFile::cleanAround(file);
    const CResult<QByteArray> content = CSafeFile::read(file, MaximumBytes);
    return content ? decode(content.value(), format, file) : CResult<CJsonDocument>::failure(content.error());
}

QString CStrictFile::notWritable(const QString &file, const QString &what)
{
    return tr("%1 cannot be written: %2.").arg(CSafeFile::quoted(file), what);
}
