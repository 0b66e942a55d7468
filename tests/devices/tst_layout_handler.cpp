// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"

#include <QSet>
#include <QSignalSpy>

namespace {

using Cabinet = CabinetLayout::CabinetPort::Cabinet;

QSet<QUuid> keysOf(const CabinetLayout &layout)
{
    QSet<QUuid> keys;
    for (const auto &port : layout.ports) {
        for (const Cabinet &cabinet : port.getAllCabinets())
            keys.insert(cabinet.uuid);
    }
    return keys;
}

} // namespace

class CLayoutHandlerTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        CTestBase::init();
        m_host = std::make_unique<CDeviceFixture>();
        m_lobby = m_host->lobby;
        m_stage = m_host->stage;
        m_left = m_host->left;
        m_right = m_host->right;
        m_host->select(m_stage);
        QVERIFY(!m_host->log.waitFor(28).isEmpty());
    }

    void importReplacesTheLayoutButForLockedPorts_data()
    {
        QTest::addColumn<bool>("overwrite");
        QTest::newRow("locked ports stay") << false;
        QTest::newRow("locked ports are overwritten") << true;
    }
    void importReplacesTheLayoutButForLockedPorts()
    {
        QFETCH(bool, overwrite);
        const QString file = m_host->folder.filePath(QStringLiteral("left.sprj"));
        QVERIFY2(m_host->handler.exportProcessorMapping(m_left, file),
                 qPrintable(m_host->handler.lastError()));
        m_host->edit(m_right, 1);
        m_host->lockPort(m_right, 1);
        const CabinetLayout before = m_host->layoutOf(m_right);
        QVERIFY(m_host->handler.importProcessorMapping(m_right, file, overwrite));
        QCOMPARE(m_host->log.waitFor(17), QStringLiteral("17 ") + CDeviceFixture::idOf(m_right));
        const CabinetLayout after = m_host->layoutOf(m_right);
        QCOMPARE(after.ports.at(1) == before.ports.at(1), !overwrite);
        QVERIFY(after.ports.at(0) != before.ports.at(0));
        QCOMPARE(after.cabinetCount(), m_host->layoutOf(m_left).cabinetCount());
        QVERIFY(!keysOf(after).intersects(keysOf(m_host->layoutOf(m_left))));
        for (const Cabinet &cabinet : after.ports.at(3).getAllCabinets())
            QCOMPARE(m_host->handler.processorOfCabinet(cabinet.uuid).uuid, m_right);
    }

    void anImportThatDoesNotFitChangesNothing()
    {
        const QString file = m_host->folder.filePath(QStringLiteral("stage.sprj"));
        QVERIFY(m_host->handler.exportProcessorMapping(m_stage, file));
        const CabinetLayout before = m_host->layoutOf(m_lobby);
        QVERIFY(refuses(m_host->handler.importProcessorMapping(m_lobby, file, true),
                        "Lobby(192.168.10.11): The mapping uses output port 5, but only 4 are in use."));
        QVERIFY(QFile::resize(file, 100));
        QVERIFY(refuses(m_host->handler.importProcessorMapping(m_lobby, file, true), ""));
        QVERIFY(m_host->handler.lastError().contains(file));
        QVERIFY(m_host->layoutOf(m_lobby) == before);
        QVERIFY(!m_host->handler.importProcessorMapping(QUuid::createUuid(), file, true));
    }

    void portsArrivePairedOrNotAtAll_data()
    {
        QTest::addColumn<int>("locked"); // port that does not come
        QTest::addColumn<bool>("paired");
        QTest::newRow("both come") << -1 << true;
        QTest::newRow("the redundancy port stays") << 15 << false;
        QTest::newRow("the primary port stays") << 0 << false;
    }
    void portsArrivePairedOrNotAtAll()
    {
        QFETCH(int, locked);
        QFETCH(bool, paired);
        m_host->select(m_left);
        LayoutData data = m_host->handler.layoutData(m_left);
        auto &loose = data.layout.ports[0].groups[0];
        CabinetLayout::CabinetPort::CabinetGroup group;
        group.uuid = QUuid::createUuid();
        group.name = QStringLiteral("Row");
        group.cabinets << loose.cabinets.takeLast();
        group.cabinets[0].group = group.uuid;
        data.layout.ports[0].groups << group;
        m_host->handler.commitLayoutData(data);
        QVERIFY2(m_host->handler.setPortRedundancy(0, 15), qPrintable(m_host->handler.lastError()));
        if (locked >= 0)
            m_host->lockPort(m_right, locked);
        QVERIFY(m_host->handler.copyProcessorMapping(m_left, m_right, false));
        using Port = CabinetLayout::CabinetPort;
        const QVector<Port> ports = m_host->layoutOf(m_right).ports;
        QCOMPARE(ports.at(0).redundancy, paired ? Port::Primary : Port::NoRedundancy);
        QCOMPARE(ports.at(0).redundancyPort, paired ? 15 : -1);
        QCOMPARE(ports.at(15).redundancy, paired ? Port::Redundant : Port::NoRedundancy);
        QCOMPARE(ports.at(15).redundancyPort, paired ? 0 : -1);
        if (locked != 0) { // a group comes with keys of its own
            const auto copied = ports.at(0).groups.last();
            QCOMPARE(copied.name, group.name);
            QVERIFY(copied.uuid != group.uuid);
            QCOMPARE(copied.cabinets.first().group, copied.uuid);
        }
        QVERIFY(!m_host->handler.copyProcessorMapping(m_left, m_left, false));
    }

    void onePortTravelsByItsFile()
    {
        const QString file = m_host->folder.filePath(QStringLiteral("port.pprj"));
        QVERIFY(m_host->handler.exportPortMapping(m_stage, 2, file));
        QVERIFY(m_host->handler.importPortMapping(m_stage, 15, file, false));
        const CabinetLayout layout = m_host->layoutOf(m_stage);
        QCOMPARE(layout.ports.at(15).cabinetCount(), layout.ports.at(2).cabinetCount());
        for (const Cabinet &cabinet : layout.ports.at(15).getAllCabinets())
            QCOMPARE(cabinet.port, 15);
        m_host->lockPort(m_stage, 14);
        const CabinetLayout before = m_host->layoutOf(m_stage);
        QVERIFY(refuses(m_host->handler.importPortMapping(m_stage, 14, file, false),
                        "Output port 15 is locked."));
        QVERIFY(m_host->layoutOf(m_stage) == before);
        QVERIFY(m_host->handler.importPortMapping(m_stage, 14, file, true));
        QVERIFY(m_host->layoutOf(m_stage) != before);
        QVERIFY(!m_host->handler.exportPortMapping(m_stage, 16, file));
    }

    void thePortCountNeverCostsCabinets()
    {
        CLayoutHandler &handler = m_host->handler;
        QVERIFY(refuses(handler.setOutputPortCount(m_stage, 12), "Output port 13 holds cabinets."));
        QVERIFY(!handler.setOutputPortCount(m_stage, 20));
        QVERIFY(!handler.setOutputPortCount(m_stage, 0));
        m_host->lockPort(m_stage, 15);
        QVERIFY(refuses(handler.setOutputPortCount(m_stage, 15), "Output port 16 is locked."));
        m_host->lockPort(m_stage, 15, false);
        QVERIFY(handler.setPortRedundancy(3, 15));
        QVERIFY(refuses(handler.setOutputPortCount(m_stage, 15),
                        "Output port 4 has its redundancy on a port that would go."));
        QVERIFY(handler.cancelPortRedundancy(3));
        QCOMPARE(handler.currentProcessorPorts().size(), 16);
        m_host->log.take();
        QVERIFY(handler.setOutputPortCount(m_stage, 15));
        QCOMPARE(m_host->log.waitFor(25), QStringLiteral("25"));
        QCOMPARE(handler.currentProcessorPorts().size(), 15);
        QVERIFY(handler.setOutputPortCount(m_left, 16)); // not in view: another layout
        QCOMPARE(m_host->log.waitFor(17), QStringLiteral("17 ") + CDeviceFixture::idOf(m_left));
    }

    void portsArePairedOnlyWhereThatWorks()
    {
        CLayoutHandler &handler = m_host->handler;
        QVERIFY(!handler.setPortRedundancy(0, 0));
        QVERIFY(!handler.setPortRedundancy(0, 16));
        m_host->lockPort(m_stage, 15);
        QVERIFY(!handler.setPortRedundancy(0, 15));
        m_host->lockPort(m_stage, 15, false);
        m_host->log.take();
        QVERIFY(handler.setPortRedundancy(0, 15));
        QCOMPARE(m_host->log.waitFor(11), QStringLiteral("11 0 15 on"));
        const auto ports = handler.currentProcessorPorts();
        QCOMPARE(ports.at(0).redundancy, CabinetLayout::CabinetPort::Primary);
        QCOMPARE(ports.at(15).redundancyPort, 0);
        QVERIFY(!handler.setPortRedundancy(1, 15));
        const QString file = m_host->folder.filePath(QStringLiteral("port.pprj"));
        QVERIFY(handler.exportPortMapping(m_stage, 2, file));
        QVERIFY(refuses(handler.importPortMapping(m_stage, 15, file, true),
                        "Output port 16 is a redundancy port."));
        QCOMPARE(m_host->layoutOf(m_stage).ports.at(15).cabinetCount(), 0);
        Cabinet onBackup;
        onBackup.port = 15;
        QVERIFY(!handler.areOnPrimaryPorts({onBackup}));
        QVERIFY(handler.cancelPortRedundancy(15));
        QCOMPARE(m_host->log.waitFor(11), QStringLiteral("11 0 15 off"));
        QVERIFY(!handler.cancelPortRedundancy(15));
        m_host->select(m_host->named("Balcony"));
        QVERIFY(!handler.isPortRedundancySupported());
        QVERIFY(handler.isPortRedundancyBlocked());
    }

    void processorsArePairedAllOrNone()
    {
        using Pairs = QList<QPair<QUuid, QUuid>>;
        CLayoutHandler &handler = m_host->handler;
        const QList<QUuid> all{m_left, m_right, m_stage, m_lobby};
        const Pairs turned{{m_right, m_left}, {m_stage, m_lobby}};
        m_host->log.take();
        QVERIFY(handler.setProcessorRedundancy(m_left, m_right));
        QCOMPARE(m_host->log.waitFor(22), QStringLiteral("22 %1 1").arg(CDeviceFixture::idOf(m_right)));
        QVERIFY(!handler.setProcessorRedundancy(m_stage, m_right));
        QVERIFY(!handler.setProcessorRedundancy(m_stage, m_stage));
        QVERIFY(!handler.setProcessorRedundancy(m_stage, m_host->named("Balcony")));
        m_host->manager.simulate(m_lobby, SimulationFault::Refuse, true);
        QVERIFY(!handler.applyProcessorRedundancy(all, turned));
        QCOMPARE(handler.processorRedundancies(), (Pairs{{m_left, m_right}}));
        m_host->manager.simulate(m_lobby, SimulationFault::Refuse, false);
        QVERIFY(handler.applyProcessorRedundancy(all, turned));
        QCOMPARE(handler.processorRedundancies(), (Pairs{{m_stage, m_lobby}, {m_right, m_left}}));
        QVERIFY(handler.applyProcessorRedundancy({m_left, m_right}, {}));
        QCOMPARE(handler.processorRedundancies(), (Pairs{{m_stage, m_lobby}}));
        QVERIFY(handler.cancelProcessorRedundancy(m_stage));
        QVERIFY(handler.processorRedundancies().isEmpty());
    }

    void theCanvasStaysWithinItsLimits()
    {
        QVERIFY(!m_host->handler.setCanvasSize({4096, 2161}));
        QVERIFY(!m_host->handler.setCanvasSize({63, 64}));
        m_host->log.take();
        QVERIFY(m_host->handler.setCanvasSize({4096, 2160}));
        QCOMPARE(m_host->log.waitFor(21),
                 QStringLiteral("21 %1 4096 2160").arg(CDeviceFixture::idOf(m_stage)));
        QCOMPARE(m_host->handler.getCanvasSize(), QSize(4096, 2160));
        QVERIFY(m_host->handler.setWorkMode(m_stage, ProcessorWorkMode::Bypass));
        QCOMPARE(m_host->log.waitFor(6), QStringLiteral("6"));
        QCOMPARE(m_host->handler.canvasBlock(), CanvasBlock::Bypass);
        QVERIFY(!m_host->handler.setCanvasSize({1920, 1080}));
    }

    void loadsFollowFrameRateAndDepth()
    {
        const auto ports = m_host->handler.currentProcessorPorts();
        QCOMPARE(m_host->handler.portLoad(ports.at(0), 0), 90);
        m_host->log.take();
        QVERIFY(m_host->handler.setFrameRateAndColorDepth(120, 10));
        QCOMPARE(m_host->log.waitFor(24), QStringLiteral("24 %1 -1").arg(CDeviceFixture::idOf(m_stage)));
        QCOMPARE(m_host->handler.portLoad(ports.at(0), 0), 239);
        QCOMPARE(m_host->handler.currentProcessorNode().colorDepth, 10);
        QVERIFY(!m_host->handler.setFrameRateAndColorDepth(75, 8));
        QVERIFY(!m_host->handler.setFrameRateAndColorDepth(60, 9));
        QCOMPARE(m_host->handler.frameRate(), 120);
    }

    void aCommandThatTheProcessorDoesNotTakeChangesNothing()
    {
        CLayoutHandler &handler = m_host->handler;
        const SProcessorSettings before = m_host->manager.table().device(m_stage)->settings;
        SBackgroundInfo background;
        background.processor = m_stage;
        background.enabled = true;
        int highlights = 0;
        connect(&m_host->manager.announcer(), &CDeviceAnnouncer::notifyHighlightChanged, this,
                [&highlights] { ++highlights; });
        for (const auto fault :
             {SimulationFault::Offline, SimulationFault::Silent, SimulationFault::Refuse}) {
            m_host->manager.simulate(m_stage, fault, true);
            QVERIFY(!handler.setCanvasSize({1920, 1080}));
            QVERIFY(
                handler.lastError().startsWith(QLatin1String("Main stage(192.168.10.12): The processor ")));
            QVERIFY(!handler.setFrameRateAndColorDepth(50, 8));
            QVERIFY(!handler.setBackground(background));
            QVERIFY(!handler.setOutputPortCount(m_stage, 15));
            QVERIFY(!handler.setWorkMode(m_stage, ProcessorWorkMode::Bypass));
            QVERIFY(!handler.setCabinetStatusLed(true));
            QVERIFY(!handler.setPortAreas({{0, 0, 0, 10, 10}}));
            QVERIFY(!handler.sendCurrentGains({{0, 0, true, true}}));
            QVERIFY(!handler.clearCurrentGains());
            QVERIFY(!handler.setCabinetHighlight({}, CabinetHighlight::FlashingBox));
            m_host->manager.simulate(m_stage, fault, false);
        }
        QVERIFY(m_host->manager.table().device(m_stage)->settings == before);
        QCOMPARE(handler.currentProcessorPorts().size(), 16);
        QCoreApplication::processEvents();
        QCOMPARE(highlights, 0);
    }

    void settingsReachTheDevice()
    {
        QSignalSpy led(&m_host->manager.announcer(), &CDeviceAnnouncer::notifyStatusLedChanged);
        SBackgroundInfo background;
        background.processor = m_stage;
        background.file = QStringLiteral("/pictures/logo.png");
        QVERIFY(m_host->handler.setBackground(background));
        QCOMPARE(m_host->log.waitFor(20), QStringLiteral("20 ") + CDeviceFixture::idOf(m_stage));
        QVERIFY(m_host->handler.setCabinetStatusLed(true));
        QVERIFY(m_host->handler.setPortAreas({{3, 1, 2, 30, 40}}));
        QVERIFY(!m_host->handler.setPortAreas({{16, 0, 0, 1, 1}}));
        QTRY_COMPARE(led.size(), 1);
        CDeviceFixture again(0, m_host->folder.path()); // a second program on the same devices
        again.select(m_stage);
        QCOMPARE(again.handler.background(m_stage).file, background.file);
        QCOMPARE(again.handler.portAreas(), (QList<SPortArea>{{3, 1, 2, 30, 40}}));
        m_host->select(m_host->manager.projects().openDemo().value()); // a project has no hardware
        QVERIFY(!m_host->handler.setCabinetStatusLed(true));
        QVERIFY(!m_host->handler.setWorkMode(m_host->manager.table().current(), ProcessorWorkMode::Bypass));
    }

    void aCommitAsksForItsFollowUpOnce()
    {
        QVERIFY(!m_host->handler.layoutFollowUpNeeded());
        m_host->edit(m_stage);
        QVERIFY(m_host->handler.layoutFollowUpNeeded());
        QSignalSpy committed(&m_host->manager.announcer(), &CDeviceAnnouncer::notifyLayoutCommitted);
        m_host->handler.applyLayoutFollowUp(false);
        QVERIFY(!m_host->handler.layoutFollowUpNeeded());
        QTRY_COMPARE(committed.size(), 1);
    }

    void aNewProcessorIsPreparedOnce()
    {
        const QUuid balcony = m_host->named("Balcony");
        QCOMPARE(m_host->handler.preparatoryStep(m_stage), 0);
        QCOMPARE(m_host->handler.preparatoryStep(QUuid()), 0);
        QCOMPARE(m_host->handler.preparatoryStep(balcony), 1);
        m_host->handler.performPreparatoryStep(balcony);
        QCOMPARE(m_host->handler.preparatoryStep(balcony), 0);
        QCOMPARE(m_host->layoutOf(balcony).ports.size(), 8);
        QVERIFY(!m_host->manager.table().isModified(balcony));
    }

    void withoutAProcessorNothingIsDone()
    {
        CLayoutHandler &handler = m_host->handler;
        m_host->manager.services().select({}, PrcTreeNodeType::Other);
        QVERIFY(!handler.setCanvasSize({1920, 1080}));
        QVERIFY(!handler.setPortRedundancy(0, 1));
        QVERIFY(!handler.setCabinetStatusLed(true));
        QVERIFY(handler.getCanvasSize().isEmpty());
        QCOMPARE(handler.portLoad({}, 0), 0);
        QVERIFY(!m_host
                     ->outcomeOf([&](CDeviceJobs::Done done) {
                         handler.saveMapping(ReadSaveMappingRole::Current, {}, std::move(done));
                     })
                     .isDone());
    }

    void cleanup()
    {
        m_host.reset();
        CTestBase::cleanup();
    }

private:
    bool refuses(bool done, const char *reason) const
    {
        return !done && m_host->handler.lastError().endsWith(QLatin1String(reason));
    }

    std::unique_ptr<CDeviceFixture> m_host;
    QUuid m_lobby;
    QUuid m_stage;
    QUuid m_left;
    QUuid m_right;
};

ORVO_TEST_MAIN(QGuiApplication, CLayoutHandlerTest)
#include "tst_layout_handler.moc"
