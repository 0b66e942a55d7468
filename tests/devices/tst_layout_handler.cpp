// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CFileLock.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CWorldTest.h"

#include <QSet>
#include <QSignalSpy>

namespace {

using Cabinet = CabinetLayout::CabinetPort::Cabinet;

/// The fixture with "Main stage" in view.
struct SStage final : CDeviceFixture
{
    SStage()
    {
        select(stage);
        log.waitFor(28);
    }
};

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

class CLayoutHandlerTest final : public CWorldTest<SStage>
{
    Q_OBJECT

private Q_SLOTS:
    void importReplacesTheLayoutButForLockedPorts()
    {
        const QString file = m_world->folder.filePath(QStringLiteral("left.sprj"));
        QVERIFY(m_world->handler.exportProcessorMapping(m_world->left, file));
        m_world->edit(m_world->right, 1);
        m_world->lockPort(m_world->right, 1);
        for (const bool overwrite : {false, true}) {
            const CabinetLayout before = m_world->layoutOf(m_world->right);
            QVERIFY(m_world->handler.importProcessorMapping(m_world->right, file, overwrite));
            QCOMPARE(m_world->log.waitFor(17), QStringLiteral("17 ") + CDeviceFixture::idOf(m_world->right));
            const CabinetLayout after = m_world->layoutOf(m_world->right);
            QCOMPARE(after.ports.at(1) == before.ports.at(1), !overwrite);
            QVERIFY(after.ports.at(0) != before.ports.at(0));
            QCOMPARE(after.cabinetCount(), m_world->layoutOf(m_world->left).cabinetCount());
            QVERIFY(!keysOf(after).intersects(keysOf(m_world->layoutOf(m_world->left))));
            for (const Cabinet &cabinet : after.ports.at(3).getAllCabinets())
                QCOMPARE(m_world->handler.processorOfCabinet(cabinet.uuid).uuid, m_world->right);
        }
    }

    void anExportOverAnOpenProjectAsks()
    {
        const QString file = m_world->folder.filePath(QStringLiteral("open.sprj"));
        CFileLock other(file);
        QCOMPARE(other.take(), CFileLock::Taken);
        int questions = 0;
        m_world->manager.jobs().setConfirm([&questions](const QString &) { return ++questions > 1; });
        QVERIFY(!m_world->handler.exportProcessorMapping(m_world->left, file));
        QVERIFY(m_world->handler.lastError().contains(QLatin1String("has it open")) && !QFile::exists(file));
        QVERIFY(m_world->handler.exportProcessorMapping(m_world->left, file));
        QVERIFY(QFile::exists(file) && QFile::exists(other.lockFile()));
    }

    void anImportIntoLockedPortsAloneSaysSo()
    {
        for (const auto &port : m_world->layoutOf(m_world->right).ports)
            m_world->lockPort(m_world->right, port.index);
        const CabinetLayout before = m_world->layoutOf(m_world->right);
        QVERIFY(!m_world->handler.copyProcessorMapping(m_world->left, m_world->right, false));
        QVERIFY(m_world->handler.lastError().endsWith(QLatin1String("nothing was imported.")));
        QVERIFY(m_world->layoutOf(m_world->right) == before);
        QVERIFY(m_world->handler.copyProcessorMapping(m_world->left, m_world->right, true));
    }

    void anImportThatDoesNotFitChangesNothing()
    {
        const QString file = m_world->folder.filePath(QStringLiteral("stage.sprj"));
        QVERIFY(m_world->handler.exportProcessorMapping(m_world->stage, file));
        const CabinetLayout before = m_world->layoutOf(m_world->lobby);
        QVERIFY(refuses(m_world->handler.importProcessorMapping(m_world->lobby, file, true),
                        "Lobby(192.168.10.11): The mapping uses output port 5, but only 4 are in use."));
        QVERIFY(QFile::resize(file, 100));
        QVERIFY(refuses(m_world->handler.importProcessorMapping(m_world->lobby, file, true), ""));
        QVERIFY(m_world->handler.lastError().contains(file));
        QVERIFY(m_world->layoutOf(m_world->lobby) == before);
        QVERIFY(!m_world->handler.importProcessorMapping(QUuid::createUuid(), file, true));
    }

