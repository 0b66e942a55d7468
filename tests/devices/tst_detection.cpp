// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/jobs/CDetection.h"
#include "host/devices/services/CSimulatedPark.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"

namespace {

QString idOf(const QUuid &uuid)
{
    return uuid.toString(QUuid::WithoutBraces);
}

} // namespace

/// What a search finds, takes over and leaves alone.
class CDetectionTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void detectionFindsTheProcessorsAndSaysSo()
    {
        CDeviceFixture host;
        QCOMPARE(host.handler.getDetectedProcessorCount(), 6);
        const ProcessorTree::ProcessorNode stage = host.handler.getProcessorNode(host.named("Main stage"));
        QCOMPARE(stage.displayText(), QStringLiteral("Main stage(192.168.10.12)"));
        QCOMPARE(stage.model, QStringLiteral("C16"));
        QVERIFY(stage.online);
        QVERIFY(!host.handler.getProcessorNode(host.named("Foyer")).online);
        QVERIFY(host.handler.isFiberTransceiverMode(host.named("Balcony")));
        QCOMPARE(host.layoutOf(host.named("Main stage")).cabinetCount(), 240);
        QVERIFY(!host.manager.table().isModified(host.named("Main stage")));
    }

    void detectingAgainKeepsEditsAndTakesChanges()
    {
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        const QUuid stage = host.named("Main stage");
        host.edit(lobby);
        const CabinetLayout edited = host.layoutOf(lobby);
        const CabinetLayout before = host.layoutOf(stage);
        host.manager.simulate(lobby, SimulationFault::Changed, true);
        host.manager.simulate(stage, SimulationFault::Changed, true);
        host.manager.simulate(host.named("Foyer"), SimulationFault::Offline, false);
        host.manager.simulate(host.named("Arena"), SimulationFault::Offline, true);
        QVERIFY(host.detect().isDone());
        QVERIFY(host.layoutOf(lobby) == edited);
        QVERIFY(host.layoutOf(stage) != before);
        QVERIFY(host.handler.getProcessorNode(host.named("Foyer")).online);
        QVERIFY(!host.handler.getProcessorNode(host.named("Arena")).online);
    }

    void detectionAnnouncesStatesAndLayouts()
    {
        CDeviceFixture host;
        const QUuid stage = host.named("Main stage");
        const QUuid foyer = host.named("Foyer");
        host.manager.simulate(stage, SimulationFault::Changed, true);
        host.manager.simulate(foyer, SimulationFault::Offline, false);
        host.detect();
        QStringList texts;
        QTRY_VERIFY((texts << host.log.take()).contains(QStringLiteral("2")));
        QVERIFY(texts.contains(QStringLiteral("17 ") + idOf(stage)));
        QVERIFY(texts.contains(QStringLiteral("22 %1 1").arg(idOf(foyer))));
        QCOMPARE(texts.size(), 3);
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
        const QUuid stage = host.named("Main stage");
        SProcessorSettings settings = host.manager.table().device(stage)->settings;
        settings.canvas = {3840, 1920};
        settings.workMode = ProcessorWorkMode::FiberTransceiver;
        settings.colorDepth = 12;
        QCOMPARE(host.manager.services().device(stage)->apply(settings), DeviceError::None);
        host.detect();
        QStringList texts;
        QTRY_VERIFY((texts << host.log.take()).contains(QStringLiteral("2")));
        for (const QString &text : {QStringLiteral("21 %1 3840x1920").arg(idOf(stage)), QStringLiteral("6"),
                                    QStringLiteral("24 %1 -1").arg(idOf(stage))})
            QVERIFY2(texts.contains(text), qPrintable(text));
        QVERIFY(host.manager.table().device(stage)->settings == settings);
        QVERIFY(host.handler.isFiberTransceiverMode(stage));
        QCOMPARE(host.handler.getProcessorNode(stage).colorDepth, 12);
    }

    void whatChangesDuringADetectionOutlivesItsAnswers_data()
    {
        QTest::addColumn<QByteArray>("change");
        for (const char *change : {"mode", "depth", "offline", "layout"})
            QTest::newRow(change) << QByteArray(change);
    }
    void whatChangesDuringADetectionOutlivesItsAnswers()
    {
        QFETCH(QByteArray, change);
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        host.select(lobby);
        host.manager.simulate(lobby, SimulationFault::Changed, true); // so that its mapping is read
        SDevice changed;
        const auto act = [&] {
            if (change == "mode")
                QVERIFY(host.handler.setWorkMode(lobby, ProcessorWorkMode::FiberTransceiver));
            if (change == "depth")
                QVERIFY(host.handler.setFrameRateAndColorDepth(50, 12));
            if (change == "layout")
                host.edit(lobby);
            if (change == "offline") {
                host.manager.simulate(lobby, SimulationFault::Offline, true);
                QVERIFY(!host.handler.setCabinetStatusLed(true));
            }
            changed = *host.manager.table().device(lobby);
        };
        bool acted = false;
        SJobContext context;
        context.cancel = std::make_shared<CCancelToken>();
        context.report = [&](int percent, const QString &) {
            if (!acted && percent > 100 / 7 && percent < 200 / 7) { // the second of seven is being read
                acted = true;
                act();
            }
            host.manager.simulate(lobby, SimulationFault::Offline, false); // it goes on answering
        };
        QVERIFY(CDetection(host.manager.services(), context).run().isDone());
        QVERIFY(acted);
        const SDevice after = *host.manager.table().device(lobby);
        QVERIFY(after.settings == changed.settings);
        QCOMPARE(after.node.online, changed.node.online);
        QCOMPARE(after.node.fiberTransceiver, changed.node.fiberTransceiver);
        QCOMPARE(after.node.colorDepth, changed.node.colorDepth);
        QCOMPARE(after.working.layout() == changed.working.layout(), change == "layout");
    }
};

ORVO_TEST_MAIN(QGuiApplication, CDetectionTest)
#include "tst_detection.moc"
