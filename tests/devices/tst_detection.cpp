// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/jobs/CDetection.h"
#include "host/devices/services/CSimulatedPark.h"
#include "host/devices/simulated/CSimulatedProcessor.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"

#include <QSet>
#include <QSignalSpy>

/// What a search for processors finds, and what it leaves alone.
class CDetectionTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void detectingAgainKeepsEditsAndTakesChanges()
    {
        CDeviceFixture host;
        QCOMPARE(host.handler.getDetectedProcessorCount(), 6);
        QCOMPARE(host.layoutOf(host.stage).cabinetCount(), 240);
        QVERIFY(!host.manager.table().isModified(host.stage));
        const QUuid foyer = host.named("Foyer");
        host.edit(host.lobby);
        QVERIFY(host.log.waitFor(30).endsWith(CDeviceFixture::idOf(host.lobby)));
        const CabinetLayout edited = host.layoutOf(host.lobby);
        const CabinetLayout before = host.layoutOf(host.stage);
        host.manager.simulate(host.lobby, SimulationFault::Changed, true);
        host.manager.simulate(host.stage, SimulationFault::Changed, true);
        host.manager.simulate(foyer, SimulationFault::Offline, false);
        host.manager.simulate(host.named("Arena"), SimulationFault::Offline, true);
        host.log.take();
        QVERIFY(host.detect().isDone());
        QVERIFY(host.layoutOf(host.lobby) == edited);
        QVERIFY(host.layoutOf(host.stage) != before);
        QVERIFY(host.handler.getProcessorNode(foyer).online);
        QVERIFY(!host.handler.getProcessorNode(host.named("Arena")).online);
        QStringList told = host.notifiedUpToDetection();
        told.removeDuplicates(); // unsaved edits may be told of again once the module knows the layout
        QVERIFY(told.contains(QStringLiteral("17 ") + CDeviceFixture::idOf(host.stage)));
        QVERIFY(told.contains(QStringLiteral("22 %1 1").arg(CDeviceFixture::idOf(foyer))));
        QVERIFY(told.contains(QStringLiteral("30 ") + CDeviceFixture::idOf(host.stage)));
        QCOMPARE(told.size(), 5);
    }

    void aProcessorComesBackByItselfWhenItAnswersAgain()
    {
        CDeviceFixture host;
        host.select(host.lobby);
        host.manager.simulate(host.lobby, SimulationFault::Offline, true);
        host.detect();
        QVERIFY(!host.manager.table().isOnline(host.lobby));
        host.edit(host.lobby);
        const CabinetLayout edited = host.layoutOf(host.lobby);
        host.notifiedUpToDetection();
        host.manager.offlineWatch().start(1);
        const QUuid foyer = host.named("Foyer"); // was never online
        host.manager.simulate(host.stage, SimulationFault::Silent, true);
        QVERIFY(host.log.waitFor(22).endsWith(QLatin1String(" 0")));
        for (const QUuid &processor : {foyer, host.lobby})
            host.manager.simulate(processor, SimulationFault::Offline, false);
        host.manager.simulate(host.stage, SimulationFault::Silent, false);
        const CDeviceTable &table = host.manager.table();
        QTRY_VERIFY(table.isOnline(host.lobby) && table.isOnline(foyer) && table.isOnline(host.stage));
        QVERIFY(host.log.waitFor(22).endsWith(QLatin1String(" 1")));
        QVERIFY(host.layoutOf(host.lobby) == edited);
        QSet<int> indices;
        for (const SDevice &device : table.devices())
            indices << device.node.index;
        QCOMPARE(indices, (QSet<int>{0, 1, 2, 3, 4, 5, 6}));
    }

    void aDetectionThatFailsSomewhereSaysWhere()
    {
        CDeviceFixture host(0.01);
        for (const auto &processor : host.manager.services().park().processors())
            host.manager.simulate(processor->identity().uuid, SimulationFault::Damaged,
                                  processor->identity().name == QLatin1String("Lobby"));
        const SDeviceOutcome outcome = host.detect();
        QCOMPARE(outcome.result, SDeviceOutcome::Failed);
        QCOMPARE(outcome.text, QStringLiteral("Lobby(192.168.10.11): The transferred data arrived damaged."));
        QVERIFY(!host.handler.getProcessorNode(host.named("Lobby")).online);
        QCOMPARE(host.handler.getDetectedProcessorCount(), 5);
    }

    void whatAProcessorWasSetToElsewhereIsTakenOverAndAnnounced()
    {
        CDeviceFixture host;
        SProcessorSettings settings = host.manager.table().device(host.stage)->settings;
        settings.canvas = {3840, 1920};
        settings.workMode = ProcessorWorkMode::FiberTransceiver;
        settings.colorDepth = 12;
        settings.portCount = 15;
        settings.statusLed = true;
        settings.portAreas = {{3, 1, 2, 30, 40}};
        QSignalSpy led(&host.manager.announcer(), &CDeviceAnnouncer::notifyStatusLedChanged);
        QCOMPARE(host.manager.services().device(host.stage)->apply(settings), DeviceError::None);
        host.detect();
        const QStringList told = host.notifiedUpToDetection();
        const QString id = CDeviceFixture::idOf(host.stage);
        for (const QString &text : {QStringLiteral("21 %1 3840 1920").arg(id), QStringLiteral("6"),
                                    QStringLiteral("24 %1 -1").arg(id), QStringLiteral("17 ") + id,
                                    QStringLiteral("22 %1 1").arg(id)})
            QVERIFY2(told.contains(text), qPrintable(text));
        QVERIFY(host.manager.table().device(host.stage)->settings == settings);
        QVERIFY(host.handler.isFiberTransceiverMode(host.stage));
        QCOMPARE(host.handler.getProcessorNode(host.stage).colorDepth, 12);
        QTRY_COMPARE(led.size(), 1);
        QCOMPARE(host.layoutOf(host.stage).ports.size(), 15);
        QVERIFY(!host.manager.table().isModified(host.stage));
        settings.portCount = 14; // the last of the others holds cabinets
        QCOMPARE(host.manager.services().device(host.stage)->apply(settings), DeviceError::None);
        host.detect();
        QCOMPARE(host.handler.outputPortCount(host.stage), 15);
        QCOMPARE(host.layoutOf(host.stage).cabinetCount(), 240);
    }

    void whatChangesDuringADetectionOutlivesItsAnswers()
    {
        for (const QByteArray &change :
             {QByteArray("mode"), QByteArray("depth"), QByteArray("offline"), QByteArray("layout")}) {
            CDeviceFixture host;
            host.select(host.lobby);
            host.manager.simulate(host.lobby, SimulationFault::Changed, true); // so that its mapping is read
            SDevice changed;
            const auto act = [&] {
                if (change == "mode")
                    QVERIFY(host.handler.setWorkMode(host.lobby, ProcessorWorkMode::FiberTransceiver));
                if (change == "depth")
                    QVERIFY(host.handler.setFrameRateAndColorDepth(50, 12));
                if (change == "layout")
                    host.edit(host.lobby);
                if (change == "offline") {
                    host.manager.simulate(host.lobby, SimulationFault::Offline, true);
                    QVERIFY(!host.handler.setCabinetStatusLed(true));
                }
                changed = *host.manager.table().device(host.lobby);
            };
            bool acted = false;
            SJobContext context;
            context.cancel = std::make_shared<CCancelToken>();
            context.report = [&](int percent, const QString &) {
                if (!acted && percent > 100 / 7 && percent < 200 / 7) { // the second of seven is being read
                    acted = true;
                    act();
                }
                host.manager.simulate(host.lobby, SimulationFault::Offline, false); // it goes on answering
            };
            QVERIFY(CDetection(host.manager.services(), context).run().isDone());
            QVERIFY(acted);
            const SDevice after = *host.manager.table().device(host.lobby);
            QVERIFY(after.settings == changed.settings);
            QCOMPARE(after.node.online, changed.node.online);
            QCOMPARE(after.node.fiberTransceiver, changed.node.fiberTransceiver);
            QCOMPARE(after.node.colorDepth, changed.node.colorDepth);
            QCOMPARE(after.working.layout() == changed.working.layout(), change == "layout");
        }
    }
};

ORVO_TEST_MAIN(QGuiApplication, CDetectionTest)
#include "tst_detection.moc"
