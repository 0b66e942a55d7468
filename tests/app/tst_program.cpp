// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/CTestBase.h"

#include <QProcess>
#include <QTemporaryDir>

#include <csignal>

/// What the program says and gives when it cannot open its window.
class CProgramTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void refusesInOneLine_data()
    {
        QTest::addColumn<QStringList>("environment");
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QStringList>("said");
        QTest::addColumn<int>("status");
        const auto row = [](const char *name, const QStringList &environment, const QStringList &arguments,
                            const QStringList &said, int status = 1) {
            QTest::newRow(name) << environment << arguments << said << status;
        };
        const QStringList noDisplay{QStringLiteral("no display found"), QStringLiteral("orvo --help")};
        row("no variable", {}, {}, noDisplay);
        row("nobody answers", {QStringLiteral("DISPLAY=:nonexistent")}, {},
            noDisplay + QStringList(QStringLiteral(":nonexistent")));
        row("platform without display", {QStringLiteral("QT_QPA_PLATFORM=xcb")}, {}, noDisplay);
        row("unknown platform", {QStringLiteral("QT_QPA_PLATFORM=bogus")}, {},
            noDisplay + QStringList(QStringLiteral("bogus")));
        row("neither command nor file", {}, {QStringLiteral("bogus")}, {QStringLiteral("\"bogus\"")}, 2);
        row("unknown processor", {QStringLiteral("QT_QPA_PLATFORM=offscreen")},
            {QStringLiteral("--simulate"), QStringLiteral("slow=Lobby"), QStringLiteral("--simulate"),
             QStringLiteral("slow=Nowhere")},
            {QStringLiteral("\"Nowhere\""), QStringLiteral("Main stage, Lobby")});
    }
    void refusesInOneLine()
    {
        QFETCH(QStringList, environment);
        QFETCH(QStringList, arguments);
        QFETCH(QStringList, said);
        QFETCH(int, status);
        const QTemporaryDir home;
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            variables.remove(QLatin1String(name));
        variables.insert(QStringLiteral("HOME"), home.path());
        for (const QString &variable : environment)
            variables.insert(variable.section(QLatin1Char('='), 0, 0), variable.section(QLatin1Char('='), 1));
        QProcess process;
        process.setProcessEnvironment(variables);
        process.start(QStringLiteral(ORVO_PROGRAM), arguments);
        QVERIFY(process.waitForFinished(PatienceMilliseconds));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), status);
        const QString errors = QString::fromLocal8Bit(process.readAllStandardError());
        QVERIFY2(errors.startsWith(QLatin1String("orvo: ")), qPrintable(errors));
        QVERIFY2(errors.count(QLatin1Char('\n')) == 1 && errors.endsWith(QLatin1Char('\n')),
                 qPrintable(errors));
        for (const QString &text : said)
            QVERIFY2(errors.contains(text), qPrintable(errors));
    }

    void aSignalEndsItInOrder_data()
    {
        QTest::addColumn<int>("number");
        QTest::newRow("terminate") << SIGTERM;
        QTest::newRow("interrupt") << SIGINT;
    }
    void aSignalEndsItInOrder()
    {
        QFETCH(int, number);
        const QTemporaryDir home;
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        variables.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
            variables.insert(QLatin1String(name), home.path());
        QProcess process;
        process.setProcessEnvironment(variables);
        process.start(QStringLiteral(ORVO_PROGRAM), {QStringLiteral("--demo"), QStringLiteral("--detect")});
        QVERIFY(process.waitForStarted(PatienceMilliseconds));
        const QString log = home.filePath(QStringLiteral("Velmarinth/Orvo/log/orvo.log"));
        QTRY_VERIFY(QFile::exists(log));
        QCOMPARE(::kill(static_cast<pid_t>(process.processId()), number), 0);
        QVERIFY(process.waitForFinished(PatienceMilliseconds));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 128 + number);
        QFile file(log);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("Ended by signal " + QByteArray::number(number)));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CProgramTest)
#include "tst_program.moc"
