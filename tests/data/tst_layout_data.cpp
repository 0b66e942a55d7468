// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/LayoutNotification.h"
#include "layout/data/CLayoutData.h"
#include "tests/harness/CFakeEditor.h"
#include "tests/harness/CSignalLog.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/SStoreWorld.h"

namespace {

using Port = CabinetLayout::CabinetPort;

const QString FollowUpNeeded = QStringLiteral("layoutFollowUpNeeded");
const QString FollowUp = QStringLiteral("applyLayoutFollowUp(false)");

/// A store with a host and an editor that shows the processor "A" of four ports.
struct SStoreScene final : SStoreWorld
{
    QUuid a = host.addProcessor(QStringLiteral("A"), 4, 2);
    QUuid b = host.addProcessor(QStringLiteral("B"), 2, 1);
    CFakeEditor editor;

    SStoreScene()
    {
        store.setLayoutSource(&editor);
        open(a);
    }
    ~SStoreScene()
    {
        closed = {};
        store.stop();
    }
    /// Brings a processor into view, and its layout into the editor.
    void open(const QUuid &processor)
    {
        host.choose(processor);
        host.notify(LayoutNotification::CurrentProcessorChanged, processor);
        editor.load(store.openProcessor(processor));
        settle(host, store);
    }
    /// Keeps the hand-over worker busy in the host until letGo(): meanwhile nothing that is deferred begins.
    void holdHandOver()
    {
        closed = std::unique_lock<std::mutex>(gate);
        answers()->onCalled = [this](const QString &call) {
            if (call == FollowUp) {
                const std::lock_guard<std::mutex> passed(gate);
            }
        };
        editor.move(3);
        store.syncLayoutData(false);
        QTRY_VERIFY(answers()->calls().contains(FollowUp));
        answers()->onCalled = nullptr;
        answers()->forgetCalls();
    }
    /// Lets the worker go on when all that was deferred until now is due.
    void letGo()
    {
        QTest::qWait(250);
        closed.unlock();
    }
    /// The host's port @p backup carries the cabinets of @p primary.
    void makeRedundant(int primary, int backup)
    {
        const auto locked = answers();
        QVector<Port> &ports = locked->layouts[a].layout.ports;
        ports[primary].redundancy = Port::Primary;
        ports[primary].redundancyPort = backup;
        ports[backup].redundancy = Port::Redundant;
        ports[backup].redundancyPort = primary;
    }
    QStringList handOverCalls()
    {
        return answers()->calls().filter(QRegularExpression(
            QStringLiteral("^(commitLayoutData|layoutFollowUpNeeded|applyLayoutFollowUp)")));
    }
    QString commitOf(const QUuid &processor) const
    {
        return QStringLiteral("commitLayoutData(%1)").arg(processor.toString(QUuid::WithoutBraces));
    }

private:
    std::mutex gate;
    std::unique_lock<std::mutex> closed;
};

} // namespace

class CLayoutDataTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void handsOverAtOnce_data()
    {
        QTest::addColumn<bool>("optionOn");
        QTest::addColumn<bool>("needed");
        QTest::newRow("follow-up at once") << true << true;
        QTest::newRow("follow-up by the worker") << true << false;
        QTest::newRow("no follow-up") << false << true;
    }
    void handsOverAtOnce()
    {
        QFETCH(bool, optionOn);
        QFETCH(bool, needed);
        SStoreScene scene;
        SLayoutOptions options;
        options.followUp = optionOn;
        scene.store.setOptions(options);
        scene.answers()->followUpNeeded = needed;
        scene.editor.move(1);
        scene.answers()->forgetCalls();

        scene.store.syncLayoutData(true);
        QVERIFY(scene.answers()->threadOf(QStringLiteral("commitLayoutData")) == std::this_thread::get_id());
        QStringList expected{scene.commitOf(scene.a)};
        if (optionOn)
            expected << FollowUpNeeded << FollowUp;
        QTRY_COMPARE(scene.handOverCalls(), expected);
        QCOMPARE(scene.answers()->layouts[scene.a].layout, scene.editor.shown);
        QCOMPARE(scene.answers()->layouts[scene.a].bounds, scene.editor.shown.boundingRect());
        if (optionOn)
            QCOMPARE(scene.answers()->threadOf(QStringLiteral("applyLayoutFollowUp")) ==
                         std::this_thread::get_id(),
                     needed);
    }

    void handsOverLaterTheLastLayoutOnly()
    {
        SStoreScene scene;
        scene.holdHandOver();
        for (int i = 0; i < 5; ++i) {
            scene.editor.move(0);
            scene.store.syncLayoutData(false);
        }
        QCOMPARE(scene.handOverCalls(), QStringList());
        scene.letGo();
        const QStringList expected{scene.commitOf(scene.a), FollowUp};
        QTRY_COMPARE(scene.handOverCalls(), expected);
        QVERIFY(scene.answers()->threadOf(QStringLiteral("commitLayoutData")) != std::this_thread::get_id());
        QCOMPARE(scene.answers()->layoutData(scene.a).layout, scene.editor.shown);
    }

    void atOnceTakesThePlaceOfWhatIsDeferred()
    {
        SStoreScene scene;
        scene.holdHandOver();
        scene.editor.move(0);
        scene.store.syncLayoutData(false);
        scene.editor.move(0);
        scene.store.syncLayoutData(true);
        scene.open(scene.b);
        scene.letGo();
        const QStringList expected{scene.commitOf(scene.a), FollowUpNeeded, FollowUp};
        QTRY_COMPARE(scene.handOverCalls(), expected);
    }

    void anotherProcessorDoesNotLoseTheEditsBefore()
    {
        SStoreScene scene;
        scene.editor.move(2);
        scene.store.syncLayoutData(false);
        const CabinetLayout edited = scene.editor.shown;
        scene.open(scene.b);
        QCOMPARE(scene.answers()->layoutData(scene.a).layout, edited);
        QCOMPARE(scene.store.layoutData().processor, scene.b);
        scene.open(scene.a);
        QCOMPARE(scene.editor.shown, edited);
    }

    void stoppingHandsOverWhatIsDeferred()
    {
        SStoreScene scene;
        scene.editor.move(2);
        scene.store.syncLayoutData(false);
        scene.store.stop();
        QCOMPARE(scene.answers()->layouts[scene.a].layout, scene.editor.shown);
        scene.store.stop();
    }

    void editsOfAReplacedLayoutDoNotCount()
    {
        SStoreScene scene;
        scene.holdHandOver();
        scene.editor.move(0);
        scene.store.syncLayoutData(false);
        CSignalLog replaced(&scene.store, &CLayoutData::notifyLayoutReplaced);
        LayoutData imported = scene.answers()->layoutData(scene.a);
        imported.layout.ports[3].groups.clear();
        scene.answers()->commitLayoutData(imported);
        scene.host.notify(LayoutNotification::LayoutReplaced, scene.a);
        scene.editor.move(1); // the editor still shows the layout before
        scene.store.syncLayoutData(true);
        scene.letGo();
        QTRY_COMPARE(scene.handOverCalls().last(), FollowUp); // of the edit before
        QCOMPARE(scene.answers()->layoutData(scene.a), imported);
        QTRY_COMPARE(replaced.count(), 1);

        scene.editor.load(scene.store.openProcessor(scene.a));
        QCOMPARE(scene.editor.shown, imported.layout);
        scene.editor.move(1);
        scene.store.syncLayoutData(true);
        QCOMPARE(scene.answers()->layoutData(scene.a).layout, scene.editor.shown);
    }

    void aBackupChangeKeepsPendingEdits()
    {
        SStoreScene scene;
        scene.holdHandOver();
        scene.store.setPortLocked(1, true);
        scene.answers()->layouts[scene.a].layout.ports[0].redundancy = Port::Primary;
        scene.host.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 3, true});
        QVERIFY(scene.store.isPortLocked(1));
        QCOMPARE(scene.store.portRedundancy(0), Port::Primary);
    }

    void asksForTheLoadsOfChangedPortsOnly()
    {
        SStoreScene scene;
        QCOMPARE(scene.answers()->count(QStringLiteral("portLoad")), 4);
        scene.answers()->forgetCalls();
        scene.answers()->loads[2] = 90;
        CSignalLog port(&scene.store, &CLayoutData::notifyProcessorPortPayloadChanged);
        CSignalLog processor(&scene.store, &CLayoutData::notifyProcessorPayloadChanged);
        scene.editor.move(2);
        scene.store.syncLayoutData(true);
        QTRY_COMPARE(processor.count(), 1);
        QCOMPARE(processor[0], QVariantList{23});
        QCOMPARE(port.count(), 1);
        QCOMPARE(port[0], (QVariantList{2, 90}));
        QCOMPARE(scene.answers()->calls().filter(QStringLiteral("portLoad")),
                 QStringList{QStringLiteral("portLoad(2,2)")});
        scene.editor.move(2); // for a load as before
        scene.store.syncLayoutData(true);
        settle(scene.host, scene.store);
        QCOMPARE(processor.count(), 1);
    }

    void aRedundancyPortCarriesThePrimarysLoad()
    {
        SStoreScene scene;
        scene.makeRedundant(1, 3);
        scene.open(scene.a);
        scene.answers()->loads = {{1, 70}, {3, 5}};
        CSignalLog port(&scene.store, &CLayoutData::notifyProcessorPortPayloadChanged);
        CSignalLog processor(&scene.store, &CLayoutData::notifyProcessorPayloadChanged);
        processor.clear();

        QVERIFY(scene.store.updatePortLoad(1, true));
        QCOMPARE(port.count(), 2);
        QCOMPARE(port[0], (QVariantList{1, 70}));
        QCOMPARE(port[1], (QVariantList{3, 70}));
        QCOMPARE(processor.count(), 1);
        QVERIFY(!scene.store.updatePortLoad(3, true)); // asks for port 1 in its place
        QVERIFY(!scene.store.updatePortLoad(1, true));
        QVERIFY(!scene.store.updatePortLoad(-1, true));
        QVERIFY(!scene.store.updatePortLoad(4, true));
        QCOMPARE(port.count(), 2);
        QCOMPARE(processor.count(), 1);
    }

    void announcesLocksColoursAndOptionsOnce()
    {
        SStoreScene scene;
        CSignalLog locked(&scene.store, &CLayoutData::notifyProcessorPortLocked);
        CSignalLog colored(&scene.store, &CLayoutData::notifyProcessorPortColorChanged);
        CSignalLog options(&scene.store, &CLayoutData::notifyLayoutOptionChanged);
        for (int i = 0; i < 2; ++i) {
            scene.store.setPortLocked(2, true);
            scene.store.setPortColor(0, Qt::red);
            scene.store.setOptions({true, true, true});
            scene.store.setPortLocked(9, true);
            scene.store.setPortColor(9, Qt::red);
        }
        QCOMPARE(locked.count(), 1);
        QCOMPARE(colored.count(), 1);
        QCOMPARE(options.count(), 1);
        scene.store.setPortLocked(-1, true);
        QCOMPARE(locked.count(), 4);
        QVERIFY(scene.store.isPortLocked(0));
        QVERIFY(scene.store.portColor(1).isValid());
        scene.store.syncLayoutData(true);
        const CabinetLayout handedOver = scene.answers()->layouts[scene.a].layout;
        QVERIFY(handedOver.ports[3].locked);
        QCOMPARE(handedOver.ports[0].color, QColor(Qt::red));
    }

    void noSignalComesUnderTheLock()
    {
        SStoreScene scene;
        int answered = 0;
        const auto useStore = [&scene, &answered] {
            scene.store.setCurrentPort(1); // would hang under the lock
            answered += scene.store.ports().size();
        };
        connect(&scene.store, &CLayoutData::notifyProcessorPortLocked, this, useStore);
        connect(&scene.store, &CLayoutData::notifyLayoutOptionChanged, this, useStore);
        connect(&scene.store, &CLayoutData::notifyProcessorPortPayloadChanged, this, useStore,
                Qt::DirectConnection);
        connect(&scene.store, &CLayoutData::notifyCancelCalibrate, this, useStore);
        connect(&scene.store, &CLayoutData::notifyCurrentPortChanged, &scene.store, useStore,
                Qt::DirectConnection);
        scene.answers()->onCalled = [&scene](const QString &) { scene.store.setCurrentPort(2); };
        scene.answers()->loads[0] = 12;
        scene.store.setPortLocked(0, true);
        scene.store.setOptions({true, true, true});
        scene.store.updatePortLoad(0, true);
        scene.store.cancelCalibrate(-1);
        scene.store.syncLayoutData(true);
        QVERIFY(answered >= 16);
    }

    void aLayoutThatIsReplacedWhileItIsOpenedIsRefused()
    {
        SStoreScene scene;
        LayoutData imported = scene.answers()->layoutData(scene.b);
        imported.layout.ports[1].groups.clear();
        scene.answers()->onCalled = [&](const QString &call) {
            if (call != QLatin1String("background"))
                return; // the layout has been read
            scene.answers()->onCalled = nullptr;
            scene.answers()->layouts[scene.b] = imported;
            scene.host.notify(LayoutNotification::LayoutReplaced, scene.b);
        };
        scene.host.choose(scene.b);
        scene.editor.load(scene.store.openProcessor(scene.b));
        scene.editor.move(0);
        scene.store.syncLayoutData(true);
        QCOMPARE(scene.answers()->layouts[scene.b], imported); // until the editor loads it again
    }

    void nothingIsEditedWhileTheHostIsAskedForWhatItReplaced()
    {
        SStoreScene scene;
        LayoutData imported = scene.answers()->layoutData(scene.a);
        imported.layout.ports[3].groups.clear();
        connect(
            &scene.store, &CLayoutData::notifyLayoutReplaced, &scene.store,
            [&scene] {
                scene.editor.move(1);
                scene.store.syncLayoutData(true);
            },
            Qt::DirectConnection); // as the editor may at any time before it has loaded
        scene.answers()->layouts[scene.a] = imported;
        scene.host.notify(LayoutNotification::LayoutReplaced, scene.a);
        QCOMPARE(scene.answers()->layouts[scene.a], imported);
    }

    void announcesWhichPortIsCurrent()
    {
        SStoreScene scene;
        scene.store.resumeCurrentPort(); // the barrier was a detection
        QCOMPARE(scene.store.currentPort(), 0);
        CSignalLog current(&scene.store, &CLayoutData::notifyCurrentPortChanged);
        const auto announced = [&current] {
            QVector<int> ports;
            for (int i = 0; i < current.count(); ++i)
                ports << current[i].at(0).toInt();
            current.clear();
            return ports;
        };
        scene.store.setCurrentPort(2);
        scene.store.setCurrentPort(2);
        scene.store.setCurrentPort(9);
        QCOMPARE(announced(), QVector<int>{2});
        settle(scene.host, scene.store);
        QCOMPARE(announced(), QVector<int>{-1});
        scene.store.resumeCurrentPort();
        QCOMPARE(announced(), QVector<int>{2});
        scene.host.notify(LayoutNotification::CurrentProcessorChanged, scene.b);
        scene.host.notify(LayoutNotification::CurrentProcessorChanged, scene.a);
        QTRY_COMPARE(current.count(), 1);
        scene.store.resumeCurrentPort();
        QCOMPARE(announced(), (QVector<int>{-1, 2}));
        scene.answers()->layouts[scene.a].layout.ports.resize(2);
        scene.host.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 1, true});
        QTRY_COMPARE(current.count(), 1);
        QCOMPARE(announced(), QVector<int>{0});
        scene.store.setCurrentPort(1);
        scene.host.choose(scene.b);
        scene.store.openProcessor(scene.b);
        QCOMPARE(announced(), (QVector<int>{1, 0}));
        scene.store.openProcessor(QUuid());
        QCOMPARE(announced(), QVector<int>{-1});
    }

    void aSyncAsksForNoLoadsWhereOnlyPlacesDiffer()
    {
        SStoreScene scene;
        scene.answers()->forgetCalls();
        scene.editor.shown.ports[1].groups[0].cabinets[1].mappingIndex = 7;
        scene.store.syncLayoutData(true);
        settle(scene.host, scene.store);
        QCOMPARE(scene.answers()->count(QStringLiteral("portLoad")), 0);
    }

    void aLoadThatComesTooLateIsRefused()
    {
        SStoreScene scene;
        CProcessorStates states;
        states.takeFromHost(scene.a, scene.answers()->layoutData(scene.a).layout.ports, false);
        states.takeFromHost(scene.b, scene.answers()->layoutData(scene.b).layout.ports, false);
        states.setCurrent(scene.a);
        const auto question = states.loadQuestion(1);
        QVERIFY(question);
        states.setCurrent(scene.b); // while the host was asked
        QVERIFY(!states.setLoad(question->processor, 1, 70));
        QCOMPARE(states.port(1).load, qint64(0));
        QVERIFY(states.setLoad(scene.b, 1, 70));
        QVERIFY(!states.setLoad(scene.b, 2, 70)); // no such port
        QVERIFY(!states.loadQuestion(2));
    }

    void endsTheHighlightOfItsPorts()
    {
        SStoreScene scene;
        for (int port = 0; port < 4; ++port)
            scene.answers()->layouts[scene.a].layout.ports[port].groups[0].cabinets[1].calibrationIndex =
                port;
        scene.open(scene.a);
        CSignalLog cancelled(&scene.store, &CLayoutData::notifyCancelCalibrate);
        const auto highlightOf = [&scene](int port) {
            return scene.store.port(port).getAllCabinets().at(1).calibrationIndex;
        };
        scene.store.cancelCalibrate(7);
        QCOMPARE(cancelled.count(), 0);
        scene.store.cancelCalibrate(1);
        QCOMPARE(highlightOf(1), -1);
        QCOMPARE(highlightOf(2), 2);
        scene.store.cancelCalibrate(-1);
        QCOMPARE(highlightOf(3), -1);
        QCOMPARE(cancelled.count(), 2);
        scene.host.notify(LayoutNotification::ProcessorRemoved, scene.a);
        scene.store.cancelCalibrate(-1); // no ports: nothing
        QCOMPARE(cancelled.count(), 2);
    }
};

ORVO_TEST_MAIN(QApplication, CLayoutDataTest)
#include "tst_layout_data.moc"
