// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "fuzz/FuzzFiles.h"
#include "fuzz/FuzzTargets.h"
#include "host/app/start/CAppSettings.h"
#include "layout/api/records/CPrintConfigJson.h"
#include "layout/data/CRecentCabinets.h"
#include "layout/printing/dialog/PrintMemory.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

/// Where the program's settings are in this process.
QString settingsFile()
{
    const QString folder = FuzzFiles::path("config");
    const QString file = folder + QStringLiteral("/Velmarinth/Orvo.conf");
    QDir().mkpath(QFileInfo(file).path());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
    return file;
}

bool survives(const PrintConfig &config)
{
    const auto again = CPrintConfigJson::config(CPrintConfigJson::toJson(config), "print");
    return again && CPrintConfigJson::toJson(again.value()) == CPrintConfigJson::toJson(config);
}

} // namespace

QString FuzzTargets::settings(const QByteArray &bytes)
{
    static const QString file = settingsFile();
    FuzzFiles::write(file, bytes);
    const CAppSettings app;
    const CRecentCabinets cabinets;
    const SPrintJob job = PrintMemory::load();
    if (app.recentProjects().size() > CAppSettings::MaximumRecentProjects ||
        app.writtenFiles().size() > CAppSettings::MaximumWrittenFolders)
        return QStringLiteral("more files than the lists hold");
    if (cabinets.customSize().isEmpty() || cabinets.types().contains(SMD5()))
        return QStringLiteral("a recent cabinet that is none");
    if (!survives(job.whole) || !std::all_of(job.own.begin(), job.own.end(), survives))
        return QStringLiteral("print settings that could not be read again");
    app.windowGeometry();
    app.splitterState();
    return app.projectFolder().isEmpty() ? QStringLiteral("no folder for projects") : QString();
}
