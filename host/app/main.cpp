// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CLogFile.h"
#include "host/app/CMainWindow.h"
#include "host/app/CModuleLoader.h"
#include "host/app/SAppOptions.h"
#include "host/app/commands/CCommandLine.h"
#include "host/devices/CSimulatedPark.h"
#include "layout/data/records/RecordMetaTypes.h"
#include "platform/widgets/CTheme.h"

#include <QApplication>

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

/// Watches the application object being made: without a usable display Qt would abort the process; here it
/// ends with one line that says why, and the exit status of bad input.
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

int runWindow(int argc, char **argv, const SAppOptions &options)
{
    setUpApplication();
    std::optional<QApplication> application;
    {
        const CDisplayWatch watch;
        application.emplace(argc, argv);
    }
    const CLogFile log(CLogFile::defaultFolder());
    registerRecordMetaTypes();
    CTheme::apply(*application);

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
    const CStatus known = options.value().checkProcessors(CSimulatedPark({}, 1.0).names());
    if (!known) {
        std::fprintf(stderr, "orvo: %s\n", qPrintable(known.error()));
        return CCommandLine::BadInput;
    }
    return runWindow(argc, argv, options.value());
}
