// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CSimulatedPark.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/ProjectSamples.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString logName = QStringLiteral("Velmarinth/Orvo/log/orvo.log");

QProcessEnvironment offscreenIn(const QString &home)
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        variables.insert(QLatin1String(name), home);
    return variables;
}

QByteArray contentOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool endsBySignal(QProcess &process, int number, const QString &log)
{
    return ::kill(static_cast<pid_t>(process.processId()), number) == 0 &&
           process.waitForFinished(PatienceMilliseconds) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 128 + number &&
           contentOf(log).contains("Ended by signal " + QByteArray::number(number));
}

} // namespace

/// What the program says and gives when it cannot open its window.
class CProgramTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void refusesInOneLine()
    {
        struct SCase
        {
            const char *variable;
            const char *arguments;
            int status;
            const char *said;
        };
        for (const auto &[variable, arguments, status, said] :
             {SCase{"", "", 1, "no display found|orvo --help"},
              {"DISPLAY=:nonexistent", "", 1, "no display found|orvo --help|:nonexistent"},
              {"QT_QPA_PLATFORM=bogus", "", 1, "no display found|orvo --help|bogus"},
              {"", "bogus", 2, "\"bogus\""}, // neither command nor file
              {"QT_QPA_PLATFORM=offscreen", "--simulate slow=Lobby --simulate slow=Nowhere", 1,
               "\"Nowhere\"|Main stage, Lobby"}}) {
            const QTemporaryDir home;
            QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
            for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
                variables.remove(QLatin1String(name));
            variables.insert(QStringLiteral("HOME"), home.path());
            const QString set = QLatin1String(variable);
            if (!set.isEmpty())
                variables.insert(set.section(QLatin1Char('='), 0, 0), set.section(QLatin1Char('='), 1));
            QProcess process;
            process.setProcessEnvironment(variables);
            process.start(QStringLiteral(ORVO_PROGRAM),
                          QString::fromLatin1(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts));
            QVERIFY(process.waitForFinished(PatienceMilliseconds));
            QCOMPARE(process.exitStatus(), QProcess::NormalExit);
            QCOMPARE(process.exitCode(), status);
            const QString errors = QString::fromLocal8Bit(process.readAllStandardError());
            QVERIFY2(errors.startsWith(QLatin1String("orvo: ")) && errors.endsWith(QLatin1Char('\n')) &&
                         errors.count(QLatin1Char('\n')) == 1,
                     qPrintable(errors));
            for (const QString &text : QString::fromLatin1(said).split(QLatin1Char('|')))
                QVERIFY2(errors.contains(text), qPrintable(errors));
        }
    }

    void aPictureNeedsNoWindow()
    {
        const QTemporaryDir home;
        const QString wall = home.filePath(QStringLiteral("wall.sprj"));
        QVERIFY(CProcessorProject::write(wall, ProjectSamples::withEverything())); // also with a locked port
        QProcess process;
        process.setProcessEnvironment(offscreenIn(home.path()));
        process.start(QStringLiteral(ORVO_PROGRAM),
                      {QStringLiteral("export"), wall, home.filePath(QStringLiteral("wall.png"))});
        QVERIFY(process.waitForFinished(PatienceMilliseconds));
        QCOMPARE(process.readAllStandardError(), QByteArray());
        QCOMPARE(process.exitCode(), 0);
    }

    void anInterruptEndsItInOrder()
    {
        const QTemporaryDir home;
        QProcess process;
        process.setProcessEnvironment(offscreenIn(home.path()));
        process.start(QStringLiteral(ORVO_PROGRAM), {QStringLiteral("--demo"), QStringLiteral("--detect")});
        QVERIFY(process.waitForStarted(PatienceMilliseconds));
        QTRY_VERIFY(QFile::exists(home.filePath(logName)));
        QVERIFY(endsBySignal(process, SIGINT, home.filePath(logName)));
    }

    void whatACrashLeavesIsTidiedUpByTheNextStart()
    {
        const QTemporaryDir home;
        const QString wall = home.filePath(QStringLiteral("wall.sprj"));
        const QString lock = home.filePath(QStringLiteral(".wall.sprj.lock"));
        SProcessorProject project = ProjectSamples::withEverything();
        project.kind.clear();
        QVERIFY(CProcessorProject::write(wall, project));
        const auto isLockedBy = [&lock](const QProcess &process) {
            return contentOf(lock).contains("\"process\":" + QByteArray::number(process.processId()));
        };
        QProcess first;
        first.setProcessEnvironment(offscreenIn(home.path()));
        first.start(QStringLiteral(ORVO_PROGRAM), {wall});
        QVERIFY(first.waitForStarted(PatienceMilliseconds));
        QTRY_VERIFY_WITH_TIMEOUT(isLockedBy(first), PatienceMilliseconds);
        QCOMPARE(::kill(static_cast<pid_t>(first.processId()), SIGABRT), 0);
        QVERIFY(first.waitForFinished(PatienceMilliseconds));
        QCOMPARE(first.exitStatus(), QProcess::CrashExit);
        const QDir reports(home.filePath(QStringLiteral("Velmarinth/Orvo/crash")));
        QCOMPARE(reports.entryList({QStringLiteral("*.txt")}).size(), 1);
        QVERIFY(QFile::exists(lock));

        QProcess second; // tells of the crash, and asks nothing for a lock of the dead
        second.setProcessEnvironment(offscreenIn(home.path()));
        second.start(QStringLiteral(ORVO_PROGRAM), {wall});
        QVERIFY(second.waitForStarted(PatienceMilliseconds));
        QTRY_VERIFY_WITH_TIMEOUT(isLockedBy(second), PatienceMilliseconds);
        QCOMPARE(reports.entryList({QStringLiteral("*.shown")}).size(), 1);
        QVERIFY(endsBySignal(second, SIGTERM, home.filePath(logName)));
        QVERIFY(!QFile::exists(lock));
    }

    void aWarningThatNobodyReadsHarmsNothing()
    {
        for (const bool closed : {true, false}) { // the pipe has no reader, or is full
            const QTemporaryDir home;
            const CSimulatedPark park(home.path(), 0);
            for (const CSimulatedPark::Processor &processor : park.processors()) {
                QFile state(CProcessorStateFiles(home.path(), processor->identity().uuid).settingsFile());
                QVERIFY(state.open(QIODevice::WriteOnly)); // empty is damaged, and a warning tells so
            }
            const QString errors = home.filePath(QStringLiteral("errors"));
            QCOMPARE(mkfifo(QFile::encodeName(errors).constData(), 0600), 0);
            const int reader = ::open(QFile::encodeName(errors).constData(), O_RDWR | O_CLOEXEC | O_NONBLOCK);
            const QByteArray block(4096, 'x');
            while (!closed && ::write(reader, block.constData(), size_t(block.size())) > 0) {
            }
            QProcess process;
            process.setProcessEnvironment(offscreenIn(home.path()));
            process.setStandardErrorFile(errors);
            process.start(QStringLiteral(ORVO_PROGRAM),
                          {QStringLiteral("--detect"), QStringLiteral("--state"), home.path()});
            QVERIFY(process.waitForStarted(PatienceMilliseconds));
            if (closed)
                ::close(reader);
            const QString log = home.filePath(logName);
            QTRY_VERIFY(contentOf(log).count("is kept as") > 1);
            QVERIFY(endsBySignal(process, SIGTERM, log));
            if (!closed)
                ::close(reader);
        }
    }
};

ORVO_TEST_MAIN(QCoreApplication, CProgramTest)
#include "tst_program.moc"
