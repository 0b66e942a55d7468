// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/SAppOptions.h"
#include "tests/harness/CTestBase.h"

namespace {

CResult<SAppOptions> parse(const QString &line)
{
    return SAppOptions::parse(
        QStringLiteral("orvo %1").arg(line).split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

} // namespace

class CAppOptionsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void understandsEverythingAtOnce()
    {
        const auto options = parse(QStringLiteral("a.sprj --demo --state /some/folder --simulate slow=Lobby "
                                                  "--simulate drop=Arena --detect b.sprj"));
        QVERIFY2(options, qPrintable(options.error()));
        QCOMPARE(options.value().files, QStringList({QStringLiteral("a.sprj"), QStringLiteral("b.sprj")}));
        QVERIFY(options.value().demo);
        QVERIFY(options.value().detect);
        QCOMPARE(options.value().stateFolder, QStringLiteral("/some/folder"));
        QCOMPARE(options.value().simulations.size(), 2);
        QCOMPARE(int(options.value().simulations.at(0).fault), int(SimulationFault::Slow));
        QCOMPARE(options.value().simulations.at(1).processor, QStringLiteral("Arena"));
    }

    void aProcessorNameMayHoldAnything()
    {
        const auto options =
            SAppOptions::parse({QStringLiteral("orvo"), QStringLiteral("--simulate=silent=Side left = 2")});
        QVERIFY(options);
        QCOMPARE(options.value().simulations.value(0).processor, QStringLiteral("Side left = 2"));
    }

    void everythingThatCanBeSimulatedHasANameAndAnEnd()
    {
        for (const char *name : {"offline", "slow", "silent", "refuse", "drop", "damaged", "changed",
                                 "bypass", "fiber", "3d", "low-latency", "frozen", "polling", "hdmi"}) {
            for (const bool on : {true, false}) {
                const QString text = QLatin1String(on ? "" : "no-") + QLatin1String(name);
                const auto options = parse(QStringLiteral("--simulate %1=Lobby").arg(text));
                QVERIFY2(options, name);
                const SAppOptions::SSimulation simulation = options.value().simulations.first();
                QCOMPARE(simulation.on, on);
                QCOMPARE(SSimulationFault::all().at(int(simulation.fault)).name, name);
            }
        }
    }

    void refusesWhatItDoesNotKnow_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("named");
        QTest::newRow("option") << QStringLiteral("--bogus") << QStringLiteral("bogus");
        QTest::newRow("short option") << QStringLiteral("-x") << QStringLiteral("x");
        QTest::newRow("fault") << QStringLiteral("--simulate explode=Lobby") << QStringLiteral("explode");
        QTest::newRow("no processor") << QStringLiteral("--simulate slow") << QStringLiteral("slow");
        QTest::newRow("empty processor") << QStringLiteral("--simulate slow=") << QStringLiteral("slow=");
        QTest::newRow("no fault") << QStringLiteral("--simulate =Lobby") << QStringLiteral("=Lobby");
        QTest::newRow("no folder") << QStringLiteral("--state") << QStringLiteral("state");
        QTest::newRow("empty folder") << QStringLiteral("--state=") << QStringLiteral("state");
        QTest::newRow("value for a switch") << QStringLiteral("--demo=1") << QStringLiteral("demo");
    }
    void refusesWhatItDoesNotKnow()
    {
        QFETCH(QString, line);
        QFETCH(QString, named);
        const auto options = parse(line);
        QVERIFY(!options);
        QVERIFY2(options.error().contains(named), qPrintable(options.error()));
        QVERIFY2(options.error().contains(QStringLiteral("Usage: orvo")), qPrintable(options.error()));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CAppOptionsTest)
#include "tst_app_options.moc"
