// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CLogFile.h"
#include "host/app/CMainWindow.h"
#include "host/app/CModuleLoader.h"
#include "host/app/SAppOptions.h"
#include "host/app/commands/CCommandLine.h"
#include "layout/data/records/RecordMetaTypes.h"
#include "platform/widgets/CTheme.h"

#include <QApplication>

#include <cstdio>

namespace {

QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

/// Without one the application object would abort the process.
bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

void setUpApplication()
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication::setOrganizationName(QStringLiteral("Velmarinth"));
    QApplication::setApplicationName(QStringLiteral("Orvo"));
    QApplication::setApplicationVersion(QStringLiteral(ORVO_VERSION));
}

int runWindow(int argc, char **argv, const SAppOptions &options)
{
    setUpApplication();
    QApplication application(argc, argv);
    const CLogFile log(CLogFile::defaultFolder());
    registerRecordMetaTypes();
    CTheme::apply(application);

    SDeviceSettings devices;
    devices.stateFolder =
        options.stateFolder.isEmpty() ? SAppOptions::defaultStateFolder() : options.stateFolder;
    CMainWindow window(devices);
    window.loadModule(CModuleLoader::layoutFile());
    window.show();
    QMetaObject::invokeMethod(
        &window, [&window, &options] { window.start(options); }, Qt::QueuedConnection); // its messages block
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    if (CCommandLine::isCommand(argc, argv))
        return CCommandLine::main(argc, argv);
    const CResult<SAppOptions> options = SAppOptions::parse(argumentsOf(argc, argv));
    if (!options) {
        std::fprintf(stderr, "orvo: %s\n", qPrintable(options.error()));
        return CCommandLine::Usage;
    }
    if (!hasDisplay()) {
        std::fprintf(stderr, "orvo: no display found: run it in a desktop session, or set DISPLAY (see also "
                             "\"orvo --help\" for the commands that need none)\n");
        return CCommandLine::BadInput;
    }
    return runWindow(argc, argv, options.value());
}
