// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/start/CAppSettings.h"
#include "host/devices/services/CSimulatedPark.h"
#include "host/devices/simulated/CProcessorCodec.h"
#include "host/devices/simulated/CProcessorStateFiles.h"
#include "host/projects/CSafeFile.h"
#include "layout/api/records/RecordMetaTypes.h"
#include "layout/resources/LayoutResources.h"
#include "platform/widgets/CTheme.h"
#include "tests/harness/CTestBase.h"
#include "tests/kill/CDoomedUser.h"
#include "tests/projects/ProjectSamples.h"

#include <QApplication>
#include <QProcess>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>

#include <csignal>
#include <thread>

namespace {

constexpr int UsualRounds = 60;
constexpr int MostLines = 60;          // after which a process is killed
constexpr int MostMicroseconds = 8000; // after the line
constexpr int MostCalls = 300;         // to the disk, after which it is killed instead

int given(const char *variable, int usual)
{
    return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : usual;
}

/// What a layout may be: what it was last or, if a change has begun, what that makes of it.
struct SStates
{
    SWallState sure;
    SWallState begun;

    bool allow(const SWallState &state) const
    {
        return state.fits(sure) || state.fits(begun) || begun.place == SWallState::AnyPlace;
    }
    void settle(const SWallState &state) { sure = begun = state; }
    QString text() const
    {
        return QStringLiteral("it was %1 %2, or %3 %4")
            .arg(sure.place)
            .arg(QString::fromUtf8(sure.look))
            .arg(begun.place)
            .arg(QString::fromUtf8(begun.look));
    }
};

/// A project or a processor.
struct SDocument
{
    SStates shown;         ///< on the canvas
    SStates stored;        ///< in its file, or by the processor
    QSet<QByteArray> seen; ///< all that was ever told of it
};

} // namespace

/// The program is killed at any moment, again and again: after the next start everything is on the canvas
/// that was there, saved or not, every file is whole, and nothing strays.
class CKillsTest final : public CTestBase
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    SDocument m_project;
    SDocument m_device;
    QString m_mapping;    ///< the processor's file
    int m_tableLines = 0; ///< that are there
    int m_begunLines = 0; ///< that may be, too
    QByteArray m_last;    ///< line
    QHash<QByteArray, int> m_counts;

    /// Takes in what a process says. Returns what is wrong; empty: nothing.
    QString note(const QByteArray &line)
    {
        const QList<QByteArray> words = line.split(' ');
        m_last = line;
        ++m_counts[words.first()];
        if (words.first() == "exporting")
            m_begunLines = words.at(1).toInt();
        if (words.first() == "exported")
            m_tableLines = m_begunLines;
        if (words.size() != 4)
            return words.first() == "failed" ? QString::fromUtf8(line) : QString();
        SDocument &document = words.at(1) == "project" ? m_project : m_device;
        const SWallState state{words.at(2).toInt(), words.at(3) == "?" ? QByteArray() : words.at(3)};
        const bool isNew = !document.seen.contains(state.edited());
        document.seen.insert(state.edited());
        if (words.first() == "will")
            document.shown.begun = state;
        else if (words.first() == "did")
            document.shown.settle(state);
        else if (words.first() == "saving")
            document.stored.begun = state;
        else if (words.first() == "saved")
            document.stored.settle(state);
        else if (words.first() == "undone" && isNew)
            return QString::fromUtf8(line + ": it was never like that");
        else if (words.first() == "found" && !document.shown.allow(state))
            return QString::fromUtf8(line) + QStringLiteral(", but ") + document.shown.text();
        else if (words.first() == "found")
            document.shown.settle(state);
        return {};
    }

    static QString check(const char *what, SDocument &document, const CabinetLayout &layout)
    {
        const SWallState state = SWallState::of(layout);
        if (!document.stored.allow(state))
            return QStringLiteral("%1 has stored %2 %3, but %4")
                .arg(QLatin1String(what))
                .arg(state.place)
                .arg(QString::fromUtf8(state.look), document.stored.text());
        document.stored.settle(state);
        return {};
    }

    QString faultOnDisk()
    {
        const auto project = CProcessorProject::read(CDoomedUser::projectFile(m_folder.path()));
        if (!project)
            return project.error();
        const QByteArray table = ProjectSamples::contentOf(CDoomedUser::exportFile(m_folder.path()));
        const int lines = table.count('\n');
        if (lines != m_tableLines && lines != m_begunLines)
            return QStringLiteral("the table has %1 lines").arg(lines);
        m_tableLines = m_begunLines = lines;
        const QString fault = check("the project", m_project, project.value().layout);
        if (!fault.isEmpty() || (!QFile::exists(m_mapping) && m_device.stored.sure.look.isEmpty()))
            return fault;
        const auto mapping = CProcessorCodec::mapping(ProjectSamples::contentOf(m_mapping), m_mapping);
        return mapping ? check("the processor", m_device, mapping.value().layout) : mapping.error();
    }

    void start(QProcess &process, quint32 seed, int killedCall)
    {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        variables.insert(QStringLiteral("ORVO_DOOMED"), m_folder.path());
        variables.insert(QStringLiteral("ORVO_DOOMED_SEED"), QString::number(seed));
        for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
            variables.insert(QLatin1String(name), m_folder.filePath(QStringLiteral("config")));
#ifdef ORVO_FAULT_SHIM
        variables.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(ORVO_FAULT_SHIM));
        variables.insert(QStringLiteral("ORVO_FAULT"), QStringLiteral("%1 5 k 0").arg(killedCall));
        variables.insert(QStringLiteral("ORVO_FAULT_FOLDER"), m_folder.path());
        variables.insert(QStringLiteral("ORVO_FAULT_REPORT"), QStringLiteral("/dev/null"));
