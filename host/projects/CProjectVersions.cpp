// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CProjectVersions.h"

#include "host/projects/CSafeFile.h"
#include "host/projects/CStrayFiles.h"

#include <QFile>
#include <QFileInfo>

QVector<CProjectVersions::SVersion> CProjectVersions::of(const QString &file)
{
    const QByteArray target = QFile::encodeName(CSafeFile::withoutLinks(file));
    QVector<SVersion> versions;
    for (int age = 1; age <= CSafeFile::MostVersions; ++age) {
        const QFileInfo info(QFile::decodeName(CStrayFiles::previous(target, age)));
        if (info.isFile())
            versions << SVersion{info.filePath(), age, info.lastModified(), info.size()};
    }
    return versions;
}
