// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CSafeFile.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/ProjectSamples.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cerrno>

namespace {

constexpr int Reasons[] = {ENOSPC, EIO, EACCES, EROFS, EDQUOT};
constexpr int PairsOfEach = 6;
constexpr int AllPairsOfEach = 300;

/// Which calls to the disk fail in a run of the program.
struct SFaults
{
    int number = 0; ///< 0: none
    int reason = EIO;
    char mode = 'o';
    int second = 0;

    QString text() const
    {
        return QStringLiteral("%1 %2 %3 %4").arg(number).arg(reason).arg(QLatin1Char(mode)).arg(second);
    }
};

bool isThorough()
{
    return qEnvironmentVariable("ORVO_FAULTS") == QLatin1String("all");
}

} // namespace

/// The command line while every single call to the disk fails, once or from then on, and two of them at once.
class CCommandFaultsTest final : public CTestBase
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    QTemporaryDir m_source;
    int m_status = 0;
    QString m_errors;
    QByteArrayList m_failed; ///< the names of the calls
    QByteArray m_table;      ///< of the wall

    QString file(const QString &name) const { return m_folder.filePath(name); }

    /// Runs the program; returns whether a call has failed.
    bool run(const QStringList &arguments, const SFaults &faults)
    {
        const QString report = m_source.filePath(QStringLiteral("report"));
        QFile::remove(report);
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        variables.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(ORVO_FAULT_SHIM));
        variables.insert(QStringLiteral("ORVO_FAULT"), faults.text());
        variables.insert(QStringLiteral("ORVO_FAULT_FOLDER"), m_folder.path());
        variables.insert(QStringLiteral("ORVO_FAULT_REPORT"), report);
        QProcess process;
        process.setProcessEnvironment(variables);
        process.start(QStringLiteral(ORVO_PROGRAM), arguments);
        const bool ended = process.waitForFinished(PatienceMilliseconds);
        m_status = ended && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        m_errors = QString::fromUtf8(process.readAllStandardError());
        m_failed = ProjectSamples::contentOf(report).split('\n');
        m_failed.removeAll(QByteArray());
        return !m_failed.isEmpty();
    }

    bool isWhole(const QString &written) const
    {
        const QByteArray content = ProjectSamples::contentOf(written);
        if (written.endsWith(QLatin1String("sprj")))
            return bool(CProcessorProject::read(written));
        if (written.endsWith(QLatin1String("pdf")))
            return content.startsWith("%PDF") && content.trimmed().endsWith("%%EOF");
        if (written.endsWith(QLatin1String("svg")))
            return content.trimmed().endsWith("</svg>");
        return written.endsWith(QLatin1String("png")) ? content.contains("IEND") : content == m_table;
    }

    /// What is wrong after the program has run; empty: nothing.
    QString faultOf(const QString &written, const SFaults &faults)
    {
        const bool replaced = ProjectSamples::contentOf(written) != "old";
        if (m_status != 0 && m_status != 1)
            return QStringLiteral("ends with status %1").arg(m_status);
        if (replaced ? !isWhole(written) : m_status == 0)
            return QStringLiteral("neither the old file nor the new one, or a success that is none");
        const bool unwritten =
            faults.mode != 's' && (m_failed.contains("write") || m_failed.contains("sync"));
        if (m_status == 0 && unwritten)
            return QStringLiteral("says that it was written");
        if (m_status != 0 && faults.mode == 's' && m_failed == QByteArrayList{"write"})
            return QStringLiteral("gives up where only a part was written at first");
        const bool told = m_errors.startsWith(QLatin1String("orvo: ")) && m_errors.contains(written) &&
                          m_errors.count(QLatin1Char('\n')) == 1;
        if (m_status == 0 ? !m_errors.isEmpty() : !told)
            return QStringLiteral("says \"%1\"").arg(m_errors);
        CSafeFile::cleanAround(written); // as the next start does
        QStringList names = QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden);
        names.removeAll(QFileInfo(written).fileName());
        names.removeAll(QFileInfo(written).fileName() + QLatin1Char('~'));
        return names.isEmpty() ? QString() : QStringLiteral("leaves ") + names.join(QLatin1Char(' '));
    }

    QString faultOfRun(const QStringList &arguments, const QString &written, const SFaults &faults,
                       bool &failed)
    {
        ProjectSamples::setContent(written, "old");
        ProjectSamples::setContent(written + QLatin1Char('~'), "older");
        failed = run(arguments, faults);
        const QString fault = faultOf(written, faults);
        return fault.isEmpty() ? fault
                               : QStringLiteral("%1 (%2): %3")
                                     .arg(faults.text(), QString::fromLatin1(m_failed.join(' ')), fault);
    }

private Q_SLOTS:
    void initTestCase()
    {
        const SProcessorProject wall = ProjectSamples::ofWall(CWallBuilder::Small);
        QVERIFY(CProcessorProject::write(m_source.filePath(QStringLiteral("wall.sprj")), wall));
        const QString table = m_source.filePath(QStringLiteral("table.csv"));
        run({QStringLiteral("export"), m_source.filePath(QStringLiteral("wall.sprj")), table}, SFaults());
        m_table = ProjectSamples::contentOf(table);
        QVERIFY(m_status == 0 && !m_table.isEmpty());
    }

    void losesNothingAndTellsTheFile_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("written");
        const auto row = [this](const char *name, const QStringList &arguments) {
            const QString target = file(QLatin1String(name));
            QTest::newRow(name) << (QStringList(arguments) << target) << target;
        };
        const QString wall = m_source.filePath(QStringLiteral("wall.sprj"));
        row("table.csv", {QStringLiteral("export"), wall});
        row("plan.pdf", {QStringLiteral("export"), wall});
        if (isThorough()) {
            row("picture.png", {QStringLiteral("export"), wall});
            row("picture.svg", {QStringLiteral("export"), wall});
        }
        const QString target = file(QStringLiteral("new.sprj"));
        QTest::newRow("new.sprj") << QStringLiteral("new %1 --cabinet 128x128 --columns 4 --rows 3 --ports 2")
                                         .arg(target)
                                         .split(QLatin1Char(' '))
                                  << target;
    }
    void losesNothingAndTellsTheFile()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, written);
        for (const QString &name : QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden))
            QFile::remove(file(name));
        int calls = 0;
        bool failed = true;
        for (const char mode : {'o', 'a', 's'}) {
            for (int number = 1; failed; ++number) {
                for (int i = 0; i < (isThorough() ? int(std::size(Reasons)) : 1) && failed; ++i) {
                    const SFaults faults{number, Reasons[(number + i) % int(std::size(Reasons))], mode, 0};
                    const QString fault = faultOfRun(arguments, written, faults, failed);
                    QVERIFY2(fault.isEmpty(), qPrintable(fault));
                }
                calls = number;
            }
            QVERIFY2(calls > 8, "the calls are not seen");
            failed = true;
        }
        QRandomGenerator random(13);
        for (int i = isThorough() ? AllPairsOfEach : PairsOfEach; i > 0; --i) {
            const SFaults faults{1 + random.bounded(calls), Reasons[random.bounded(int(std::size(Reasons)))],
                                 'o', 1 + random.bounded(calls)};
            const QString fault = faultOfRun(arguments, written, faults, failed);
            QVERIFY2(fault.isEmpty(), qPrintable(fault));
        }
    }
};

ORVO_TEST_MAIN(QCoreApplication, CCommandFaultsTest)
#include "tst_command_faults.moc"
