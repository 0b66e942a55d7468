// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "fuzz/FuzzFiles.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

QString folderTemplate()
{
    const QString memory = QStringLiteral("/dev/shm");
    const QString base = QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
    return base + QStringLiteral("/orvo-fuzz-XXXXXX");
}

} // namespace

QString FuzzFiles::path(const char *name)
{
    static const QTemporaryDir folder(folderTemplate());
    return folder.filePath(QLatin1String(name));
}

void FuzzFiles::write(const QString &file, const QByteArray &content)
{
    QFile written(file);
    if (!written.open(QIODevice::WriteOnly) || written.write(content) != content.size())
        qFatal("%s cannot be written", qPrintable(file));
}

QByteArray FuzzFiles::withRightHeader(const QByteArray &bytes)
{
    const int lineEnd = bytes.indexOf('\n');
    const int figures = bytes.indexOf(",\"bytes\":");
    if (figures < 0 || lineEnd < figures)
        return bytes;
    const QByteArray body = bytes.mid(lineEnd + 1);
    return bytes.left(figures) + ",\"bytes\":" + QByteArray::number(body.size()) + ",\"sha256\":\"" +
           QCryptographicHash::hash(body, QCryptographicHash::Sha256).toHex() + "\"}\n" + body;
}
