// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/SFileStamp.h"

#include <QFile>

#include <sys/stat.h>
#include <tuple>

SFileStamp SFileStamp::of(const QString &file)
{
    struct stat status = {};
    if (stat(QFile::encodeName(file).constData(), &status) != 0)
        return {};
    return {true,
            quint64(status.st_dev),
            quint64(status.st_ino),
            qint64(status.st_size),
            qint64(status.st_mtim.tv_sec),
            qint64(status.st_mtim.tv_nsec)};
}

bool operator==(const SFileStamp &a, const SFileStamp &b)
{
    const auto tied = [](const SFileStamp &s) {
        return std::tie(s.exists, s.node, s.size, s.seconds, s.nanoseconds);
    };
    const bool sameDevice = a.device == b.device || a.device == 0 || b.device == 0;
    return tied(a) == tied(b) && sameDevice;
}
