// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CSafeFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>

namespace {

std::filesystem::path systemPath(const QString &file)
{
    return {QFile::encodeName(file).toStdString()};
}

/// Makes @p backup a second name of what is in @p file, atomically; the caller then replaces the first name.
bool keepGeneration(const QString &file, const QString &backup)
{
    const std::filesystem::path link = systemPath(backup + QStringLiteral("new"));
    std::error_code error;
    std::filesystem::remove(link, error);
    std::filesystem::create_hard_link(systemPath(file), link, error);
    if (error) // a file system without links
        std::filesystem::copy_file(systemPath(file), link, error);
    if (!error)
        std::filesystem::rename(link, systemPath(backup), error);
    return !error;
}

/// Why the last operation on a device failed, when the device knows.
QString deviceReason(const QFileDevice &device)
{
    const QString text = device.errorString();
    return text.isEmpty() || text == QLatin1String("Unknown error") ? CSafeFile::tr("the disk may be full")
                                                                    : text;
}

} // namespace

QString CSafeFile::quoted(const QString &file)
{
    return QStringLiteral("\"%1\"").arg(file);
}

CResult<QByteArray> CSafeFile::read(const QString &file, qint64 limit)
{
    const auto failure = [&file](const QString &why) {
        return CResult<QByteArray>::failure(tr("%1 cannot be read: %2.").arg(quoted(file), why));
    };
    const QFileInfo info(file);
    if (!info.exists())
        return failure(tr("there is no such file"));
    if (info.isDir())
        return failure(tr("it is a folder"));
    if (!info.isFile())
        return failure(tr("it is not a regular file"));
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        return failure(deviceReason(source));
    const QByteArray content = source.read(limit + 1);
    if (source.error() != QFileDevice::NoError)
        return failure(deviceReason(source));
    if (content.size() > limit)
        return failure(tr("it is larger than %1 bytes").arg(limit));
    return content;
}

CStatus CSafeFile::write(const QString &file, const QByteArray &content, Previous previous)
{
    const auto failure = [&file](const QString &why) {
        return CStatus::failure(tr("%1 cannot be written: %2.").arg(quoted(file), why));
    };
    const QFileInfo info(file);
    if (info.isDir())
        return failure(tr("it is a folder"));
    if (info.exists() && !info.isFile())
        return failure(tr("it is not a regular file"));
    const QString target = info.exists() ? info.canonicalFilePath() : file;
    QSaveFile saved(target);
    if (!saved.open(QIODevice::WriteOnly))
        return failure(deviceReason(saved));
    // commit() does not notice that the last buffer could not be written: ask before it replaces the file.
    const bool written = saved.write(content) == content.size() && saved.flush();
    if (!written || saved.error() != QFileDevice::NoError) {
        const QString why = deviceReason(saved);
        saved.cancelWriting();
        return failure(why);
    }
    const QString backup = target + QLatin1Char('~');
    const bool kept = previous == KeepPrevious && info.exists() && keepGeneration(target, backup);
    if (!saved.commit())
        return failure(deviceReason(saved));
    const CResult<QByteArray> readBack = read(target, content.size());
    if (readBack && readBack.value() == content)
        return CStatus::done();
    std::error_code ignored;
    if (kept)
        std::filesystem::rename(systemPath(backup), systemPath(target), ignored);
    return failure(tr("what was read back differs from what was written"));
}
