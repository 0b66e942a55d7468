// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/SDevice.h"
#include "host/devices/simulated/CPortCapacity.h"
#include "host/devices/simulated/CProcessorKinds.h"
#include "tests/harness/CTestBase.h"

namespace {

CabinetLayout::CabinetPort portOf(const QVector<QRect> &rects)
{
    CabinetLayout::CabinetPort port;
    CabinetLayout::CabinetPort::CabinetGroup outer;
    CabinetLayout::CabinetPort::CabinetGroup inner;
    for (int i = 0; i < rects.size(); ++i) {
        CabinetLayout::CabinetPort::Cabinet cabinet;
        cabinet.rect = rects.at(i);
        (i % 2 ? inner : outer).cabinets << cabinet; // cabinets of inner groups count as well
    }
    outer.groups << inner;
    port.groups << outer;
    return port;
}

SReceiverGeneration generation(const QString &id)
{
    for (const SProcessorKind &kind : CProcessorKinds::builtIn().all()) {
        if (kind.generation.id == id)
            return kind.generation;
    }
    return {};
}

} // namespace

class CPortCapacityTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void carriesWhatTheTableOfItsGenerationSays_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<int>("hertz");
        QTest::addColumn<int>("bits");
        QTest::addColumn<bool>("threeD");
        QTest::addColumn<qint64>("pixels");
        const auto row = [](const char *id, int hertz, int bits, bool threeD, qint64 pixels) {
            QTest::addRow("%s %d Hz %d bit%s", id, hertz, bits, threeD ? " 3D" : "")
                << QString::fromLatin1(id) << hertz << bits << threeD << pixels;
        };
        row("current", 60, 8, false, 659722);
        row("current", 60, 10, false, 494791);
        row("current", 60, 12, false, 329861);
        row("current", 50, 8, false, 791666);
        row("current", 240, 12, false, 82465);
        row("current", 60, 8, true, 327680);
        row("current", 240, 8, true, 164930); // less than 3D allows
        row("older", 60, 8, false, 650000);
        row("older", 60, 10, false, 325000);
        row("older", 60, 12, false, 0);
        row("low-rate", 60, 8, false, 525000);
        row("low-rate", 60, 12, false, 350000);
        row("fine-grain", 60, 10, false, 510000);
        row("fine-grain", 60, 12, false, 425000);
        row("current", 0, 8, false, 0);
    }
    void carriesWhatTheTableOfItsGenerationSays()
    {
        QFETCH(QString, id);
        QFETCH(int, hertz);
        QFETCH(int, bits);
        QFETCH(bool, threeD);
        QTEST(CPortCapacity::capacity(generation(id), {hertz, bits, threeD}), "pixels");
    }

    void roundsLoadsUp()
    {
        QCOMPARE(CPortCapacity::percent(0, 659722), 0);
        QCOMPARE(CPortCapacity::percent(1, 659722), 1);
        QCOMPARE(CPortCapacity::percent(659722, 659722), 100);
        QCOMPARE(CPortCapacity::percent(659723, 659722), 101);
        QCOMPARE(CPortCapacity::percent(0, 0), 0);
        QVERIFY(CPortCapacity::percent(1, 0) > 100);
        QCOMPARE(CPortCapacity::percent(qint64(1) << 40, qint64(1) << 40), 100);
    }

    void chargesTheSumOrTheRectangleAroundIt()
    {
        const auto apart = portOf({{0, 0, 100, 100}, {300, 0, 100, 100}, {0, 100, 50, 50}});
        QCOMPARE(CPortCapacity::charged(generation(QStringLiteral("current")), apart), qint64(22500));
        QCOMPARE(CPortCapacity::charged(generation(QStringLiteral("older")), apart), qint64(400 * 150));
        QCOMPARE(CPortCapacity::charged(generation(QStringLiteral("older")), {}), qint64(0));
    }

    void showsTheOverloadOfTheWholeProcessorOnPortsInUse()
    {
        const SProcessorKind *kind = CProcessorKinds::builtIn().find(QStringLiteral("c20"));
        QVERIFY(kind);
        const CPortCapacity::SSignal signal;
        QCOMPARE(CPortCapacity::load(*kind, signal, 318750, 9000000), 50);
        QCOMPARE(CPortCapacity::load(*kind, signal, 318750, 9000001), 101);
        QCOMPARE(CPortCapacity::load(*kind, signal, 0, 9000001), 0);
        QCOMPARE(CPortCapacity::load(*kind, signal, 1275000, 9000001), 200);
    }

    void replacesTheWorkingPortByTheOneAskedFor()
    {
        SDevice device;
        device.kind = *CProcessorKinds::builtIn().find(QStringLiteral("c4"));
        device.settings.portCount = 4;
        CabinetLayout layout;
        for (int i = 0; i < 4; ++i) {
            layout.ports << portOf({{0, 0, 600, 1000}}); // 2.4 of 2.6 million in all
            layout.ports.last().index = i;
        }
        device.takeLayout(layout);
        QCOMPARE(device.portLoad(layout.ports.at(2), 2), 91);
        QCOMPARE(device.portLoad(portOf({{0, 0, 600, 500}}), 2), 46);
        QCOMPARE(device.portLoad(portOf({{0, 0, 1000, 1000}}), 2), 152); // 2.8 million: 108 % in all
        device.settings.colorDepth = 10;
        QCOMPARE(device.portLoad(layout.ports.at(2), 2), 122);
    }

    void refusesKindsThatLackSomething_data()
    {
        QTest::addColumn<QByteArray>("content");
        const QByteArray generations = "\"generations\":[{\"id\":\"g\",\"netBitsPerSecond\":1000,"
                                       "\"wireBits\":{\"8\":24}}]";
        const QByteArray kind =
            "{\"id\":\"k\",\"name\":\"K\",\"ports\":2,\"generation\":\"g\",\"pixelLimit\":9,"
            "\"canvas\":{\"width\":1,\"height\":1,\"area\":1},\"frameRates\":[60]}";
        const QByteArray whole = "{" + generations + ",\"kinds\":[" + kind + "]}";
        QVERIFY(bool(CProcessorKinds::fromJson(whole)));
        QTest::newRow("not JSON") << whole.left(whole.size() / 2);
        QTest::newRow("nothing") << QByteArray("{}");
        QTest::newRow("twice") << QByteArray("{" + generations + ",\"kinds\":[" + kind + "," + kind + "]}");
        QTest::newRow("no generation") << QByteArray("{\"kinds\":[" + kind + "]}");
        QTest::newRow("no ports") << QByteArray(whole).replace("\"ports\":2", "\"ports\":0");
        QTest::newRow("no bits") << QByteArray(whole).replace(":24", ":0");
    }
    void refusesKindsThatLackSomething()
    {
        QFETCH(QByteArray, content);
        const CResult<CProcessorKinds> kinds = CProcessorKinds::fromJson(content);
        QVERIFY(!kinds);
        QVERIFY(kinds.error().startsWith(QLatin1String("Processor kinds: ")));
    }

    void findsTheSmallestKindThatIsLargeEnough()
    {
        const CProcessorKinds &kinds = CProcessorKinds::builtIn();
        for (const int ports : {4, 10, 16, 20, 80})
            QCOMPARE(kinds.withPorts(ports)->ports, ports);
        QCOMPARE(kinds.withPorts(5)->ports, 8);
        QVERIFY(!kinds.withPorts(81));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CPortCapacityTest)
#include "tst_port_capacity.moc"