    void portsArrivePairedOrNotAtAll()
    {
        using Port = CabinetLayout::CabinetPort;
        m_world->select(m_world->left);
        LayoutData data = m_world->handler.layoutData(m_world->left);
        auto &loose = data.layout.ports[0].groups[0];
        Port::CabinetGroup group;
        group.uuid = QUuid::createUuid();
        group.name = QStringLiteral("Row");
        group.cabinets << loose.cabinets.takeLast();
        group.cabinets[0].group = group.uuid;
        data.layout.ports[0].groups << group;
        m_world->handler.commitLayoutData(data);
        QVERIFY2(m_world->handler.setPortRedundancy(0, 15), qPrintable(m_world->handler.lastError()));
        for (const int locked : {15, 0, -1}) { // a port that does not come
            const bool paired = locked < 0;
            for (const int port : {0, 15})
                m_world->lockPort(m_world->right, port, port == locked);
            QVERIFY(m_world->handler.copyProcessorMapping(m_world->left, m_world->right, false));
            const QVector<Port> ports = m_world->layoutOf(m_world->right).ports;
            QCOMPARE(ports.at(0).redundancy, paired ? Port::Primary : Port::NoRedundancy);
            QCOMPARE(ports.at(0).redundancyPort, paired ? 15 : -1);
            QCOMPARE(ports.at(15).redundancy, paired ? Port::Redundant : Port::NoRedundancy);
            QCOMPARE(ports.at(15).redundancyPort, paired ? 0 : -1);
            const auto copied = ports.at(0).groups.last(); // a group comes with keys of its own
            QCOMPARE(copied.name, group.name);
            QVERIFY(copied.uuid != group.uuid);
            QCOMPARE(copied.cabinets.first().group, copied.uuid);
        }
        QVERIFY(!m_world->handler.copyProcessorMapping(m_world->left, m_world->left, false));
    }

    void onePortTravelsByItsFile()
    {
        const QString file = m_world->folder.filePath(QStringLiteral("port.pprj"));
        QVERIFY(m_world->handler.exportPortMapping(m_world->stage, 2, file));
        QVERIFY(m_world->handler.importPortMapping(m_world->stage, 15, file, false));
        const CabinetLayout layout = m_world->layoutOf(m_world->stage);
        QCOMPARE(layout.ports.at(15).cabinetCount(), layout.ports.at(2).cabinetCount());
        for (const Cabinet &cabinet : layout.ports.at(15).getAllCabinets())
            QCOMPARE(cabinet.port, 15);
        m_world->lockPort(m_world->stage, 14);
        const CabinetLayout before = m_world->layoutOf(m_world->stage);
        QVERIFY(refuses(m_world->handler.importPortMapping(m_world->stage, 14, file, false),
                        "Output port 15 is locked."));
        QVERIFY(m_world->layoutOf(m_world->stage) == before);
        QVERIFY(m_world->handler.importPortMapping(m_world->stage, 14, file, true));
        QVERIFY(m_world->layoutOf(m_world->stage) != before);
        QVERIFY(!m_world->handler.exportPortMapping(m_world->stage, 16, file));
    }

    void thePortCountNeverCostsCabinets()
    {
        CLayoutHandler &handler = m_world->handler;
        QVERIFY(refuses(handler.setOutputPortCount(m_world->stage, 12), "Output port 13 holds cabinets."));
        for (const int count : {0, 20})
            QVERIFY(
                refuses(handler.setOutputPortCount(m_world->stage, count), "It has 1 to 16 output ports."));
        m_world->lockPort(m_world->stage, 15);
        QVERIFY(refuses(handler.setOutputPortCount(m_world->stage, 15), "Output port 16 is locked."));
        m_world->lockPort(m_world->stage, 15, false);
        QVERIFY(handler.setPortRedundancy(3, 15));
        QVERIFY(refuses(handler.setOutputPortCount(m_world->stage, 15),
                        "Output port 4 has its redundancy on a port that would go."));
        QVERIFY(handler.cancelPortRedundancy(3));
        QCOMPARE(handler.currentProcessorPorts().size(), 16);
        m_world->log.take();
        QVERIFY(handler.setOutputPortCount(m_world->stage, 15));
        QCOMPARE(m_world->log.waitFor(25), QStringLiteral("25"));
        QCOMPARE(handler.currentProcessorPorts().size(), 15);
        QVERIFY(handler.setOutputPortCount(m_world->left, 16)); // not in view: another layout
        QCOMPARE(m_world->log.waitFor(17), QStringLiteral("17 ") + CDeviceFixture::idOf(m_world->left));
    }

