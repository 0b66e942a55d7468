// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/LayoutNotification.h"
#include "layout/data/CLayoutData.h"
#include "tests/harness/CSignalLog.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/SStoreWorld.h"

namespace {

/// Stands for the controller: notes which slot was invoked, with what, and on which thread.
class CFakeController final : public QObject
{
    Q_OBJECT

public:
    QStringList invoked;
    bool onOwnThread = true;

public Q_SLOTS:
    void OnCurrentProcessorChanged() { note(QStringLiteral("current")); }
    void onCurrentProcessorPortCountChanged(const ProcessorTree::ProcessorNode &node)
    {
        note(QStringLiteral("ports of ") + node.name);
    }
    void OnCurrentSelectedNodeChanged(PrcTreeNodeType type, const ProcessorBoundingRects &rects)
    {
        note(QStringLiteral("selected %1 %2").arg(static_cast<int>(type)).arg(rects.size()));
    }
    void onReadbackMappingFinished(const QUuid &processor, bool same)
    {
        note(QStringLiteral("readback %1 %2").arg(processor.isNull()).arg(same));
    }
    void onPrcWorkModeChanged() { note(QStringLiteral("work mode")); }
    void OnCurrentProcessorStateChanged() { note(QStringLiteral("state")); }

private:
    void note(const QString &what)
    {
        invoked << what;
        onOwnThread = onOwnThread && QThread::currentThread() == thread();
    }
};

struct SDispatchScene final : SStoreWorld
{
    QUuid a = host.addProcessor(QStringLiteral("A"), 3, 1);
    CFakeController controller;
    std::mutex mutex;
    QStringList signalled;
    QMap<QString, std::thread::id> threads;

    SDispatchScene()
    {
        connectSignals();
        store.setController(&controller);
        show(a);
        store.openProcessor(a);
        settle();
        controller.invoked.clear();
        threads.clear();
        host.answers()->forgetCalls();
    }
    ~SDispatchScene() { store.stop(); } // before what the signals use goes
    template <typename Signal>
    void noteSignal(Signal signal, const char *name)
    {
        QObject::connect(
            &store, signal, &store, [this, name] { note(QString::fromLatin1(name)); }, Qt::DirectConnection);
    }
    void connectSignals()
    {
        noteSignal(&CLayoutData::notifyProcessorStateChanged, "state");
        noteSignal(&CLayoutData::notifyProcessorBackgroundChanged, "background");
        noteSignal(&CLayoutData::notifyProcessorPortBackup, "backup");
        noteSignal(&CLayoutData::notifyProcessorPortPayloadChanged, "port load");
        noteSignal(&CLayoutData::notifyProcessorPayloadChanged, "load");
        noteSignal(&CLayoutData::notifyProcessorCanvasSizeChanged, "canvas");
        noteSignal(&CLayoutData::notifyDetectFinished, "detected");
        noteSignal(&CLayoutData::notifyCancelCalibrate, "cancel");
        noteSignal(&CLayoutData::notifyLayoutReplaced, "replaced");
    }
    void note(const QString &name)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        signalled << name;
        threads[name] = std::this_thread::get_id();
    }
    bool hasNoted(const QString &name)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return signalled.contains(name);
    }
    /// Waits for the worker, and takes what was signalled until then.
    void settle()
    {
        ::settle(host, store);
        const std::lock_guard<std::mutex> lock(mutex);
        signalled.removeAll(QStringLiteral("detected"));
        signalled.removeAll(QStringLiteral("canvas"));
        last.swap(signalled);
        signalled.clear();
    }
    /// What one notification led to.
    QStringList led(LayoutNotification code, const std::any &argument = {})
    {
        host.notify(code, argument);
        ranOn = host.updateThread();
        settle();
        return last;
    }
    /// The thread from which a signal came or the host was asked.
    QString threadOf(const QString &what)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const std::thread::id id =
            threads.contains(what) ? threads.value(what) : host.answers()->threadOf(what);
        if (id == std::thread::id())
            return QStringLiteral("none");
        if (id == std::this_thread::get_id())
            return QStringLiteral("GUI");
        return id == ranOn ? QStringLiteral("Update") : QStringLiteral("worker");
    }
    std::thread::id ranOn; // the Update thread of the last led()
    QStringList last;
};

QByteArray thrownBy(const std::function<void()> &call)
{
    try {
        call();
    } catch (const std::runtime_error &error) {
        return error.what();
    }
    return {};
}

} // namespace

class CNotificationsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void leadsEachCodeToItsSignalsAndSlots()
    {
        using N = LayoutNotification;
        struct SCase
        {
            N code;
            std::any argument;
            QString emitted;
            QString slot;
            QString thread; // of the signals, or of what the host is asked
        };
        const auto text = [](const char *latin) { return QString::fromLatin1(latin); };
        for (int i = 0; i < 13; ++i) {
            SDispatchScene scene;
            SBackgroundInfo info;
            info.processor = scene.a;
            const SSelectedNodeChange selection{{{scene.a, QRect(0, 0, 9, 9)}}, PrcTreeNodeType::Group};
            const SCase cases[13] = {
                {N::WorkModeChanged, {}, {}, text("work mode"), {}},
                {N::TypeLibraryChanged, {}, {}, {}, text("Update")},
                {N::ProcessorRemoved, scene.a, text("state|load"), {}, text("Update")},
                {N::LayoutReplaced, scene.a, text("replaced"), {}, text("Update")},
                {N::ProcessorStateChanged, SProcessorStateChange{scene.a, true}, text("state|load"),
                 text("state"), text("worker")},
                {N::PortCountChanged, {}, text("load"), text("ports of A"), text("worker")},
                {N::CurrentProcessorChanged, scene.a, text("load"), text("current"), text("worker")},
                {N::SelectedNodeChanged, selection, text("cancel"), text("selected 1 1"), text("Update")},
                {N::ReadbackFinished, SReadbackResult{scene.a, true}, {}, text("readback 0 1"), {}},
                {N::BackgroundChanged, info, text("background"), {}, text("worker")},
                {N::PortLoadsChanged,
                 SPortLoadChange{scene.a, 1},
                 text("port load|load"),
                 {},
                 text("worker")},
                {static_cast<N>(3), {}, {}, {}, {}},
                {static_cast<N>(31), {}, {}, {}, {}}};
            const SCase &one = cases[i];
            if (one.code == N::PortLoadsChanged)
                scene.host.answers()->loads[1] = 30;
            if (one.code == N::ProcessorRemoved)
                scene.host.choose(QUuid());
            const QStringList emitted = scene.led(one.code, one.argument);
            QCOMPARE(emitted.join(QLatin1Char('|')), one.emitted);
            for (const QString &signal : emitted)
                QCOMPARE(signal + scene.threadOf(signal), signal + one.thread);
            if (one.code == N::TypeLibraryChanged)
                QCOMPARE(scene.threadOf(text("typeLibrary")), one.thread);
            QCOMPARE(scene.controller.invoked.join(QLatin1Char('|')), one.slot);
            QVERIFY(scene.controller.onOwnThread);
        }
    }

    void aFinishedDetectionResetsThePortAndReadsTheCanvas()
    {
        SDispatchScene scene;
        scene.store.setCurrentPort(2);
        scene.host.answers()->layouts[scene.a].canvas = QSize(640, 480);
        CSignalLog canvas(&scene.store, &CLayoutData::notifyProcessorCanvasSizeChanged);
        std::atomic<int> portWhenTold{2};
        connect(
            &scene.store, &CLayoutData::notifyDetectFinished, &scene.store,
            [&] { portWhenTold = scene.store.currentPort(); }, Qt::DirectConnection);
        scene.settle();
        QCOMPARE(portWhenTold.load(), -1);
        QCOMPARE(canvas.count(), 1);
        QCOMPARE(canvas[0], QVariantList{QSize(640, 480)});
        QCOMPARE(scene.store.canvasSize(), QSize(640, 480));
        QCOMPARE(scene.store.currentPort(), -1);
        scene.ranOn = scene.host.updateThread();
        QCOMPARE(scene.threadOf(QStringLiteral("detected")), QStringLiteral("worker"));
    }

    void aBackupChangeRefreshesThePortsOnTheUpdateThread()
    {
        SDispatchScene scene;
        scene.store.setCurrentPort(1);
        scene.host.answers()->layouts[scene.a].layout.ports.clear();
        CSignalLog backup(&scene.store, &CLayoutData::notifyProcessorPortBackup);
        scene.led(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 2, true});
        QCOMPARE(scene.threadOf(QStringLiteral("backup")), QStringLiteral("Update"));
        QCOMPARE(scene.threadOf(QStringLiteral("layoutData")), QStringLiteral("Update"));
        QVERIFY(scene.store.ports().isEmpty());
        QCOMPARE(scene.store.currentPort(), -1);
        QCOMPARE(backup.count(), 1);
        QCOMPARE(backup[0], (QVariantList{0, 2, true}));
    }

    void aChangedPortCountRefreshesPortsAndLoads()
    {
        SDispatchScene scene;
        scene.host.answers()->layouts[scene.a].layout.ports.removeLast();
        scene.host.answers()->loads = {{0, 10}, {1, 20}};
        QCOMPARE(
            scene.led(LayoutNotification::PortCountChanged),
            (QStringList{QStringLiteral("port load"), QStringLiteral("port load"), QStringLiteral("load")}));
        QCOMPARE(scene.store.ports().size(), 2);
        QCOMPARE(scene.store.processorLoad(), 15);
        scene.host.answers()
            ->layouts[scene.a]
            .layout.ports.removeFirst(); // each load stays, the mean does not
        QCOMPARE(scene.led(LayoutNotification::PortCountChanged), QStringList{QStringLiteral("load")});
    }

    void aPairAcrossProcessorsFollowsThePartner()
    {
        using N = LayoutNotification;
        SDispatchScene scene;
        const QUuid b = scene.host.addProcessor(QStringLiteral("B"), 2, 1);
        {
            const CFakeAnswers answers = scene.host.answers();
            PortPairs::Port &primary = answers->layouts[b].layout.ports[1];
            PortPairs::Port &backup = answers->layouts[scene.a].layout.ports[2];
            PortPairs::setPair(primary, b, PortPairs::Port::Primary, {scene.a, 2});
            PortPairs::setPair(backup, scene.a, PortPairs::Port::Redundant, {b, 1});
            backup.mirrored = PortPairs::mirrorOf(primary);
            answers->loads = {{1, 70}, {2, 5}};
            answers->nodes.last().index = 1;
        }
        scene.led(N::LayoutReplaced, scene.a);
        QCOMPARE(scene.store.port(2).load, qint64(70));
        QCOMPARE(scene.store.portNote(2).text, QStringLiteral("Redundancy for processor2(B)"));
        scene.host.answers()->nodes.last().index = 4;
        scene.led(N::DetectFinished);
        QCOMPARE(scene.store.portNote(2).text, QStringLiteral("Redundancy for processor5(B)"));
        scene.host.answers()->loads = {{0, 33}, {1, 80}}; // of A only port 3 is asked for
        QCOMPARE(scene.led(N::PortLoadsChanged, SPortLoadChange{b, 1}),
                 (QStringList{QStringLiteral("port load"), QStringLiteral("load")}));
        QCOMPARE(scene.store.port(2).load, qint64(80));
        scene.host.answers()->nodes.last().index = -1; // offline
        scene.led(N::ProcessorStateChanged, SProcessorStateChange{b, false});
        QCOMPARE(scene.store.portNote(2).text, QStringLiteral("Redundancy for processor(B)"));
        scene.host.answers()->layouts[b].layout.ports[1].groups[0].cabinets[0].rect.translate(5, 0);
        scene.led(N::LayoutReplaced, b);
        QVERIFY(scene.store.portNote(2).needsReset);
        scene.host.answers()->layouts.remove(b);
        scene.led(N::ProcessorRemoved, b);
        QCOMPARE(scene.store.portNote(2).text, QStringLiteral("Please reset the mapping."));
        QCOMPARE(scene.store.port(2).load, qint64(0));
    }

    void theLoadOfAProcessorInViewIsToldOnce()
    {
        SDispatchScene scene;
        const QUuid b = scene.host.addProcessor(QStringLiteral("B"), 1);
        scene.host.choose(b);
        scene.host.answers()->loads = {{0, 30}}; // the port's differs, and so does the processor's
        QCOMPARE(scene.led(LayoutNotification::CurrentProcessorChanged, b).filter(QStringLiteral("load")),
                 (QStringList{QStringLiteral("port load"), QStringLiteral("load")}));
    }

    void aHostThatHasSwitchedAlreadyMixesNothingUp()
    {
        SDispatchScene scene;
        const QUuid b = scene.host.addProcessor(QStringLiteral("B"), 1);
        scene.host.answers()->layouts[b].canvas = QSize(640, 480);
        scene.host.choose(b); // its notification is still to come
        scene.host.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 2, true});
        QCOMPARE(scene.store.ports().size(), 3);
        scene.host.notify(LayoutNotification::PortCountChanged);
        scene.host.notify(LayoutNotification::DetectFinished);
        QTRY_VERIFY(scene.hasNoted(QStringLiteral("detected")));
        QTRY_COMPARE(scene.controller.invoked, QStringList{QStringLiteral("ports of A")});
        scene.host.notify(LayoutNotification::WorkModeChanged); // behind what was posted before
        QTRY_COMPARE(scene.controller.invoked.last(), QStringLiteral("work mode"));
        QCOMPARE(scene.store.ports().size(), 3);
        QCOMPARE(scene.store.canvasSize(), QSize(1920, 1080));
        QVERIFY(!scene.hasNoted(QStringLiteral("canvas")));
    }

    void aCurrentProcessorThatDiffersEndsTheHighlight()
    {
        SDispatchScene scene;
        const QString cancel = QStringLiteral("cancel");
        QVERIFY(!scene.led(LayoutNotification::CurrentProcessorChanged, scene.a).contains(cancel));
        scene.host.answers()->layouts[scene.a].layout.ports[1].groups[0].cabinets[0].rank = -1;
        QVERIFY(scene.led(LayoutNotification::CurrentProcessorChanged, scene.a).contains(cancel));
        QCOMPARE(scene.threadOf(cancel), QStringLiteral("Update"));
        scene.host.choose(QUuid());
        QVERIFY(!scene.led(LayoutNotification::CurrentProcessorChanged, QUuid()).contains(cancel));
        QVERIFY(scene.store.currentProcessor().isNull());
        QVERIFY(scene.store.ports().isEmpty());
    }

    void backgroundsAndCanvasesOfTheProcessorInViewAreTold()
    {
        SDispatchScene scene;
        const QUuid b = scene.host.addProcessor(QStringLiteral("B"), 1);
        SBackgroundInfo first;
        first.processor = b;
        QCOMPARE(scene.led(LayoutNotification::BackgroundChanged, first), QStringList());
        first.processor = scene.a;
        first.file = QStringLiteral("one.png");
        SBackgroundInfo second = first;
        second.file = QStringLiteral("two.png");
        scene.led(LayoutNotification::BackgroundChanged, first);
        CSignalLog changed(&scene.store, &CLayoutData::notifyProcessorBackgroundChanged);
        scene.led(LayoutNotification::BackgroundChanged, second);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed[0].at(0).value<SBackgroundInfo>(), first);
        QCOMPARE(changed[0].at(1).value<SBackgroundInfo>(), second);
        QVERIFY(!changed[0].at(2).toBool());
        QCOMPARE(scene.store.background(), second);
        scene.host.answers()->layouts[scene.a].canvas = QSize(640, 480);
        scene.led(LayoutNotification::BackgroundChanged, first);
        QVERIFY(changed[1].at(2).toBool());

        CSignalLog canvas(&scene.store, &CLayoutData::notifyProcessorCanvasSizeChanged);
        scene.host.notify(LayoutNotification::CanvasSizeChanged, SCanvasSizeChange{b, QSize(1, 2)});
        scene.host.notify(LayoutNotification::CanvasSizeChanged, SCanvasSizeChange{scene.a, QSize(3, 4)});
        scene.settle();
        QCOMPARE(canvas.count(), 2); // the second is that of the detection
        QCOMPARE(canvas[0], QVariantList{QSize(3, 4)});
    }

    void aRemovedProcessorIsForgotten()
    {
        SDispatchScene scene;
        scene.store.setCurrentPort(0);
        scene.host.notify(LayoutNotification::ProcessorsRemoved, QList<QUuid>{QUuid::createUuid(), scene.a});
        QVERIFY(scene.store.currentProcessor().isNull() && scene.store.ports().isEmpty());
        QCOMPARE(scene.store.currentPort(), -1);
        QCOMPARE(scene.store.processorLoad(), 0);
    }

    void theTypeLibraryIsReadWhenItChanges()
    {
        using Node = SSettings::TypeLibrary::STreeNode;
        SDispatchScene scene;
        Node type;
        type.key = type.info.key = SMD5::ofContent("p2.6");
        Node another = type;
        another.key = another.info.key = SMD5::ofContent("p3.9");
        Node folder;
        folder.kind = Node::Folder;
        folder.key = SMD5::ofContent("folder");
        Node outer = folder;
        folder.children = {type};
        outer.children = {folder};
        scene.host.answers()->library = {outer, another}; // a folder does not stop its siblings
        scene.host.notify(LayoutNotification::TypeLibraryChanged);
        QCOMPARE(scene.store.getTypeInfo(type.key), type.info);
        QCOMPARE(scene.store.getTypeInfo(another.key), another.info);
        for (const SMD5 &none : {SMD5(), folder.key})
            QVERIFY(!scene.store.getTypeInfo(none).isValid());
    }

    void aWrongArgumentThrowsItsTextAndChangesNothing()
    {
        SDispatchScene scene;
        for (const int code : {11, 15, 16, 17, 18, 20, 21, 22, 24, 26, 28, 29}) {
            const auto notify = [&] { scene.host.notify(static_cast<LayoutNotification>(code), 'x'); };
            QCOMPARE(thrownBy(notify), QByteArray("CSubject::GetArgument:bad type cast!"));
        }
        scene.settle();
        QCOMPARE(scene.last, QStringList());
        QCOMPARE(scene.store.currentProcessor(), scene.a);
    }
};

ORVO_TEST_MAIN(QApplication, CNotificationsTest)
#include "tst_notifications.moc"
