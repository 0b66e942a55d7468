// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CDeviceTreeModel.h"
#include "host/projects/CProcessorProject.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/CFaultyFileSystem.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <cerrno>

class CDeviceManagerTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void everyStateCanBeReachedAndLeft()
    {
        CDeviceFixture host;
        host.select(host.stage);
        using Fault = SimulationFault;
        const std::pair<Fault, CanvasBlock> rows[] = {
            {Fault::Bypass, CanvasBlock::Bypass},        {Fault::FiberTransceiver, CanvasBlock::Bypass},
            {Fault::ThreeD, CanvasBlock::None},          {Fault::LowLatency, CanvasBlock::ZeroFrameDelay},
            {Fault::Frozen, CanvasBlock::Frozen},        {Fault::Polling, CanvasBlock::Polling},
            {Fault::HdmiOutput, CanvasBlock::HdmiOutput}};
        for (const auto &[state, block] : rows) {
            const bool fiber = state == Fault::FiberTransceiver;
            host.manager.simulate(host.stage, state, true);
            host.manager.simulate(host.stage, fiber ? Fault::Bypass : Fault::FiberTransceiver, false);
            QVERIFY(host.manager.isSimulated(host.stage, state)); // the end of another state is not its end
            QCOMPARE(host.handler.canvasBlock(), block);
            QCOMPARE(host.handler.isThreeDEnabled(), state == Fault::ThreeD);
            QCOMPARE(host.handler.isFiberTransceiverMode(host.stage), fiber);
            CDeviceFixture again(0, host.folder.path()); // without power in between
            QCOMPARE(again.manager.isSimulated(host.stage, state), state != Fault::Frozen);
            host.manager.simulate(host.stage, state, false);
            QVERIFY(!host.manager.isSimulated(host.stage, state));
            QCOMPARE(host.handler.canvasBlock(), CanvasBlock::None);
        }
    }

    void selectingAnnouncesTheCurrentProcessorThenTheAreas()
    {
        CDeviceFixture host;
        const QString leftArea = CDeviceFixture::idOf(host.left) + QStringLiteral(" 0 0 1920 2304");
        const QString rightArea = CDeviceFixture::idOf(host.right) + QStringLiteral(" 1920 0 1920 2304");
        QSignalSpy current(&host.manager.announcer(), &CDeviceAnnouncer::notifyCurrentProcessorChanged);

        host.select(host.left);
        QCOMPARE(host.log.waitFor(26), QStringLiteral("26 ") + CDeviceFixture::idOf(host.left));
        QCOMPARE(host.log.waitFor(28), QStringLiteral("28 0 ") + leftArea);
        QCOMPARE(host.handler.currentProcessorPorts().size(), 20);

        host.manager.services().select({host.left, host.right}, PrcTreeNodeType::Group);
        QCOMPARE(host.log.waitFor(26), QStringLiteral("26 ") + CDeviceFixture::idOf(QUuid()));
        QCOMPARE(host.log.waitFor(28), QStringLiteral("28 1 %1 %2").arg(leftArea, rightArea));
        QCOMPARE(host.handler.selectedProcessors().size(), 2);
        QVERIFY(host.handler.currentProcessorPorts().isEmpty());

        host.manager.services().select({host.left}, PrcTreeNodeType::Group); // one member is no processor
        QCOMPARE(host.log.waitFor(28), QStringLiteral("28 1 ") + leftArea);
        QCOMPARE(current.size(), 2); // it was null already
    }

    void theDemoWallIsAProjectThatCanBeSavedAndOpenedAgain()
    {
        CDeviceFixture host;
        int served = 0; // while files are read and written
        const auto serve = [&served] {
            QMetaObject::invokeMethod(
                qApp, [&served] { ++served; }, Qt::QueuedConnection);
        };
        serve();
        const QUuid demo = host.manager.projects().openDemo().value();
        QCOMPARE(served, 1);
        QVERIFY(host.handler.getProcessorNode(demo).online);
        for (const auto &outcome : {host.save(demo), host.read(demo)}) { // it has no processor
            QCOMPARE(outcome.result, SDeviceOutcome::Failed);
            QVERIFY(outcome.text.startsWith(QLatin1String("Demo wall: A project has no processor to ")));
        }
        host.edit(demo);
        QVERIFY(host.manager.table().isModified(demo));
        const QString file = host.folder.filePath(QStringLiteral("wall.sprj"));
        serve();
        QVERIFY(bool(host.manager.projects().save(demo, file)));
        QVERIFY(host.log.waitFor(30).startsWith(QLatin1String("30 ")));
        QCOMPARE(served, 2);
        QVERIFY(!host.manager.table().isModified(demo));
        QCOMPARE(host.manager.projects().open(file).value(), demo); // it is open
        serve();
        QVERIFY(host.handler.importProcessorMapping(demo, file, false));
        QCOMPARE(served, 3);
        QVERIFY(bool(host.manager.projects().save(demo, file)));
        const CabinetLayout layout = host.layoutOf(demo);

        host.select(demo);
        QVERIFY(!host.log.waitFor(28).isEmpty());
        host.manager.projects().close(demo);
        QCOMPARE(host.log.waitFor(26), QStringLiteral("26 ") + CDeviceFixture::idOf(QUuid()));
        QCOMPARE(host.log.waitFor(15), QStringLiteral("15 ") + CDeviceFixture::idOf(demo));
        QVERIFY(!host.manager.table().contains(demo));

        const QUuid again = host.manager.projects().open(file).value();
        QCOMPARE(host.layoutOf(again).ports.size(), layout.ports.size());
        for (int port = 0; port < layout.ports.size(); ++port)
            QVERIFY(LayoutData::comparePortData(host.layoutOf(again).ports.at(port), layout.ports.at(port),
                                                true));
        QVERIFY(!host.manager.table().isModified(again));
    }

    void aSaveThatTheDiskDidNotConfirmIsNotTakenForAChangeByOthers()
    {
        CDeviceFixture host;
        CProjectShelf &shelf = host.manager.projects();
        const QUuid demo = shelf.openDemo().value();
        const QString file = host.folder.filePath(QStringLiteral("wall.sprj"));
        QVERIFY(bool(shelf.save(demo, file)));
        host.edit(demo);
        {
            const CFaultyFileSystem faulty(CFaultyFileSystem::SFault{"sync", 2, EIO, false}); // the folder's
            QVERIFY(!shelf.save(demo, file));
        }
        QVERIFY(host.manager.table().isModified(demo));
        SProjectSaving how;
        how.overChanged = false;
        QVERIFY(bool(shelf.save(demo, file, {}, &how)));
    }

    void aProjectSavedAsAnotherFileTakesItsName()
    {
        CDeviceFixture host;
        const QUuid demo = host.manager.projects().openDemo().value();
        const QString file = host.folder.filePath(QStringLiteral("Tour 2.sprj"));
        host.log.take();
        QVERIFY(bool(host.manager.projects().save(demo, file, QStringLiteral("Tour 2"))));
        QCOMPARE(host.manager.treeModel().indexOf(demo).data().toString(), QStringLiteral("Tour 2"));
        QVERIFY(!host.log.waitFor(22).isEmpty()); // the module asks for it
        QCOMPARE(CProcessorProject::read(file).value().name, QStringLiteral("Tour 2"));
        QVERIFY(bool(host.manager.projects().save(host.lobby, file, QStringLiteral("Tour 2"))));
        QCOMPARE(host.handler.getProcessorNode(host.lobby).name, QStringLiteral("Lobby"));
    }

    void aFileThatCannotBeOpenedChangesNothing()
    {
        CDeviceFixture host;
        const int before = host.manager.table().devices().size();
        const QString file = host.folder.filePath(QStringLiteral("broken.sprj"));
        QVERIFY(host.manager.projects().open(file).error().contains(file)); // missing
        SProcessorProject project;
        project.name = QStringLiteral("Wall");
        project.kind = QStringLiteral("unheard-of");
        project.portCount = 4;
        project.canvas = {1920, 1080};
        project.layout.processor = QUuid::createUuid();
        QVERIFY(bool(CProcessorProject::write(file, project)));
        QVERIFY(host.manager.projects().open(file).error().contains(QLatin1String("unheard-of")));
        QVERIFY(host.manager.projects().add(project).error().startsWith(QLatin1String("\"Wall\" needs")));
        QCOMPARE(host.manager.table().devices().size(), before);
    }

    void projectsOfTheSameNameAreToldApart()
    {
        CDeviceFixture host;
        QList<QUuid> projects;
        const auto names = [&] {
            QStringList texts;
            for (const QUuid &project : qAsConst(projects))
                texts
                    << host.manager.treeModel().indexOf(project).data(CDeviceTreeModel::NameRole).toString();
            return texts.join(QLatin1Char('|'));
        };
        QVERIFY(QDir(host.folder.path()).mkpath(QStringLiteral("a")));
        for (const char *file : {"wall.sprj", "copy.sprj", "a/wall.sprj"}) {
            projects << host.manager.projects().openDemo().value();
            QVERIFY(host.manager.projects().save(projects.last(), host.folder.filePath(QLatin1String(file))));
        }
        const QString folder = QFileInfo(host.folder.path()).fileName();
        QCOMPARE(names(),
                 QStringLiteral("Demo wall [%1/wall.sprj]|Demo wall [copy.sprj]|Demo wall [a/wall.sprj]")
                     .arg(folder));
        host.manager.projects().close(projects.takeFirst());
        host.manager.projects().close(projects.takeLast());
        QCOMPARE(names(), QStringLiteral("Demo wall"));
    }

    void theTreeShowsHeadingsGroupsAndStates()
    {
        CDeviceFixture host;
        CDeviceTreeModel &tree = host.manager.treeModel();
        QAbstractItemModelTester tester(&tree, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const QUuid demo = host.manager.projects().openDemo().value();
        QCOMPARE(tree.rowCount(tree.index(0, 0)), 1); // projects
        QCOMPARE(tree.rowCount(tree.index(1, 0)), 6); // five single devices and a group
        const QModelIndex group = tree.indexOf(host.left).parent();
        QCOMPARE(group.data(CDeviceTreeModel::NodeTypeRole).value<PrcTreeNodeType>(), PrcTreeNodeType::Group);
        QCOMPARE(group.data(CDeviceTreeModel::MembersRole).value<QList<QUuid>>(),
                 (QList<QUuid>{host.left, host.right}));
        QVERIFY(tree.indexOf(host.named("Balcony")).data(CDeviceTreeModel::FiberRole).toBool());
        QVERIFY(!tree.indexOf(host.named("Foyer")).data(CDeviceTreeModel::OnlineRole).toBool());

        QSignalSpy resets(&tree, &CDeviceTreeModel::modelReset);
        QCoreApplication::processEvents();
        host.edit(demo);
        QTRY_VERIFY(tree.indexOf(demo).data(CDeviceTreeModel::ModifiedRole).toBool());
        QCOMPARE(resets.size(), 0); // a view keeps its selection
        host.manager.projects().close(demo);
        QCOMPARE(resets.size(), 1);
    }

    void everyLoadIsAskedForWhileTheWholeIsOverloaded()
    {
        CDeviceFixture host;
        const auto announcedAt = [&host](int width) { // of one cabinet
            host.log.take();
            LayoutData data = host.handler.layoutData(host.lobby);
            data.layout.ports[0].groups[0].cabinets[0].rect.setSize({width, 1000});
            host.handler.commitLayoutData(data);
            host.manager.announcer().notify(LayoutNotification::DetectFinished); // behind all of the commit's
            return host.notifiedUpToDetection().contains(
                QStringLiteral("24 %1 -1").arg(CDeviceFixture::idOf(host.lobby)));
        };
        QVERIFY(!announcedAt(64));
        QVERIFY(announcedAt(20000));
        QVERIFY(announcedAt(20001)); // it stays above
        QVERIFY(announcedAt(64));    // it falls below
        QVERIFY(!announcedAt(128));
    }

    void anEditBeginsAgainWhenTheLayoutChangedMeanwhile()
    {
        CDeviceFixture host;
        const auto firstCorner = [&host] {
            return host.layoutOf(host.lobby).ports.at(0).groups.at(0).cabinets.at(0).rect.topLeft();
        };
        const QPoint corner = firstCorner();
        int calls = 0;
        QVERIFY(host.manager.table().changeLayout(host.lobby, [&](SDevice &device) {
            if (++calls == 1)
                host.edit(host.lobby); // the table is not locked
            CabinetLayout layout = device.working.layout();
            layout.ports[1].locked = true;
            device.takeLayout(layout);
        }));
        QCOMPARE(calls, 2);
        QVERIFY(host.layoutOf(host.lobby).ports.at(1).locked);
        QCOMPARE(firstCorner(), corner + QPoint(8, 8));
        QVERIFY(!host.manager.table().changeLayout(QUuid::createUuid(), [](SDevice &) {}));
    }

    void anEditIsRefusedWhenTheLayoutWasReplacedMeanwhile()
    {
        CDeviceFixture host;
        CDeviceTable &table = host.manager.table();
        const CabinetLayout before = host.layoutOf(host.lobby);
        int calls = 0;
        const auto known = table.editLayout(host.lobby, [&](SDevice &device) {
            ++calls;
            table.replaceLayout(host.lobby, [](SDevice &other) { other.takeLayout({}); });
            table.endReplacement(host.lobby);
            CabinetLayout edited = before;
            edited.ports[0].locked = true;
            device.takeLayout(edited);
        });
        QCOMPARE(calls, 1);
        QVERIFY(known.contains(before.ports)); // which may have been given back unedited
        QCOMPARE(host.layoutOf(host.lobby).cabinetCount(), 0);
    }
};

ORVO_TEST_MAIN(QGuiApplication, CDeviceManagerTest)
#include "tst_device_manager.moc"