    void aPairOfPortsIsAnnouncedAndRespected()
    {
        CLayoutHandler &handler = m_world->handler;
        m_world->log.take();
        QVERIFY(handler.setPortRedundancy(0, 15));
        QCOMPARE(m_world->log.waitFor(11), QStringLiteral("11 0 15 on"));
        const auto ports = handler.currentProcessorPorts();
        QCOMPARE(ports.at(0).redundancy, CabinetLayout::CabinetPort::Primary);
        QCOMPARE(ports.at(15).redundancyPort, 0);
        const QString file = m_world->folder.filePath(QStringLiteral("port.pprj"));
        QVERIFY(handler.exportPortMapping(m_world->stage, 2, file));
        QVERIFY(refuses(handler.importPortMapping(m_world->stage, 15, file, true),
                        "Output port 16 is a redundancy port."));
        QCOMPARE(m_world->layoutOf(m_world->stage).ports.at(15).cabinetCount(), 0);
        Cabinet onBackup;
        onBackup.port = 15;
        QVERIFY(!handler.areOnPrimaryPorts({onBackup}));
        QVERIFY(handler.cancelPortRedundancy(15));
        QCOMPARE(m_world->log.waitFor(11), QStringLiteral("11 0 15 off"));
        QVERIFY(!handler.cancelPortRedundancy(15));
        m_world->select(m_world->named("Balcony"));
        QVERIFY(!handler.isPortRedundancySupported());
        QVERIFY(handler.isPortRedundancyBlocked());
    }

    void processorsArePairedAllOrNone()
    {
        using Pairs = QList<QPair<QUuid, QUuid>>;
        CLayoutHandler &handler = m_world->handler;
        const QList<QUuid> all{m_world->left, m_world->right, m_world->stage, m_world->lobby};
        const Pairs turned{{m_world->right, m_world->left}, {m_world->lobby, m_world->stage}};
        m_world->log.take();
        QVERIFY(handler.setProcessorRedundancy(m_world->left, m_world->right));
        QCOMPARE(m_world->log.waitFor(22),
                 QStringLiteral("22 %1 1").arg(CDeviceFixture::idOf(m_world->right)));
        QVERIFY(!handler.setProcessorRedundancy(m_world->stage, m_world->right));
        QVERIFY(!handler.setProcessorRedundancy(m_world->stage, m_world->stage));
        QVERIFY(!handler.setProcessorRedundancy(m_world->stage, m_world->named("Balcony")));
        QVERIFY(refuses(handler.setProcessorRedundancy(m_world->stage, m_world->lobby),
                        " has 4 output ports, but Main stage(192.168.10.12) uses port 15."));
        m_world->manager.simulate(m_world->stage, SimulationFault::Refuse, true);
        QVERIFY(!handler.applyProcessorRedundancy(all, turned));
        QCOMPARE(handler.processorRedundancies(), (Pairs{{m_world->left, m_world->right}}));
        m_world->manager.simulate(m_world->stage, SimulationFault::Refuse, false);
        QVERIFY(handler.applyProcessorRedundancy(all, turned));
        QCOMPARE(handler.processorRedundancies(),
                 (Pairs{{m_world->lobby, m_world->stage}, {m_world->right, m_world->left}}));
        // In another mode now, a pair neither prevents others nor its own end.
        QVERIFY(handler.setWorkMode(m_world->stage, ProcessorWorkMode::FiberTransceiver));
        QVERIFY(handler.applyProcessorRedundancy(
            all, {{m_world->lobby, m_world->stage}, {m_world->left, m_world->right}}));
        QVERIFY(handler.applyProcessorRedundancy(all, {{m_world->left, m_world->right}}));
        QVERIFY(!handler.setProcessorRedundancy(m_world->lobby, m_world->stage));
        QVERIFY(handler.setWorkMode(m_world->stage, ProcessorWorkMode::VideoProcessor));
        QVERIFY(handler.setProcessorRedundancy(m_world->lobby, m_world->stage));
        QVERIFY(handler.applyProcessorRedundancy({m_world->left, m_world->right}, {}));
        QCOMPARE(handler.processorRedundancies(), (Pairs{{m_world->lobby, m_world->stage}}));
        QVERIFY(handler.cancelProcessorRedundancy(m_world->stage));
        QVERIFY(handler.processorRedundancies().isEmpty());
    }

