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
        const auto parsed = parse(QStringLiteral("a.sprj --demo --state /some/folder --simulate slow=Lobby "
                                                 "--simulate drop=Side=2 --detect b.sprj"));
        QVERIFY2(parsed, qPrintable(parsed.error()));
        const SAppOptions &options = parsed.value();
        QCOMPARE(options.files, QStringList({QStringLiteral("a.sprj"), QStringLiteral("b.sprj")}));
        QVERIFY(options.demo && options.detect);
        QCOMPARE(options.stateFolder, QStringLiteral("/some/folder"));
        QCOMPARE(options.simulations.size(), 2);
        QCOMPARE(int(options.simulations.at(0).fault), int(SimulationFault::Slow));
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

    void refusesWhatItDoesNotKnow_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("named");
        const auto row = [](const char *line, const char *named) {
            QTest::newRow(line) << QString::fromLatin1(line) << QString::fromLatin1(named);
        };
        row("--bogus", "bogus");
        row("--simulate explode=Lobby", "explode");
        row("--simulate slow", "slow");
        row("--simulate slow=", "slow=");
        row("--simulate =Lobby", "=Lobby");
        row("--state", "state");
        row("--state=", "state");
        row("--demo=1", "demo");
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
