// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/LayoutNotification.h"
#include "tests/data/SStoreScene.h"
#include "tests/harness/CSignalLog.h"
#include "tests/harness/CTestBase.h"

#include <atomic>
#include <future>

namespace {

using Port = CabinetLayout::CabinetPort;

const QString FollowUpNeeded = QStringLiteral("layoutFollowUpNeeded");
const QString &FollowUp = SStoreScene::FollowUp;

} // namespace

class CLayoutDataTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void handsOverAtOnce()
    {
        struct SCase
        {
            bool followUp; // whether the option is on
            bool needed;   // at once, or later by the worker
        };
        for (const auto &[followUp, needed] : {SCase{true, true}, SCase{true, false}, SCase{false, true}}) {
            SStoreScene scene;
            SLayoutOptions options;
            options.followUp = followUp;
            scene.store.setOptions(options);
            scene.answers()->followUpNeeded = needed;
            scene.answers()->forgetCalls();
            scene.edit(1, true);
            const auto isHere = [&scene](const char *call) {
                return scene.answers()->threadOf(QString::fromLatin1(call)) == std::this_thread::get_id();
            };
            QVERIFY(isHere("commitLayoutData"));
            QStringList expected{scene.commitOf(scene.a)};
            if (followUp)
                expected << FollowUpNeeded << FollowUp;
            QTRY_COMPARE(scene.handOverCalls(), expected);
            QCOMPARE(scene.answers()->layouts[scene.a].layout, scene.editor.shown);
            QCOMPARE(scene.answers()->layouts[scene.a].bounds, scene.editor.shown.boundingRect());
            QVERIFY(!followUp || isHere("applyLayoutFollowUp") == needed);
        }
    }

    void handsOverLaterTheLastLayoutOnly()
    {
        SStoreScene scene;
        scene.holdHandOver();
        for (int i = 0; i < 5; ++i)
            scene.edit(0, false);
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
        scene.edit(0, false);
        scene.edit(0, true);
        scene.open(scene.b);
        scene.letGo();
        const QStringList expected{scene.commitOf(scene.a), FollowUpNeeded, FollowUp};
        QTRY_COMPARE(scene.handOverCalls(), expected);
    }

    void anotherProcessorDoesNotLoseTheEditsBefore()
    {
        SStoreScene scene;
        scene.edit(2, false);
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
        scene.edit(2, false);
        scene.store.stop();
        QCOMPARE(scene.answers()->layouts[scene.a].layout, scene.editor.shown);
        scene.store.stop();
    }

    void aReplacementWaitsForWhatTheHostIsBeingGiven()
    {
        SStoreScene scene;
        std::mutex gate;
        std::unique_lock<std::mutex> closed(gate);
        std::atomic<bool> given{false};
        scene.answers()->onCalled = [&](const QString &call) {
            if (call != scene.commitOf(scene.a))
                return;
            given = true;
            const std::lock_guard<std::mutex> passed(gate);
        };
        scene.edit(0, false);
        QTRY_VERIFY(given);
        const auto notified = std::async(
            std::launch::async, [&scene] { scene.host.notify(LayoutNotification::LayoutReplaced, scene.a); });
        const std::future_status meanwhile = notified.wait_for(CLayoutHandOver::Delay);
        closed.unlock();
        notified.wait();
        QVERIFY(meanwhile == std::future_status::timeout);
        QVERIFY(!scene.store.takeLostEdit(scene.a)); // if the host refuses it, the host tells
        QTRY_COMPARE(scene.handOverCalls().last(), FollowUp);
        scene.answers()->onCalled = nullptr;
    }

    void editsOfAReplacedLayoutDoNotCount()
    {
        SStoreScene scene;
        scene.holdHandOver();
        scene.edit(0, false);
        CSignalLog replaced(&scene.store, &CLayoutData::notifyLayoutReplaced);
        LayoutData imported = scene.answers()->layoutData(scene.a);
        imported.layout.ports[3].groups.clear();
        scene.answers()->commitLayoutData(imported);
        scene.host.notify(LayoutNotification::LayoutReplaced, scene.a);
        scene.edit(1, true); // the editor still shows the layout before
        scene.letGo();
        QTRY_COMPARE(scene.handOverCalls().last(), FollowUp); // of the edit before
        QCOMPARE(scene.answers()->layoutData(scene.a), imported);
        QTRY_COMPARE(replaced.count(), 1);
        QVERIFY(scene.store.takeLostEdit(scene.a));
        QVERIFY(!scene.store.unsavedEdits());

        scene.editor.load(scene.store.openProcessor(scene.a));
        QCOMPARE(scene.editor.shown, imported.layout);
        scene.edit(1, true);
        QCOMPARE(scene.answers()->layoutData(scene.a).layout, scene.editor.shown);
        QVERIFY(scene.store.unsavedEdits());
        scene.answers()->unsaved[scene.a].unannounced = true; // is another layout by now
        QVERIFY(!scene.store.unsavedEdits());
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
        scene.edit(2, true);
        QTRY_COMPARE(processor.count(), 1);
        QCOMPARE(processor[0], QVariantList{23});
        QCOMPARE(port.count(), 1);
        QCOMPARE(port[0], (QVariantList{2, 90}));
        QCOMPARE(scene.answers()->calls().filter(QStringLiteral("portLoad")),
                 QStringList{QStringLiteral("portLoad(2,2)")});
        scene.edit(2, true); // for a load as before
        settle(scene.host, scene.store);
        QCOMPARE(processor.count(), 1);
        scene.answers()->loads[2] = 91;
        scene.edit(2, true); // the mean stays, rounded up
        settle(scene.host, scene.store);
        QCOMPARE(port.count(), 2);
        QCOMPARE(processor.count(), 1);
        scene.answers()->forgetCalls();
        scene.editor.shown.ports[1].groups[0].cabinets[1].mappingIndex = 7; // the host's own
        scene.store.syncLayoutData(true);
        settle(scene.host, scene.store);
        QCOMPARE(scene.answers()->count(QStringLiteral("portLoad")), 0);
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
        for (const int other : {3, 1, -1, 4}) // for 3 it asks for 1
            QVERIFY(!scene.store.updatePortLoad(other, true));
        QCOMPARE(port.count(), 2);
        QCOMPARE(processor.count(), 1);
    }

    void announcesLocksColoursAndOptionsOnce()
    {
        SStoreScene scene;
        CSignalLog locked(&scene.store, &CLayoutData::notifyProcessorPortLocked);
        CSignalLog colored(&scene.store, &CLayoutData::notifyProcessorPortColorChanged);
        CSignalLog options(&scene.store, &CLayoutData::notifyLayoutOptionChanged);
        scene.answers()->forgetCalls();
        for (int i = 0; i < 2; ++i) {
            scene.store.setPortLocked(2, true);
            scene.store.setPortColor(0, Qt::red);
            scene.store.setOptions({true, true, true});
            scene.store.setPortLocked(9, true);
            scene.store.setPortColor(9, Qt::red);
        }
        QCOMPARE(scene.answers()->count(QStringLiteral("commitLayoutData")), 2); // and whatever else waits
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

    void whatTheHostHasReplacedStaysWhenNothingWasEdited()
    {
        SStoreScene scene;
        scene.edit(1, true);
        LayoutData &read = scene.answers()->layouts[scene.a];
        read.layout.ports[1].groups.clear(); // not announced yet
        scene.store.flushEdits();
        QVERIFY(read.layout.ports[1].groups.isEmpty());
        scene.edit(1, false);
        scene.store.flushEdits();
        QVERIFY(!read.layout.ports[1].groups.isEmpty());
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
        scene.edit(0, true);
        QCOMPARE(scene.answers()->layouts[scene.b], imported); // until the editor loads it again
    }

    void nothingIsEditedWhileTheHostIsAskedForWhatItReplaced()
    {
        SStoreScene scene;
        LayoutData imported = scene.answers()->layoutData(scene.a);
        imported.layout.ports[3].groups.clear();
        connect(
            &scene.store, &CLayoutData::notifyLayoutReplaced, &scene.store, [&scene] { scene.edit(1, true); },
            Qt::DirectConnection); // as the editor may at any time before it has loaded
        scene.answers()->layouts[scene.a] = imported;
        scene.host.notify(LayoutNotification::LayoutReplaced, scene.a);
        QCOMPARE(scene.answers()->layouts[scene.a], imported);
    }

    void boundsAreThoseOfEditsAlsoWhenPortsAreRefreshed()
    {
        SStoreScene scene;
        scene.holdHandOver();
        scene.editor.shown.ports[0].groups[0].cabinets[0].rect.translate(5000, 0);
        scene.store.syncLayoutData(false);
        const QRect edited = scene.store.layoutData().bounds;
        QVERIFY(edited.right() >= 5000);
        CSignalLog loads(&scene.store, &CLayoutData::notifyProcessorPayloadChanged);
        scene.host.notify(LayoutNotification::PortCountChanged);
        QTRY_COMPARE(loads.count(), 1);
        QCOMPARE(scene.store.layoutData().bounds, edited);
        scene.letGo();
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