    void aRedundancyProcessorKeepsItsLayout()
    {
        CLayoutHandler &handler = m_world->handler;
        const QUuid left = m_world->left, right = m_world->right, stage = m_world->stage;
        const QString file = m_world->folder.filePath(QStringLiteral("left.sprj"));
        const QString port = m_world->folder.filePath(QStringLiteral("left.pprj"));
        QVERIFY(handler.exportProcessorMapping(left, file));
        QVERIFY(handler.exportPortMapping(left, 1, port));
        QVERIFY(handler.setProcessorRedundancy(left, right));
        const CabinetLayout before = m_world->layoutOf(right);
        const char *reason = "A redundancy processor follows its primary.";
        QVERIFY(refuses(handler.importProcessorMapping(right, file, true), reason));
        QVERIFY(refuses(handler.importPortMapping(right, 1, port, true), reason));
        QVERIFY(refuses(handler.copyProcessorMapping(left, right, true), reason));
        QVERIFY(refuses(handler.setOutputPortCount(right, 16), reason));
        QVERIFY(refuses(handler.applyPortRedundancy({stage, right}, {{{stage, 14}, {right, 0}}}), reason));
        const SDeviceOutcome outcome = m_world->read(right);
        QVERIFY(!outcome.isDone() && outcome.text.contains(QLatin1String(reason)));
        m_world->edit(right); // before the pair was made
        const CabinetLayout edited = m_world->layoutOf(right);
        const QList<QUuid> both{right, left}; // where several are read, the others are
        QVERIFY(m_world
                    ->outcomeOf([&](CDeviceJobs::Done done) {
                        m_world->manager.jobs().readMapping(both, {}, std::move(done));
                    })
                    .isDone());
        QVERIFY(m_world->layoutOf(right).ports == edited.ports && edited.ports != before.ports);
        QVERIFY(handler.cancelProcessorRedundancy(right));
        QVERIFY(handler.setOutputPortCount(right, 16));
    }

    void theCanvasStaysWithinItsLimits()
    {
        QVERIFY(!m_world->handler.setCanvasSize({4096, 2161}));
        QVERIFY(!m_world->handler.setCanvasSize({63, 64}));
        m_world->log.take();
        QVERIFY(m_world->handler.setCanvasSize({4096, 2160}));
        QCOMPARE(m_world->log.waitFor(21),
                 QStringLiteral("21 %1 4096 2160").arg(CDeviceFixture::idOf(m_world->stage)));
        QCOMPARE(m_world->handler.getCanvasSize(), QSize(4096, 2160));
        QVERIFY(m_world->handler.setWorkMode(m_world->stage, ProcessorWorkMode::Bypass));
        QCOMPARE(m_world->log.waitFor(6), QStringLiteral("6"));
        QCOMPARE(m_world->handler.canvasBlock(), CanvasBlock::Bypass);
        QVERIFY(!m_world->handler.setCanvasSize({1920, 1080}));
    }

    void loadsFollowFrameRateAndDepth()
    {
        const auto ports = m_world->handler.currentProcessorPorts();
        QCOMPARE(m_world->handler.portLoad(ports.at(0), 0), 90);
        m_world->log.take();
        for (const int depth : {8, 10}) { // one changes at a time
            QVERIFY(m_world->handler.setFrameRateAndColorDepth(120, depth));
            QCOMPARE(m_world->log.waitFor(24),
                     QStringLiteral("24 %1 -1").arg(CDeviceFixture::idOf(m_world->stage)));
        }
        QCOMPARE(m_world->handler.portLoad(ports.at(0), 0), 239);
        QCOMPARE(m_world->handler.currentProcessorNode().colorDepth, 10);
        QVERIFY(!m_world->handler.setFrameRateAndColorDepth(75, 8));
        QVERIFY(!m_world->handler.setFrameRateAndColorDepth(60, 9));
        QCOMPARE(m_world->handler.frameRate(), 120);
    }

    void aCommandThatTheProcessorDoesNotTakeChangesNothing()
    {
        CLayoutHandler &handler = m_world->handler;
        const SProcessorSettings before = m_world->manager.table().device(m_world->stage)->settings;
        SBackgroundInfo background;
        background.processor = m_world->stage;
        background.enabled = true;
        int highlights = 0;
        connect(&m_world->manager.announcer(), &CDeviceAnnouncer::notifyHighlightChanged, this,
                [&highlights] { ++highlights; });
        for (const auto fault :
             {SimulationFault::Offline, SimulationFault::Silent, SimulationFault::Refuse}) {
            m_world->manager.simulate(m_world->stage, fault, true);
            QVERIFY(!handler.setCanvasSize({1920, 1080}));
            QVERIFY(
                handler.lastError().startsWith(QLatin1String("Main stage(192.168.10.12): The processor ")));
            QVERIFY(!handler.setFrameRateAndColorDepth(50, 8));
            QVERIFY(!handler.setBackground(background));
            QVERIFY(!handler.setOutputPortCount(m_world->stage, 15));
            QVERIFY(!handler.setWorkMode(m_world->stage, ProcessorWorkMode::Bypass));
            QVERIFY(!handler.setCabinetStatusLed(true));
            QVERIFY(!handler.setPortAreas({{0, 0, 0, 10, 10}}));
            QVERIFY(!handler.sendCurrentGains({{0, 0, true, true}}));
            QVERIFY(!handler.clearCurrentGains());
            QVERIFY(!handler.setCabinetHighlight({}, CabinetHighlight::FlashingBox));
            m_world->manager.simulate(m_world->stage, fault, false);
        }
        QVERIFY(m_world->manager.table().device(m_world->stage)->settings == before);
        QCOMPARE(handler.currentProcessorPorts().size(), 16);
        QCoreApplication::processEvents();
        QCOMPARE(highlights, 0);
    }

