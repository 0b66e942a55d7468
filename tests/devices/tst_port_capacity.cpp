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
    void carriesWhatTheTableOfItsGenerationSays()
    {
        const auto capacity = [](const char *id, int hertz, int bits, bool threeD = false) {
            return CPortCapacity::capacity(generation(QLatin1String(id)), {hertz, bits, threeD});
        };
        QCOMPARE(capacity("current", 60, 8), qint64(659722));
        QCOMPARE(capacity("current", 60, 12), qint64(329861));
        QCOMPARE(capacity("current", 240, 12), qint64(82465));
        QCOMPARE(capacity("current", 60, 8, true), qint64(327680));
        QCOMPARE(capacity("current", 240, 8, true), qint64(164930)); // less than 3D allows
        QCOMPARE(capacity("older", 60, 8), qint64(650000));
        QCOMPARE(capacity("older", 60, 12), qint64(0));
        QCOMPARE(capacity("low-rate", 60, 12), qint64(350000));
        QCOMPARE(capacity("fine-grain", 60, 12), qint64(425000));
        QCOMPARE(capacity("current", 0, 8), qint64(0));
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
        QCOMPARE(CPortCapacity::percent(1, 659722), 1); // loads are rounded up
        QCOMPARE(CPortCapacity::percent(659722, 659722), 100);
        QCOMPARE(CPortCapacity::percent(659723, 659722), 101);
        QCOMPARE(CPortCapacity::percent(0, 0), 0);
        QVERIFY(CPortCapacity::percent(1, 0) > 100);
        QCOMPARE(CPortCapacity::percent(qint64(1) << 40, qint64(1) << 40), 100);
        const SProcessorKind kind = *CProcessorKinds::builtIn().find(QStringLiteral("c20"));
        QCOMPARE(CPortCapacity::load(kind, {}, 318750, 9000000), 50);
        QCOMPARE(CPortCapacity::load(kind, {}, 318750, 9000001), 101);
        QCOMPARE(CPortCapacity::load(kind, {}, 0, 9000001), 0);
        QCOMPARE(CPortCapacity::load(kind, {}, 1275000, 9000001), 200);
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

    void refusesKindsThatLackSomething()
    {
        const QByteArray kind =
            "{\"id\":\"k\",\"name\":\"K\",\"ports\":2,\"generation\":\"g\",\"pixelLimit\":9,"
            "\"canvas\":{\"width\":1,\"height\":1,\"area\":1},\"frameRates\":[60]}";
        const QByteArray whole = "{\"generations\":[{\"id\":\"g\",\"netBitsPerSecond\":1000,"
                                 "\"wireBits\":{\"8\":24}}],\"kinds\":[" +
                                 kind + "]}";
        QVERIFY(bool(CProcessorKinds::fromJson(whole)));
        for (const QByteArray &wrong : {whole.chopped(1), QByteArray(whole).replace(kind, kind + "," + kind),
                                        QByteArray(whole).replace("\"id\":\"g\"", "\"id\":\"h\""),
                                        QByteArray(whole).replace("\"ports\":2", "\"ports\":0"),
                                        QByteArray(whole).replace(":24", ":0")})
            QVERIFY2(CProcessorKinds::fromJson(wrong).error().startsWith(QLatin1String("Processor kinds: ")),
                     wrong.constData());
    }

    void findsTheSmallestKindThatIsLargeEnough()
    {
        QCOMPARE(CProcessorKinds::builtIn().withPorts(4)->ports, 4);
        QCOMPARE(CProcessorKinds::builtIn().withPorts(5)->ports, 8);
        QVERIFY(!CProcessorKinds::builtIn().withPorts(81));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CPortCapacityTest)
#include "tst_port_capacity.moc"
