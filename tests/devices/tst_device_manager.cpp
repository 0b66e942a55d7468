// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CDeviceTreeModel.h"
#include "host/devices/services/CSimulatedPark.h"
#include "host/projects/CProcessorProject.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace {

QString idOf(const QUuid &uuid)
{
    return uuid.toString(QUuid::WithoutBraces);
}

} // namespace

class CDeviceManagerTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void everyStateCanBeReachedAndLeft_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<int>("block");
        QTest::addColumn<bool>("kept"); // without power
        const auto row = [](SimulationFault state, CanvasBlock block, bool kept = true) {
            QTest::newRow(SSimulationFault::all().at(int(state)).name) << int(state) << int(block) << kept;
        };
        row(SimulationFault::Bypass, CanvasBlock::Bypass);
        row(SimulationFault::FiberTransceiver, CanvasBlock::Bypass);
        row(SimulationFault::ThreeD, CanvasBlock::None);
        row(SimulationFault::LowLatency, CanvasBlock::ZeroFrameDelay);
        row(SimulationFault::Frozen, CanvasBlock::Frozen, false);
        row(SimulationFault::Polling, CanvasBlock::Polling);
        row(SimulationFault::HdmiOutput, CanvasBlock::HdmiOutput);
    }
    void everyStateCanBeReachedAndLeft()
    {
        QFETCH(int, state);
        QFETCH(int, block);
        QFETCH(bool, kept);
        const auto simulated = static_cast<SimulationFault>(state);
        CDeviceFixture host;
        const QUuid stage = host.named("Main stage");
        host.select(stage);
        QCOMPARE(host.handler.canvasBlock(), CanvasBlock::None);
        host.manager.simulate(stage, simulated, true);
        QVERIFY(host.manager.isSimulated(stage, simulated));
        QCOMPARE(int(host.handler.canvasBlock()), block);
        QCOMPARE(host.handler.isThreeDEnabled(), simulated == SimulationFault::ThreeD);
        QCOMPARE(host.handler.isFiberTransceiverMode(stage), simulated == SimulationFault::FiberTransceiver);
        {
            CDeviceFixture again(0, host.folder.path());
            QCOMPARE(again.manager.isSimulated(stage, simulated), kept);
        }
        host.manager.simulate(stage, simulated, false);
        QVERIFY(!host.manager.isSimulated(stage, simulated));
        QCOMPARE(host.handler.canvasBlock(), CanvasBlock::None);
        QVERIFY(!host.handler.isThreeDEnabled() && !host.handler.isFiberTransceiverMode(stage));
    }

    void aStateThatEndsLeavesOthersAlone()
    {
        CDeviceFixture host;
        const QUuid stage = host.named("Main stage");
        host.manager.simulate(stage, SimulationFault::Bypass, true);
        host.manager.simulate(stage, SimulationFault::FiberTransceiver, false); // it is not in that mode
        QVERIFY(host.manager.isSimulated(stage, SimulationFault::Bypass));
        host.manager.simulate(stage, SimulationFault::FiberTransceiver, true);
        QVERIFY(!host.manager.isSimulated(stage, SimulationFault::Bypass));
    }

    void selectingAnnouncesTheCurrentProcessorThenTheAreas()
    {
        CDeviceFixture host;
        const QUuid left = host.named("Side left");
        const QUuid right = host.named("Side right");
        const QString leftArea = idOf(left) + QStringLiteral(":0,0,1920,2304");
        const QString rightArea = idOf(right) + QStringLiteral(":1920,0,1920,2304");
        QSignalSpy current(&host.manager.announcer(), &CDeviceAnnouncer::notifyCurrentProcessorChanged);

        host.select(left);
        QCOMPARE(host.log.waitFor(26), QStringLiteral("26 ") + idOf(left));
        QCOMPARE(host.log.waitFor(28), QStringLiteral("28 0 ") + leftArea);
        QCOMPARE(host.handler.currentProcessorNode().uuid, left);
        QCOMPARE(host.handler.currentProcessorPorts().size(), 20);

        host.manager.services().select({left, right}, PrcTreeNodeType::Group);
        QCOMPARE(host.log.waitFor(26), QStringLiteral("26 ") + idOf(QUuid()));
        QCOMPARE(host.log.waitFor(28), QStringLiteral("28 1 %1 %2").arg(leftArea, rightArea));
        QCOMPARE(host.handler.selectedProcessors().size(), 2);
        QVERIFY(host.handler.currentProcessorNode().uuid.isNull());
        QVERIFY(host.handler.currentProcessorPorts().isEmpty());

        host.manager.services().select({}, PrcTreeNodeType::Other);
        QCOMPARE(host.log.waitFor(28), QStringLiteral("28 2"));
        QCOMPARE(current.size(), 2); // it was null already
    }

    void filesAreReadAndWrittenWhileTheWindowGoesOn()
    {
        CDeviceFixture host;
        int served = 0;
        const auto serve = [&] {
            QMetaObject::invokeMethod(
                qApp, [&served] { ++served; }, Qt::QueuedConnection);
        };
        serve();
        const QUuid demo = host.manager.projects().openDemo().value();
        QCOMPARE(served, 1);
        serve();
        const QString file = host.folder.filePath(QStringLiteral("wall.sprj"));
        QVERIFY(bool(host.manager.projects().save(demo, file)));
        QCOMPARE(served, 2);
        serve();
        QVERIFY(host.handler.importProcessorMapping(demo, file, false));
        QCOMPARE(served, 3);
    }

    void theDemoWallIsAProjectThatCanBeSavedAndOpenedAgain()
    {
        CDeviceFixture host;
        const QUuid demo = host.manager.projects().openDemo().value();
        QCOMPARE(host.layoutOf(demo).cabinetCount(), 240);
        QCOMPARE(host.handler.outputPortCount(demo), 16);
        QVERIFY(host.handler.getProcessorNode(demo).online);
        host.edit(demo);
        QVERIFY(host.manager.table().isModified(demo));
        const QString file = host.folder.filePath(QStringLiteral("wall.sprj"));
        const CStatus saved = host.manager.projects().save(demo, file);
        QVERIFY2(bool(saved), qPrintable(saved.error()));
        QVERIFY(!host.manager.table().isModified(demo));
        QCOMPARE(host.manager.projects().fileOf(demo), file);
        QCOMPARE(host.manager.projects().open(file).value(), demo); // it is open
        const CabinetLayout layout = host.layoutOf(demo);

        host.select(demo);
        QVERIFY(!host.log.waitFor(28).isEmpty());
        host.manager.projects().close(demo);
        QCOMPARE(host.log.waitFor(26), QStringLiteral("26 ") + idOf(QUuid()));
        QCOMPARE(host.log.waitFor(15), QStringLiteral("15 ") + idOf(demo));
        QVERIFY(!host.manager.table().contains(demo));

        const CResult<QUuid> again = host.manager.projects().open(file);
        QVERIFY2(bool(again), qPrintable(again.error()));
        QCOMPARE(host.layoutOf(again.value()).ports.size(), layout.ports.size());
        for (int port = 0; port < layout.ports.size(); ++port)
            QVERIFY(LayoutData::comparePortData(host.layoutOf(again.value()).ports.at(port),
                                                layout.ports.at(port), true));
        QVERIFY(!host.manager.table().isModified(again.value()));
    }

    void aProjectSavedAsAnotherFileTakesItsName()
    {
        CDeviceFixture host;
        const QUuid demo = host.manager.projects().openDemo().value();
        const QString file = host.folder.filePath(QStringLiteral("Tour 2.sprj"));
        host.log.take();
        QVERIFY(bool(host.manager.projects().save(demo, file, QStringLiteral("Tour 2"))));
        QCOMPARE(host.manager.treeModel().indexOf(demo).data().toString(), QStringLiteral("Tour 2"));
        QCOMPARE(host.log.waitFor(22), QStringLiteral("22 %1 1").arg(idOf(demo))); // the module asks for it
        QCOMPARE(CProcessorProject::read(file).value().name, QStringLiteral("Tour 2"));
        const QUuid lobby = host.named("Lobby");
        QVERIFY(bool(host.manager.projects().save(lobby, file, QStringLiteral("Tour 2"))));
        QCOMPARE(host.handler.getProcessorNode(lobby).name, QStringLiteral("Lobby"));
    }

    void aProjectHasNothingToSaveTo()
    {
        CDeviceFixture host;
        const QUuid demo = host.manager.projects().openDemo().value();
        for (const auto &outcome : {host.save(demo), host.read(demo)}) {
            QCOMPARE(outcome.result, SDeviceOutcome::Failed);
            QVERIFY(outcome.text.startsWith(QLatin1String("Demo wall: A project has no processor to ")));
        }
    }

    void aFileThatCannotBeOpenedChangesNothing()
    {
        CDeviceFixture host;
        const int before = host.manager.table().devices().size();
        const QString file = host.folder.filePath(QStringLiteral("broken.sprj"));
        const CResult<QUuid> missing = host.manager.projects().open(file);
        QVERIFY(!missing);
        QVERIFY(missing.error().contains(file));
        SProcessorProject project;
        project.name = QStringLiteral("Wall");
        project.kind = QStringLiteral("unheard-of");
        project.portCount = 4;
        project.canvas = {1920, 1080};
        project.layout.processor = QUuid::createUuid();
        const CStatus written = CProcessorProject::write(file, project);
        QVERIFY2(bool(written), qPrintable(written.error()));
        const CResult<QUuid> unknown = host.manager.projects().open(file);
        QVERIFY(!unknown);
        QVERIFY(unknown.error().contains(QLatin1String("unheard-of")));
        project.name = QStringLiteral("Foyer wall");
        QVERIFY(
            host.manager.projects().add(project).error().startsWith(QLatin1String("\"Foyer wall\" needs")));
        QCOMPARE(host.manager.table().devices().size(), before);
    }

    void whatWasCopiedOutOfTheTableStays()
    {
        CDeviceFixture host;
        const QList<SDevice> copies = host.manager.table().devices();
        const bool online = copies.first().node.online;
        host.manager.services().setOnline(copies.first().node.uuid, !online);
        QCOMPARE(copies.first().node.online, online);
        QCOMPARE(host.handler.getProcessorNode(copies.first().node.uuid).online, !online);
    }

    void projectsOfTheSameNameAreToldApart()
    {
        CDeviceFixture host;
        const auto nameOf = [&host](const QUuid &project) {
            return host.manager.treeModel().indexOf(project).data(CDeviceTreeModel::NameRole).toString();
        };
        const QUuid first = host.manager.projects().openDemo().value();
        const auto save = [&host](const QUuid &project, const char *name) {
            QVERIFY(QDir(host.folder.path()).mkpath(QStringLiteral("a")));
            QVERIFY(host.manager.projects().save(project, host.folder.filePath(QLatin1String(name))));
        };
        save(first, "wall.sprj");
        QCOMPARE(nameOf(first), QStringLiteral("Demo wall"));
        const QUuid second = host.manager.projects().openDemo().value();
        save(second, "copy.sprj");
        QCOMPARE(nameOf(first), QStringLiteral("Demo wall [wall.sprj]"));
        QCOMPARE(nameOf(second), QStringLiteral("Demo wall [copy.sprj]"));
        save(second, "a/wall.sprj");
        QCOMPARE(nameOf(first),
                 QStringLiteral("Demo wall [%1/wall.sprj]").arg(QDir(host.folder.path()).dirName()));
        QCOMPARE(nameOf(second), QStringLiteral("Demo wall [a/wall.sprj]"));
        QCOMPARE(host.handler.getProcessorNode(second).displayText(), QStringLiteral("Demo wall"));
        host.manager.projects().close(first);
        QCOMPARE(nameOf(second), QStringLiteral("Demo wall"));
    }

    void theTreeShowsHeadingsGroupsAndStates()
    {
        CDeviceFixture host;
        CDeviceTreeModel &tree = host.manager.treeModel();
        QAbstractItemModelTester tester(&tree, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const QUuid demo = host.manager.projects().openDemo().value();
        const QModelIndex projects = tree.index(0, 0);
        const QModelIndex devices = tree.index(1, 0);
        QCOMPARE(projects.data().toString(), QStringLiteral("Projects"));
        QCOMPARE(devices.data().toString(), QStringLiteral("Devices"));
        QCOMPARE(tree.rowCount(), 2);
        QCOMPARE(tree.rowCount(projects), 1);
        QCOMPARE(tree.rowCount(devices), 6); // five single ones and a group
        QCOMPARE(devices.data(CDeviceTreeModel::NodeTypeRole).value<PrcTreeNodeType>(),
                 PrcTreeNodeType::Other);

        const QModelIndex left = tree.indexOf(host.named("Side left"));
        const QModelIndex group = left.parent();
        QCOMPARE(group.data().toString(), QStringLiteral("Side screens"));
        QCOMPARE(group.data(CDeviceTreeModel::NodeTypeRole).value<PrcTreeNodeType>(), PrcTreeNodeType::Group);
        QCOMPARE(group.data(CDeviceTreeModel::MembersRole).value<QList<QUuid>>(),
                 (QList<QUuid>{host.named("Side left"), host.named("Side right")}));
        QVERIFY(!group.data(CDeviceTreeModel::FiberRole).toBool());
        QVERIFY(tree.indexOf(host.named("Balcony")).data(CDeviceTreeModel::FiberRole).toBool());
        QVERIFY(!tree.indexOf(host.named("Foyer")).data(CDeviceTreeModel::OnlineRole).toBool());
        QVERIFY(left.data(Qt::ToolTipRole).toString().contains(QLatin1String("192.168.10.21")));

        QSignalSpy resets(&tree, &CDeviceTreeModel::modelReset);
        QCoreApplication::processEvents();
        host.edit(demo);
        QTRY_VERIFY(tree.indexOf(demo).data(CDeviceTreeModel::ModifiedRole).toBool());
        QCOMPARE(resets.size(), 0); // a view keeps its selection
        host.manager.projects().close(demo);
        QCOMPARE(resets.size(), 1);
    }

    void everyLoadIsAskedForWhileTheWholeIsOverloaded_data()
    {
        QTest::addColumn<QVector<int>>("widths"); // of one cabinet, in the order of the commits
        QTest::addColumn<bool>("announced");      // by the last
        QTest::newRow("stays below") << QVector<int>{64, 128} << false;
        QTest::newRow("exceeds it") << QVector<int>{64, 20000} << true;
        QTest::newRow("stays above") << QVector<int>{20000, 20001} << true;
        QTest::newRow("falls below") << QVector<int>{20000, 64} << true;
        QTest::newRow("has fallen below") << QVector<int>{20000, 64, 128} << false;
    }
    void everyLoadIsAskedForWhileTheWholeIsOverloaded()
    {
        QFETCH(QVector<int>, widths);
        QFETCH(bool, announced);
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        QStringList told;
        for (const int width : widths) {
            host.log.take();
            LayoutData data = host.handler.layoutData(lobby);
            data.layout.ports[0].groups[0].cabinets[0].rect.setSize({width, 1000});
            host.handler.commitLayoutData(data);
            host.manager.announcer().notify(
                LayoutNotification::PortCountChanged); // comes behind all that a commit sends
            told.clear();
            QTRY_VERIFY((told += host.log.take()).contains(QStringLiteral("25")));
        }
        const QString all = QStringLiteral("24 %1 -1").arg(lobby.toString(QUuid::WithoutBraces));
        QCOMPARE(told.contains(all), announced);
    }

    void anEditBeginsAgainWhenTheLayoutChangedMeanwhile()
    {
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        const auto firstCorner = [&] {
            return host.layoutOf(lobby).ports.at(0).groups.at(0).cabinets.at(0).rect.topLeft();
        };
        const QPoint corner = firstCorner();
        int calls = 0;
        QVERIFY(host.manager.table().changeLayout(lobby, [&](SDevice &device) {
            if (++calls == 1)
                host.edit(lobby); // the table is not locked
            CabinetLayout layout = device.working.layout();
            layout.ports[1].locked = true;
            device.takeLayout(layout);
        }));
        QCOMPARE(calls, 2);
        QVERIFY(host.layoutOf(lobby).ports.at(1).locked);
        QCOMPARE(firstCorner(), corner + QPoint(8, 8));
        QVERIFY(!host.manager.table().changeLayout(QUuid::createUuid(), [](SDevice &) {}));
    }
};

ORVO_TEST_MAIN(QGuiApplication, CDeviceManagerTest)
#include "tst_device_manager.moc"
