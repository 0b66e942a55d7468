// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CStrictFile.h"

#include "platform/json/CStrictJson.h"
#include "platform/json/CStrictObject.h"

#include <QCryptographicHash>
#include <QJsonDocument>

#include <limits>

namespace {

constexpr int LongestHeader = 512; // bytes

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
    const CResult<QJsonObject> json = CStrictJson::parse(line);
    if (!json)
        return Header::failure(
            CStrictFile::tr("is not %1, or its header is damaged: %2.").arg(articleOf(format), json.error()));
    const SJsonPlace place;
    QString error;
    CStrictObject object(json.value(), place, error);
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

/// Checks length and checksum of @p body; empty if they match the header.
QString bodyDamage(const SFileHeader &header, const QByteArray &body, int headerBytes)
{
    if (body.size() < header.bytes)
        return CStrictFile::tr("is cut off: it ends at byte %1 of %2.")
            .arg(headerBytes + body.size())
            .arg(headerBytes + header.bytes);
    if (body.size() > header.bytes)
        return CStrictFile::tr("is damaged: something was added behind byte %1.")
            .arg(headerBytes + header.bytes);
    if (bodyDigest(body) == header.sha256)
        return {};
    const CResult<QJsonObject> json = CStrictJson::parse(body, 2);
    return json ? CStrictFile::tr(
                      "is damaged: its content (line 2 and below) does not match the checksum of line 1.")
                : CStrictFile::tr("is damaged: %1.").arg(json.error());
}

} // namespace

QByteArray CStrictFile::encode(const SFileFormat &format, const QJsonObject &body)
{
    const QByteArray text = QJsonDocument(body).toJson(QJsonDocument::Compact) + '\n';
    const SFileHeader header{QLatin1String(format.id), format.version, text.size(), bodyDigest(text)};
    return header.line() + text;
}

CResult<QJsonObject> CStrictFile::decode(const QByteArray &content, const SFileFormat &format,
                                         const QString &file)
{
    const auto failure = [&file](const QString &what) {
        return CResult<QJsonObject>::failure(QStringLiteral("%1 %2").arg(CSafeFile::quoted(file), what));
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
    const QString damage = bodyDamage(header.value(), body, headerBytes);
    if (!damage.isEmpty())
        return failure(damage);
    const CResult<QJsonObject> json = CStrictJson::parse(body, 2);
    return json ? json : CResult<QJsonObject>::failure(wrongContent(file, json.error()));
}

bool CStrictFile::isNewer(const QByteArray &content, const SFileFormat &format)
{
    const QByteArray start = content.left(LongestHeader);
    const CResult<QJsonObject> header = CStrictJson::parse(start.left(start.indexOf('\n') + 1));
    return header && header.value().value(QLatin1String("format")).toString() == QLatin1String(format.id) &&
           header.value().value(QLatin1String("version")).toInt() > format.version;
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

CResult<QJsonObject> CStrictFile::read(const QString &file, const SFileFormat &format)
{
    CSafeFile::cleanAround(file);
    const CResult<QByteArray> content = CSafeFile::read(file, MaximumBytes);
    return content ? decode(content.value(), format, file) : CResult<QJsonObject>::failure(content.error());
}

QString CStrictFile::notWritable(const QString &file, const QString &what)
{
    return tr("%1 cannot be written: %2.").arg(CSafeFile::quoted(file), what);
}