    void settingsReachTheDevice()
    {
        QSignalSpy led(&m_world->manager.announcer(), &CDeviceAnnouncer::notifyStatusLedChanged);
        SBackgroundInfo background;
        background.processor = m_world->stage;
        background.file = QStringLiteral("/pictures/logo.png");
        QVERIFY(m_world->handler.setBackground(background));
        QCOMPARE(m_world->log.waitFor(20), QStringLiteral("20 ") + CDeviceFixture::idOf(m_world->stage));
        QVERIFY(m_world->handler.setCabinetStatusLed(true));
        QVERIFY(m_world->handler.setPortAreas({{2, 0, 0, 0, 0}, {3, 1, 2, 30, 40}}));
        QVERIFY(!m_world->handler.setPortAreas({{16, 0, 0, 1, 1}}));
        QTRY_COMPARE(led.size(), 1);
        CDeviceFixture again(0, m_world->folder.path()); // a second program on the same devices
        again.select(m_world->stage);
        QCOMPARE(again.handler.background(m_world->stage).file, background.file);
        QCOMPARE(again.handler.portAreas(), (QList<SPortArea>{{3, 1, 2, 30, 40}}));
        m_world->select(m_world->manager.projects().openDemo().value()); // a project has no hardware
        QVERIFY(!m_world->handler.setCabinetStatusLed(true));
        QVERIFY(!m_world->handler.setWorkMode(m_world->manager.table().current(), ProcessorWorkMode::Bypass));
    }

    void aCommitAsksForItsFollowUpOnce()
    {
        QVERIFY(!m_world->handler.layoutFollowUpNeeded());
        m_world->edit(m_world->stage);
        QVERIFY(m_world->handler.layoutFollowUpNeeded());
        QSignalSpy committed(&m_world->manager.announcer(), &CDeviceAnnouncer::notifyLayoutCommitted);
        m_world->handler.applyLayoutFollowUp(false);
        QVERIFY(!m_world->handler.layoutFollowUpNeeded());
        QTRY_COMPARE(committed.size(), 1);
    }

    void aNewProcessorIsPreparedOnce()
    {
        const QUuid balcony = m_world->named("Balcony");
        QCOMPARE(m_world->handler.preparatoryStep(m_world->stage), 0);
        QCOMPARE(m_world->handler.preparatoryStep(QUuid()), 0);
        QCOMPARE(m_world->handler.preparatoryStep(balcony), 1);
        m_world->handler.performPreparatoryStep(balcony);
        QCOMPARE(m_world->handler.preparatoryStep(balcony), 0);
        QCOMPARE(m_world->layoutOf(balcony).ports.size(), 8);
        QVERIFY(!m_world->manager.table().isModified(balcony));
    }

    void theLocksOfAllOthersAreKnown()
    {
        const auto beside = [this] { return m_world->handler.locksBeside(m_world->stage); };
        QCOMPARE(beside(), PortLocks::NotAll);
        for (const SDevice &device : m_world->manager.table().devices()) {
            for (int port = 0; port < device.working.layout().ports.size(); ++port) {
                if (device.node.uuid != m_world->stage)
                    m_world->lockPort(device.node.uuid, port);
            }
        }
        QCOMPARE(beside(), PortLocks::All);
        QCOMPARE(m_world->handler.locksBeside(m_world->left), PortLocks::NotAll);
    }

    void withoutAProcessorNothingIsDone()
    {
        CLayoutHandler &handler = m_world->handler;
        m_world->manager.services().select({}, PrcTreeNodeType::Other);
        QVERIFY(!handler.setCanvasSize({1920, 1080}));
        QVERIFY(!handler.setPortRedundancy(0, 1));
        QVERIFY(!handler.setCabinetStatusLed(true));
        QVERIFY(handler.getCanvasSize().isEmpty());
        QCOMPARE(handler.portLoad({}, 0), 0);
    }

private:
    bool refuses(bool done, const char *reason) const
    {
        return !done && m_world->handler.lastError().endsWith(QLatin1String(reason));
    }
};

ORVO_TEST_MAIN(QGuiApplication, CLayoutHandlerTest)
#include "tst_layout_handler.moc"
