// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CHostControl.h"
#include "host/app/CModuleLoader.h"
#include "host/app/help/SystemInformation.h"
#include "host/app/start/CAppSettings.h"
#include "host/app/start/CLogFile.h"
#include "host/app/start/SAppOptions.h"
#include "host/projects/CFileSystem.h"
#include "platform/control/CSubject.h"
#include "platform/control/IAbstractInterfaceHandler.h"
#include "tests/harness/CTestBase.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLockFile>
#include <QLoggingCategory>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWidget>

#include <chrono>
#include <mutex>
#include <thread>
#include <vector>

Q_LOGGING_CATEGORY(testLog, "orvo.test")

namespace {

CResult<SAppOptions> parse(const QString &line)
{
    return SAppOptions::parse(
        QStringLiteral("orvo %1").arg(line).split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

QStringList linesOf(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

/// A disk that accepts nothing while its gate is closed, and takes a while for each line.
class CHangingDisk final : public CFileSystem
{
public:
    CHangingDisk() { setCurrent(this); }
    qint64 write(int file, const char *data, qint64 size) override
    {
        const std::lock_guard<std::mutex> passed(gate);
        std::this_thread::sleep_for(needs);
        return CFileSystem::write(file, data, size);
    }
    std::mutex gate;
    std::chrono::milliseconds needs{0}; // for a line
};

} // namespace

/// What the program begins with: its options, settings, log and module.
class CAppStartTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void optionsAreUnderstoodAllAtOnce()
    {
        const auto parsed = parse(QStringLiteral("a.sprj --demo --state /some/folder --simulate slow=Lobby "
                                                 "--simulate drop=Side=2 --detect b.sprj"));
        QVERIFY2(parsed, qPrintable(parsed.error()));
        const SAppOptions &options = parsed.value();
        QCOMPARE(options.files, QStringList({QStringLiteral("a.sprj"), QStringLiteral("b.sprj")}));
        QVERIFY(options.demo && options.detect);
        QCOMPARE(options.stateFolder, QStringLiteral("/some/folder"));
        QCOMPARE(options.simulations.size(), 2);
        QCOMPARE(options.simulations.at(1).processor, QStringLiteral("Side=2")); // may hold anything
    }

    void everythingThatCanBeSimulatedHasANameAndAnEnd()
    {
        for (const auto &fault : SSimulationFault::all()) {
            for (const bool on : {true, false}) {
                const auto options =
                    parse(QStringLiteral("--simulate %1%2=Lobby")
                              .arg(QLatin1String(on ? "" : "no-"), QLatin1String(fault.name)));
                QVERIFY2(options, fault.name);
                const SAppOptions::SSimulation simulation = options.value().simulations.first();
                QCOMPARE(simulation.on, on);
                QCOMPARE(SSimulationFault::all().at(int(simulation.fault)).name, fault.name);
            }
        }
    }

    void optionsThatAreNotKnownAreRefused()
    {
        for (const auto &[line, named] : {std::pair("--bogus", "bogus"),
                                          {"--simulate explode=Lobby", "explode"},
                                          {"--simulate slow", "slow"},
                                          {"--simulate slow=", "slow="},
                                          {"--simulate =Lobby", "=Lobby"},
                                          {"--state", "state"},
                                          {"--state=", "state"},
                                          {"--demo=1", "demo"}}) {
            const QString error = parse(QLatin1String(line)).error();
            QVERIFY2(error.contains(QLatin1String(named)), line);
            QVERIFY2(error.contains(QLatin1String("Usage: orvo")), line);
        }
    }

    void waitsForNoLockOfAKilledProcess()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("Orvo.conf"));
        const QString lockFile = file + QStringLiteral(".lock");
        const auto put = [](const QString &name) { return QFile(name).open(QIODevice::WriteOnly); };
        const QString backup = file + QStringLiteral(".backup");
        QVERIFY(put(file) && put(backup) && put(file + QStringLiteral(".GxQVfJ")));
        QVERIFY(put(lockFile) && put(lockFile + QStringLiteral(".rmlock")));
        CAppSettings::removeLeftovers(file);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files),
                 QStringList({QStringLiteral("Orvo.conf"), QStringLiteral("Orvo.conf.backup")}));

        QLockFile held(lockFile); // somebody is writing
        QVERIFY(held.tryLock(0) && put(file + QStringLiteral(".GxQVfJ")));
        CAppSettings::removeLeftovers(file);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 4);
    }

    void settingsOutliveTheObject()
    {
        {
            CAppSettings settings;
            settings.setWindowGeometry(QByteArrayLiteral("geometry\0\xff"));
            settings.setSplitterState(QByteArrayLiteral("splitter"));
            settings.setRightBarCollapsed(true);
        }
        const CAppSettings settings;
        QCOMPARE(settings.windowGeometry(), QByteArrayLiteral("geometry\0\xff"));
        QCOMPARE(settings.splitterState(), QByteArrayLiteral("splitter"));
        QVERIFY(settings.isRightBarCollapsed());
    }

    void oneFileIsRememberedForEachFolderThatWasWrittenTo()
    {
        CAppSettings settings;
        const auto file = [](const char *name) { return QStringLiteral("/walls/") + QLatin1String(name); };
        settings.addWritten(file("a/1.sprj"), false);
        settings.addWritten(file("a/1.png"), true);
        settings.addWritten(file("b/1.png"), true);
        settings.addWritten(file("b/2.sprj"), false);
        QCOMPARE(CAppSettings().writtenFiles(), QStringList({file("b/2.sprj"), file("a/1.sprj")}));
        CAppSettings().removeWritten(file("b/2.sprj"));
        settings.addWritten(file("b/2.sprj"), false); // another window has cleaned up
        QCOMPARE(CAppSettings().writtenFiles().first(), file("b/2.sprj"));
        for (int i = 0; i < 2 * CAppSettings::MaximumWrittenFolders; ++i)
            settings.addWritten(file("%1/1.png").arg(i), true);
        QCOMPARE(settings.writtenFiles().size(), CAppSettings::MaximumWrittenFolders);
        QCOMPARE(settings.writtenFiles().first(), file("63/1.png"));
    }

    void recentProjectsAreKeptOnceTheLastOneFirst()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("wall.sprj")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        const QString link = folder.filePath(QStringLiteral("link.sprj")); // one file under two names
        QVERIFY(file.link(link));
        CAppSettings settings;
        settings.clearRecentProjects();
        for (const QString &name : {file.fileName(), QStringLiteral("/walls/b.sprj"), link})
            settings.addRecentProject(name);
        QCOMPARE(settings.recentProjects(), QStringList({link, QStringLiteral("/walls/b.sprj")}));
        settings.removeRecentProject(QStringLiteral("/walls/b.sprj"));
        QCOMPARE(CAppSettings().recentProjects(), QStringList(link));
        QCOMPARE(settings.projectFolder(), folder.path()); // where dialogs open
        for (int i = 0; i < 2 * CAppSettings::MaximumRecentProjects; ++i)
            settings.addRecentProject(QStringLiteral("/no such folder/%1.sprj").arg(i));
        QCOMPARE(settings.recentProjects().size(), int(CAppSettings::MaximumRecentProjects));
        QCOMPARE(settings.recentProjects().first(), QStringLiteral("/no such folder/19.sprj"));
        QVERIFY2(QFileInfo(settings.projectFolder()).isDir(), qPrintable(settings.projectFolder()));
    }

    void aLineOfTheLogTellsTimeLevelCategoryAndText()
    {
        const QTemporaryDir folder;
        const QString place = folder.filePath(QStringLiteral("new/log"));
        {
            const CLogFile log(place);
            qCWarning(testLog, "the wall is %d px wide", 4608);
        }
        const CLogFile log(place); // the next start continues the file, and threads do not mix their lines
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([] {
                for (int line = 0; line < 100; ++line)
                    qInfo("from a thread");
            });
        }
        for (std::thread &thread : threads)
            thread.join();
        QStringList lines = linesOf(log.fileName());
        QCOMPARE(lines.size(), 401);
        const QRegularExpression line(QStringLiteral("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}Z "
                                                     "warning orvo\\.test: the wall is 4608 px wide$"));
        QVERIFY2(line.match(lines.first()).hasMatch(), qPrintable(lines.first()));
        lines.removeFirst();
        for (const QString &text : qAsConst(lines))
            QVERIFY2(text.endsWith(QLatin1String("Z info default: from a thread")), qPrintable(text));
    }

    void theLogNeverGrowsBeyondItsSize()
    {
        constexpr qint64 Limit = 1000;
        const QTemporaryDir folder;
        const CLogFile log(folder.path(), Limit);
        for (int i = 0; i < 200; ++i)
            qInfo("line %d", i);
        const QStringList files = QDir(folder.path()).entryList(QDir::Files);
        QCOMPARE(files.size(), 1 + CLogFile::OlderFiles);
        for (const QString &file : files)
            QVERIFY(QFileInfo(folder.filePath(file)).size() <= Limit);
        // The files follow each other without a gap, and the last line is there.
        QStringList lines;
        for (int age = CLogFile::OlderFiles; age >= 0; --age)
            lines += linesOf(log.fileName(age));
        for (int i = 0; i < lines.size(); ++i)
            QVERIFY(lines.at(i).endsWith(QStringLiteral("line %1").arg(200 - lines.size() + i)));
    }

    void nobodyWaitsForALogThatHangs()
    {
        static auto &disk = *new CHangingDisk; // outlives the thread that writes
        const QTemporaryDir folder;
        std::unique_lock<std::mutex> hangs(disk.gate);
        QElapsedTimer timer;
        timer.start();
        QString file;
        {
            const CLogFile log(folder.path());
            file = log.fileName();
            for (int i = 0; i < 30; ++i)
                qInfo("line %d", i);
        }
        QVERIFY(timer.elapsed() < 5000);
        QVERIFY(linesOf(file).isEmpty());
        hangs.unlock();
        QTRY_COMPARE(linesOf(file).size(), 30);
        CFileSystem::setCurrent(nullptr);
    }

    void aSlowDiskGetsTheLastLinesAtTheEnd()
    {
        constexpr int Lines = 30;
        static auto &disk = *new CHangingDisk; // outlives the thread that writes
        disk.needs = std::chrono::milliseconds(15);
        const QTemporaryDir folder;
        {
            std::unique_lock<std::mutex> hangs(disk.gate);
            const CLogFile log(folder.path());
            for (int i = 0; i < Lines; ++i)
                qInfo("line %d", i);
            hangs.unlock();
        }
        CFileSystem::setCurrent(nullptr);
        QCOMPARE(linesOf(folder.filePath(QStringLiteral("orvo.log"))).size(), Lines);
    }

    void theLogTellsHowManyLinesItHasLost()
    {
        constexpr int Kept = 10000;
        static auto &disk = *new CHangingDisk; // outlives the thread that writes
        const QTemporaryDir folder;
        QString file;
        {
            std::unique_lock<std::mutex> hangs(disk.gate);
            const CLogFile log(folder.path());
            file = log.fileName();
            for (int i = 0; i < Kept + 7; ++i)
                qInfo("line %d", i);
            hangs.unlock();
            QTRY_COMPARE(linesOf(file).size(), Kept + 1);
            qInfo("the next one");
        }
        CFileSystem::setCurrent(nullptr);
        const QStringList lines = linesOf(file);
        QCOMPARE(lines.size(), Kept + 2);
        QVERIFY(lines.at(Kept - 1).endsWith(QLatin1String("line 9999")));
        QVERIFY2(lines.at(Kept).endsWith(QLatin1String("too slow, lines lost here: 7")),
                 qPrintable(lines.at(Kept)));
        QVERIFY(lines.at(Kept + 1).endsWith(QLatin1String("the next one")));
    }

    void aFolderThatCannotBeMadeIsNoFault()
    {
        const CLogFile log(QStringLiteral("/dev/null/log"));
        qInfo("nobody reads this");
        QVERIFY(!QFile::exists(log.fileName()));
    }

    void systemInformationTellsOfTheComputerNotOfItsUser()
    {
        const QString text = SystemInformation::text();
        for (const QString &told : {QLatin1String(qVersion()) + QString(), QGuiApplication::platformName(),
                                    QStringLiteral("\nScreen: "), QStringLiteral("\nFont: ")})
            QVERIFY2(text.contains(told), qPrintable(told));
        for (const QString &untold : {QDir::homePath(), QDir::currentPath(), QSysInfo::machineHostName()})
            QVERIFY2(!text.contains(untold), qPrintable(untold));
    }

    void oneMessageTellsWhatIsWrongWithAModule()
    {
        const QString folder = QStringLiteral(ORVO_TEST_MODULES "/lib");
        for (const auto &[file, message] :
             {std::pair(QStringLiteral("/nowhere/libLayout.so"), "does not exist"),
              {QStringLiteral("/etc/passwd"), "cannot be loaded"},
              {folder + QStringLiteral("NoEntryModule.so"), "no entry point"},
              {folder + QStringLiteral("RefusingModule.so"), "refused"},
              {folder + QStringLiteral("ForeignModule.so"), "another version"}}) {
            CSubject subject;
            CHostControl host(nullptr, subject);
            QWidget parent;
            const QString error = CModuleLoader::loadLayout(file, host, &parent).error();
            QVERIFY2(error.contains(QLatin1String(message)), qPrintable(error));
            QVERIFY2(error.contains(QFileInfo(file).fileName()), qPrintable(error));
            QVERIFY(!error.contains(QLatin1Char('\n')));
        }
    }

    void theHostsFacilitiesAreFoundByNameUntilItStops()
    {
        class CHandler final : public IAbstractInterfaceHandler
        {
        };
        CSubject subject;
        CHostControl host(std::make_shared<CHandler>(), subject);
        QWidget panel;
        QWidget *widget = &panel;
        QSignalSpy added(&host, &CHostControl::notifyRightBarWidgetAdded);
        QSignalSpy locked(&host, &CHostControl::notifyLockAdded);
        QSignalSpy collapsed(&host, &CHostControl::notifyCollapseAdded);
        const UiOrvo::EnModule module = UiOrvo::ModuleLayout;
        const auto argument = QArgument<UiOrvo::EnModule>("UiOrvo::EnModule", module);
        QVERIFY(QMetaObject::invokeMethod(host.object(), "AddRightBarWidget", Qt::AutoConnection, argument,
                                          QArgument<QWidget *>("QWidget*", widget)));
        QVERIFY(QMetaObject::invokeMethod(host.object(), "AddLock", Qt::AutoConnection, argument));
        QVERIFY(QMetaObject::invokeMethod(host.object(), "AddCollapse", Qt::AutoConnection, argument));
        QCOMPARE(added.value(0).value(1).value<QWidget *>(), widget);
        QCOMPARE(locked.size() + collapsed.size(), 2);
        QVERIFY(host.handler());
        host.stop();
        QVERIFY(!host.handler());
        QCOMPARE(host.subject(), &subject);
    }
};

ORVO_TEST_MAIN(QApplication, CAppStartTest)
#include "tst_app_start.moc"
