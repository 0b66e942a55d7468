// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/CTestBase.h"

#include <QProcess>

namespace {

struct SRun final
{
    SRun(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        ended =
            process.waitForFinished(2 * PatienceMilliseconds) && process.exitStatus() == QProcess::NormalExit;
        status = process.exitCode();
        output = QString::fromLocal8Bit(process.readAllStandardOutput());
        errors = QString::fromLocal8Bit(process.readAllStandardError());
    }
    bool ended = false;
    int status = -1;
    QString output;
    QString errors;
};

const QString ModuleFile = QStringLiteral(MODULE_FILE);

} // namespace

class CModuleTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void exportsItsEntryAlone()
    {
        const SRun nm(QStringLiteral("nm"),
                      {QStringLiteral("-D"), QStringLiteral("--defined-only"), ModuleFile});
        QVERIFY2(nm.ended && nm.status == 0, qPrintable(nm.errors));
        QStringList names;
        for (const QString &line : nm.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
            names << line.section(QLatin1Char(' '), -1);
        QCOMPARE(names, QStringList{QStringLiteral("Layout_Init")});
    }

    void endsCleanly()
    {
        // Without an out parameter the entry has no effect; otherwise: load, use, stop and quit.
        for (const QString &session : {QStringLiteral("null"), QStringLiteral("use")}) {
            const SRun run(QStringLiteral(SESSION_PROGRAM), {ModuleFile, session});
            QString errors = run.errors; // the platform without display cannot do one thing, and says so
            errors.remove(QStringLiteral("This plugin does not support propagateSizeHints()\n"));
            QVERIFY2(errors.isEmpty(), qPrintable(errors));
            QVERIFY(run.ended);
            QCOMPARE(run.status, 0);
        }
    }
};

ORVO_TEST_MAIN(QCoreApplication, CModuleTest)
#include "tst_module.moc"
