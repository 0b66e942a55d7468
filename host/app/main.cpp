// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CMainWindow.h"
#include "host/app/CModuleHost.h"
#include "host/app/CModuleLoader.h"
#include "host/app/commands/CCommandLine.h"
#include "host/app/start/CAppSettings.h"
#include "host/app/start/CCrashHandler.h"
#include "host/app/start/CLogFile.h"
#include "host/app/start/CSignalWatch.h"
#include "host/app/start/SAppOptions.h"
#include "host/devices/services/CSimulatedPark.h"
#include "host/journal/CJournalFolder.h"
#include "host/projects/CSafeFile.h"
#include "layout/api/ILayoutInterface.h"
#include "layout/api/records/RecordMetaTypes.h"
#include "layout/resources/LayoutResources.h"
#include "platform/widgets/CTheme.h"

#include <QApplication>
#include <QLocale>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {

QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

/// Guards the creation of the application object: without a usable display Qt would abort the process.
/// Instead it ends with one line that gives the reason, and the exit status of bad input.
class CDisplayWatch final
{
public:
    CDisplayWatch() { m_previous = qInstallMessageHandler(onMessage); }
    ~CDisplayWatch()
    {
        qInstallMessageHandler(m_previous);
        if (!m_reason.isEmpty()) // it was a warning only
            std::fprintf(stderr, "orvo: %s\n", qPrintable(m_reason));
        m_reason.clear();
    }
    Q_DISABLE_COPY(CDisplayWatch)

private:
    static void onMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
    {
        if (type == QtFatalMsg) {
            std::fprintf(stderr,
                         "orvo: no display found (%s): run it in a desktop session, or set DISPLAY (see also "
                         "\"orvo --help\" for the commands that need none)\n",
                         qPrintable(m_reason.isEmpty() ? text.simplified() : m_reason));
            std::_Exit(CCommandLine::BadInput);
        }
        if (m_reason.isEmpty() && type != QtDebugMsg &&
            type != QtInfoMsg) // the first names the cause, the others follow from it
            m_reason = text.simplified();
    }

    static inline QString m_reason;
    QtMessageHandler m_previous = nullptr;
};

void setUpApplication()
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication::setOrganizationName(QStringLiteral("Velmarinth"));
    QApplication::setApplicationName(QStringLiteral("Orvo"));
    QApplication::setApplicationVersion(QStringLiteral(ORVO_VERSION));
}

/// Ends the program without questions, as expected after a signal; the next start offers what was not saved.
void endBySignal(CMainWindow &window, int number)
{
    if (ILayoutInterface *layout = window.moduleHost().layoutModule())
        layout->flush();
    QStringList edited;
    for (const SDevice &device : window.manager().table().devices()) {
        if (device.isModified() && window.manager().keeper().keeps(device.node.uuid))
            edited << device.node.name;
    }
    if (edited.isEmpty())
        window.manager().keeper().finish();
    const QString kept = edited.isEmpty() ? QStringLiteral("nothing was unsaved")
                                          : QStringLiteral("unsaved edits are kept for the next start: %1")
                                                .arg(edited.join(QStringLiteral(", ")));
    qWarning("Ended by signal %d; %s.", number, qUtf8Printable(kept));
    QCoreApplication::exit(128 + number);
}

/// Reports projects on the command line that do not exist. Returns false if one is not even named like a
/// project.
bool reportMissingFiles(const SAppOptions &options)
{
    bool named = true;
    for (const QString &file : options.missingFiles()) {
        std::fprintf(stderr, "orvo: there is no command and no file \"%s\"\n", qPrintable(file));
        named = named && file.endsWith(QLatin1String(".sprj"), Qt::CaseInsensitive);
    }
    return named;
}

int runWindow(int argc, char **argv, const SAppOptions &options)
{
    setUpApplication();
    CCrashHandler::install(CCrashHandler::defaultFolder());
    std::optional<QApplication> application;
    {
        const CDisplayWatch watch;
        application.emplace(argc, argv);
    }
    const CSignalWatch signalWatch;
    const CLogFile log(CLogFile::defaultFolder());
    registerRecordMetaTypes();
    QLocale::setDefault(QLocale(QLocale::English)); // the language of all texts so far; numbers go with them
    CTheme::applyBase();

    SDeviceSettings devices;
    devices.stateFolder =
        options.stateFolder.isEmpty() ? SAppOptions::defaultStateFolder() : options.stateFolder;
    devices.journalFolder = CJournalFolder::defaultPath();
    CMainWindow window(devices);
    window.loadModule(CModuleLoader::layoutFile());
    CTheme::applyStyleSheet(*application);
    QObject::connect(&signalWatch, &CSignalWatch::notifySignal, &window,
                     [&window](int number) { endBySignal(window, number); });
    window.show();
    QMetaObject::invokeMethod(
        &window, [&window, &options] { window.start(options); }, Qt::QueuedConnection); // its messages block
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    CSafeFile::setVersions(CAppSettings().keptVersions());
    initLayoutResources(); // pictures from the command line have padlocks, too
    CSignalWatch::ignoreBrokenPipes();
    CSafeFile::setNote([](const QString &file, CSafeFile::Previous previous) {
        CAppSettings().addWritten(file, previous == CSafeFile::DropPrevious);
    });
    if (CCommandLine::isCommand(argc, argv))
        return CCommandLine::main(argc, argv);
    const CResult<SAppOptions> options = SAppOptions::parse(argumentsOf(argc, argv));
    if (!options) {
        std::fprintf(stderr, "orvo: %s\n", qPrintable(options.error()));
        return CCommandLine::Usage;
    }
    const CStatus known = options.value().checkProcessors(CSimulatedPark({}, 1.0).names());
    if (!known) {
        std::fprintf(stderr, "orvo: %s\n", qPrintable(known.error()));
        return CCommandLine::BadInput;
    }
    if (!reportMissingFiles(options.value()))
        return CCommandLine::Usage;
    return runWindow(argc, argv, options.value());
}