#else
        Q_UNUSED(killedCall)
#endif
        process.setProcessEnvironment(variables);
        process.start(QCoreApplication::applicationFilePath(), QStringList());
    }

    /// Lets a process work, and kills it. Returns what is wrong; empty: nothing.
    QString killOne(quint32 seed)
    {
        QRandomGenerator random(seed);
        QProcess process;
        const bool atCall = random.bounded(2);
        start(process, seed, atCall ? 1 + random.bounded(MostCalls) : 0);
        int linesLeft = 1 + random.bounded(MostLines);
        QString fault;
        while (linesLeft > 0 && fault.isEmpty() && process.waitForReadyRead(2 * PatienceMilliseconds)) {
            for (; process.canReadLine() && fault.isEmpty(); --linesLeft)
                fault = note(process.readLine().trimmed());
        }
        const bool stuck = linesLeft > 0 && fault.isEmpty() && process.state() == QProcess::Running;
        std::this_thread::sleep_for(std::chrono::microseconds(random.bounded(MostMicroseconds)));
        process.kill();
        process.waitForFinished(PatienceMilliseconds);
        while (fault.isEmpty() && process.canReadLine())
            fault = note(process.readLine().trimmed());
        if (!fault.isEmpty())
            return fault;
        if (stuck)
            return QStringLiteral("does not go on after \"%1\"").arg(QString::fromUtf8(m_last));
        if (process.exitStatus() != QProcess::CrashExit || process.exitCode() != SIGKILL)
            return QStringLiteral("ended by itself after \"%1\": %2")
                .arg(QString::fromUtf8(m_last), QString::fromUtf8(process.readAllStandardError()));
        return faultOnDisk();
    }

private Q_SLOTS:
    void initTestCase()
    {
        SProcessorProject wall = ProjectSamples::ofWall(CWallBuilder::Small);
        for (const QString &file :
             {CDoomedUser::projectFile(m_folder.path()), CDoomedUser::otherProjectFile(m_folder.path())}) {
            QVERIFY(QDir().mkpath(QFileInfo(file).path()));
            wall.name = QFileInfo(file).baseName();
            QVERIFY(CProcessorProject::write(file, wall));
        }
        m_project.shown.settle(SWallState::of(wall.layout));
        m_project.stored = m_project.shown;
        const QString state = CDoomedUser::stateFolder(m_folder.path());
        const CSimulatedPark park(state, 0);
        for (const CSimulatedPark::Processor &processor : park.processors()) {
            if (processor->identity().name == QLatin1String(CDoomedUser::DeviceName))
                m_mapping = CProcessorStateFiles(state, processor->identity().uuid).mappingFile();
        }
    }

    void nothingThatWasOnTheScreenIsLost()
    {
        const int rounds = given("ORVO_KILL_ROUNDS", UsualRounds);
        const int firstSeed = given("ORVO_KILL_SEED", 13);
        QRandomGenerator seeds(static_cast<quint32>(firstSeed));
        for (int round = 0; round < rounds; ++round) {
            const QString fault = killOne(seeds.generate());
            QVERIFY2(
                fault.isEmpty(),
                qPrintable(
                    QStringLiteral("ORVO_KILL_SEED=%1, round %2: %3").arg(firstSeed).arg(round).arg(fault)));
        }
        QStringList counts;
        for (auto count = m_counts.constBegin(); count != m_counts.constEnd(); ++count)
            counts << QStringLiteral("%1 %2").arg(QString::fromUtf8(count.key())).arg(count.value());
        qInfo("%s", qPrintable(counts.join(QStringLiteral(", "))));
        QVERIFY(m_counts.value("restoring") > 0 && m_counts.value("undone") > 0);
    }
};

int main(int argc, char **argv)
{
    const QString folder = qEnvironmentVariable("ORVO_DOOMED");
    if (folder.isEmpty()) {
        const CTestEnvironment environment;
        const QApplication application(argc, argv);
        CKillsTest test;
        return QTest::qExec(&test, argc, argv);
    }
    const QApplication application(argc, argv);
    CSafeFile::setNote([](const QString &file, CSafeFile::Previous previous) {
        CAppSettings().addWritten(file, previous == CSafeFile::DropPrevious);
    });
    initLayoutResources();
    registerRecordMetaTypes();
    CTheme::apply(*qApp);
    return CDoomedUser(folder, quint32(qEnvironmentVariable("ORVO_DOOMED_SEED").toULongLong())).run();
}
#include "tst_kills.moc"
