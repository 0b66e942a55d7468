// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "benchmarks/ChildProcess.h"
#include "benchmarks/Figures.h"
#include "benchmarks/FirstFrame.h"
#include "host/app/CMainWindow.h"
#include "host/app/CModuleLoader.h"
#include "host/app/start/CLogFile.h"
#include "host/app/start/SAppOptions.h"
#include "layout/api/records/RecordMetaTypes.h"
#include "platform/widgets/CTheme.h"

#include <QApplication>
#include <QLoggingCategory>

namespace {
constexpr int StartRepetitions = 9;
}

void Benchmarks::measureStart()
{
    const QString emptyWindow = ChildProcess::programOfBuild(QStringLiteral("orvo_empty_window"));
    const SMedians medians = Figures::compare(
        StartRepetitions,
        [] {
            return ChildProcess::timeToFirstOutput(QCoreApplication::applicationFilePath(),
                                                   ChildProcess::argumentsOfPart("editor-start"));
        },
        [&emptyWindow] { return ChildProcess::timeToFirstOutput(emptyWindow, {}); });
    Figures::print({"B12 start to first frame, no layout", 0, medians.work, "empty QMainWindow program",
                    medians.reference});
}

/// What the application does when it is started without a file.
int Benchmarks::startOfEditor(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false")); // remarks of the platform
    QApplication application(argc, argv);
    const CLogFile log(CLogFile::defaultFolder());
    registerRecordMetaTypes();
    CTheme::applyBase();
    SDeviceSettings devices;
    devices.stateFolder = SAppOptions::defaultStateFolder();
    CMainWindow window(devices);
    window.loadModule(CModuleLoader::layoutFile());
    CTheme::applyStyleSheet(application);
    FirstFrame::announce(window);
    return QApplication::exec();
}
