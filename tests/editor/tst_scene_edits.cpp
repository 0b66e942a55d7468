// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CSceneInput.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/resources/LayoutResources.h"
#include "tests/editor/CFixedPortStates.h"
#include "tests/editor/CSceneVerifier.h"
#include "tests/editor/SmallWorlds.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>

#include <functional>

namespace {

using Scene = CCabinetGraphicsScene;
using Edit = std::function<void(Scene &)>;

/// Port 0: eight wired cabinets; port 1: nested groups, partly wired; port 2: two cabinets of two receivers.
LayoutData world()
{
    return SmallWorlds::data(
        {SmallWorlds::wiredPort(0, 8), SmallWorlds::nestedPort(1), SmallWorlds::receiverPort(2)});
}

void selectCabinets(Scene &scene, int port, const QVector<int> &places)
{
    const CEditBatch batch(scene.backend().batches());
    scene.clearSelection();
    const QVector<CGraphicsCabinetItem *> cabinets = scene.portItem(port)->cabinets(nullptr);
    for (const int place : places)
        cabinets.at(place)->setSelected(true);
}

CabinetLayout layoutOf(const Scene &scene, const LayoutData &data)
{
    CabinetLayout layout;
    scene.getLayoutData(layout, data.processor);
    return layout;
}

QSet<QUuid> selectedIn(const Scene &scene)
{
    const QVector<QUuid> uuids = scene.selection().uuids();
    return QSet<QUuid>(uuids.begin(), uuids.end());
}

CGraphicsGroupItem *outerGroup(const Scene &scene)
{
    for (CGraphicsGroupItem *group : scene.portItem(1)->groups(true)) {
        if (group->name() == QLatin1String("outer"))
            return group;
    }
    return nullptr;
}

void drag(Scene &scene, const QPointF &from, const QPointF &to)
{
    CSceneInput input(scene);
    input.beginMove(from);
    input.continueDrag((from + to) / 2);
    input.endDrag(to);
}

} // namespace

Q_DECLARE_METATYPE(Edit)

class CSceneEditsTest final : public CTestBase
{
    Q_OBJECT

private:
    static void addEdits()
    {
        QTest::addColumn<Edit>("prepare");
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, const Edit &prepare, const Edit &edit, const char *text) {
            QTest::newRow(name) << prepare << edit << QString::fromLatin1(text);
        };
        const Edit some = [](Scene &s) { selectCabinets(s, 0, {2, 3, 5}); };
        const Edit all = [](Scene &s) { s.selectAllItem(); };
        const Edit outer = [](Scene &s) { outerGroup(s)->setSelected(true); };
        row(
            "pattern in the middle", some, [](Scene &s) { s.topologyWiring(1); }, "topologyWiring");
        row(
            "pattern over all ports", all, [](Scene &s) { s.topologyWiring(6); }, "topologyWiring");
        row(
            "pattern over a group", outer, [](Scene &s) { s.topologyWiring(3); }, "topologyWiring");
        row(
            "break selected", some, [](Scene &s) { s.breakSelectedWiring(); }, "breakSelectedWiring");
        row(
            "clear a port", {}, [](Scene &s) { s.breakPortWiring(1); }, "BreakPortWiring");
        row(
            "group", some, [](Scene &s) { s.backend().operations().group(); }, "Group");
        row(
            "ungroup nested", outer, [](Scene &s) { s.backend().operations().ungroup(); }, "Ungroup");
        row(
            "delete wired", some, [](Scene &s) { s.backend().operations().remove(); }, "Delete");
        row(
            "delete a group", outer, [](Scene &s) { s.backend().operations().remove(); }, "Delete");
        row(
            "delete all", all, [](Scene &s) { s.backend().operations().remove(); }, "Delete");
        row(
            "delete a member", [](Scene &s) { selectCabinets(s, 1, {1}); },
            [](Scene &s) { s.backend().operations().remove(); }, "Delete");
        row(
            "nudge all", all, [](Scene &s) { s.selectedItemMoveRight(); }, "Move");
        row(
            "nudge a group", outer, [](Scene &s) { s.selectedItemMoveDown(); }, "Move");
        row(
            "drag", some,
            [](Scene &s) {
                drag(s, {300, 60}, {377.4, 12.7});
            },
            "Move");
        row(
            "drag a group", outer,
            [](Scene &s) {
                drag(s, {0, 0}, {51, 64});
            },
            "Move");
        row(
            "drag a member", [](Scene &s) { selectCabinets(s, 1, {2}); },
            [](Scene &s) {
                drag(s, {0, 0}, {900, -700});
            },
            "Move");
        row(
            "exchange receivers", {},
            [](Scene &s) {
                s.backend().operations().exchangeReceivers(s.portItem(2)->cabinets(nullptr).first()->uuid());
            },
            "Head-to-tail exchange");
        row(
            "redundancy", {}, [](Scene &s) { s.backupPort(0, 1, true); }, "Backup");
        row(
            "resize", [](Scene &s) { selectCabinets(s, 2, {0}); },
            [](Scene &s) {
                auto *cabinet = s.portItem(2)->cabinets(nullptr).first();
                CSceneInput input(s);
                input.beginScale(*cabinet, 0, cabinet->scenePos());
                input.endDrag(cabinet->scenePos() + QPointF(-33, 20));
            },
            "Scale");
    }

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void everyEditIsOneExactStep_data() { addEdits(); }
    void everyEditIsOneExactStep()
    {
        QFETCH(Edit, prepare);
        QFETCH(Edit, edit);
        QFETCH(QString, text);
        const LayoutData data = world();
        CFixedPortStates states;
        Scene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data);
        if (prepare)
            prepare(scene);
        const CabinetLayout before = layoutOf(scene, data);
        const QSet<QUuid> selectedBefore = selectedIn(scene);
        QVERIFY(before == data.layout);

        QSignalSpy selectionSpy(&scene, &Scene::notifySelectedChanged);
        QSignalSpy sceneSpy(&scene, &Scene::notifySceneChanged);
        edit(scene);
        QCOMPARE(selectionSpy.count(), 1);
        QCOMPARE(sceneSpy.count(), 1);
        const QSet<QUuid> selectedAfter = selectedIn(scene);
        const CabinetLayout after = layoutOf(scene, data);
        QVERIFY(!(after == before));
        QCOMPARE(CSceneVerifier::faultIn(scene), QString());
        QCOMPARE(scene.undoStack()->count(), 1);
        QCOMPARE(scene.undoStack()->text(0), text);

        scene.undo(nullptr);
        QCOMPARE(sceneSpy.count(), 2);
        QCOMPARE(selectionSpy.count(), 2);
        QVERIFY(layoutOf(scene, data) == before);
        QCOMPARE(CSceneVerifier::faultIn(scene), QString());
        QCOMPARE(selectedIn(scene), selectedBefore);

        scene.redo(nullptr);
        QCOMPARE(selectedIn(scene), selectedAfter);
        QVERIFY(layoutOf(scene, data) == after);
        QCOMPARE(CSceneVerifier::faultIn(scene), QString());

        scene.undo(nullptr);
        scene.selectAllItem();
        scene.selectedItemMoveRight(); // drops the step that could have been redone
        QCOMPARE(CSceneVerifier::faultIn(scene), QString());
        scene.undo(nullptr);
        QVERIFY(layoutOf(scene, data) == before);
    }

    void lockedPortsRefuse_data() { addEdits(); }
    void lockedPortsRefuse()
    {
        QFETCH(Edit, prepare);
        QFETCH(Edit, edit);
        const LayoutData data = world();
        CFixedPortStates states;
        Scene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data);
        if (prepare)
            prepare(scene);
        for (int port = 0; port < 3; ++port)
            states.locked[port] = true;
        const CabinetLayout before = layoutOf(scene, data);
        QSignalSpy sceneSpy(&scene, &Scene::notifySceneChanged);
        edit(scene);
        QVERIFY(layoutOf(scene, data) == before);
        QCOMPARE(scene.undoStack()->count(), 0);
        QCOMPARE(sceneSpy.count(), 0);
        QCOMPARE(CSceneVerifier::faultIn(scene), QString());
    }

    void oneLockedPortRefusesForAll_data() { addEdits(); }
    void oneLockedPortRefusesForAll()
    {
        QFETCH(Edit, prepare);
        QFETCH(Edit, edit);
        for (int locked = 0; locked < 3; ++locked) {
            const LayoutData data = world();
            CFixedPortStates states;
            Scene scene(states);
            scene.setLayoutData(SmallWorlds::node(data), data);
            if (prepare)
                prepare(scene);
            const bool selected = scene.selection().ports().contains(locked);
            edit(scene);
            const bool concerned =
                selected || layoutOf(scene, data).ports[locked] != data.layout.ports[locked];
            scene.undo(nullptr);
            scene.undoStack()->clear();
            scene.clearSelection();
            if (prepare)
                prepare(scene);
            states.locked[locked] = true;
            edit(scene);
            QCOMPARE(scene.undoStack()->count(), concerned ? 0 : 1);
            states.locked[locked] = false;
            QCOMPARE(layoutOf(scene, data) == data.layout, concerned);
        }
    }

    void undoAndRedoAreRefusedWithAMessage_data()
    {
        QTest::addColumn<bool>("locked");
        QTest::addColumn<bool>("undoing");
        QTest::addColumn<QString>("text");
        QTest::newRow("locked undo") << true << true << "Port 3 is locked and cannot be undone.";
        QTest::newRow("locked redo") << true << false << "Port 3 is locked and cannot be redone.";
        QTest::newRow("redundant undo") << false << true << "Port 3 is redundancy and cannot be undone.";
        QTest::newRow("redundant redo") << false << false << "Port 3 is redundancy and cannot be redone.";
    }
    void undoAndRedoAreRefusedWithAMessage()
    {
        QFETCH(bool, locked);
        QFETCH(bool, undoing);
        QFETCH(QString, text);
        const LayoutData data = world();
        CFixedPortStates states;
        Scene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data);
        scene.selectAllItem();
        scene.selectedItemMoveDown();
        if (!undoing)
            scene.undo(nullptr);
        const CabinetLayout before = layoutOf(scene, data);
        const int index = scene.undoStack()->index();
        if (locked)
            states.locked[2] = true;
        else
            states.redundancy[2] = CabinetLayout::CabinetPort::Redundant;

        CMessageBoxAnswerer user({QStringLiteral("OK")});
        undoing ? scene.undo(nullptr) : scene.redo(nullptr);
        QCOMPARE(user.texts(), QStringList{text});
        QCOMPARE(scene.undoStack()->index(), index);
        QVERIFY(layoutOf(scene, data) == before);
    }

    void reloadingUndoably()
    {
        LayoutData data = world();
        CFixedPortStates states;
        Scene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data);
        LayoutData other = data;
        other.layout.ports = world().layout.ports;
        const QUuid chosen = other.layout.ports[0].getAllCabinets().first().uuid;
        scene.setLayoutData(SmallWorlds::node(other), other, {}, {chosen}, true);
        QVERIFY(layoutOf(scene, data) == other.layout);
        QCOMPARE(scene.backend().recorder().operationName(), QStringLiteral("Reset"));
        scene.undo(nullptr);
        QVERIFY(layoutOf(scene, data) == data.layout);

        QSignalSpy sceneSpy(&scene, &Scene::notifySceneChanged);
        LayoutData same = data;
        same.layout.ports[0].groups << CabinetLayout::CabinetPort::CabinetGroup();
        same.layout.ports[0].groups.last().uuid = QUuid::createUuid(); // an empty group is not shown
        scene.setLayoutData(SmallWorlds::node(same), same, {}, {}, true);
        QVERIFY(layoutOf(scene, data) == data.layout);
        QCOMPARE(sceneSpy.count(), 0);
        QVERIFY(scene.undoStack()->canRedo());
        scene.redo(nullptr);
        QVERIFY(layoutOf(scene, data) == other.layout);
        QCOMPARE(selectedIn(scene), QSet<QUuid>{chosen});

        CGraphicsCabinetItem *kept = scene.portItem(0)->cabinets(nullptr).first();
        other.layout.ports[2].groups.clear();
        scene.setLayoutData(SmallWorlds::node(other), other, {}, {}, true);
        QVERIFY(layoutOf(scene, data) == other.layout);
        QCOMPARE(scene.portItem(0)->cabinets(nullptr).first(), kept); // its port has not changed
        QCOMPARE(CSceneVerifier::faultIn(scene), QString());
    }

    void aHighlightIsNoDifferenceOfTheLayout()
    {
        LayoutData data = world();
        CFixedPortStates states;
        Scene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data);
        scene.backend().highlights().press(*scene.portItem(0)->cabinets(nullptr).first(), false);
        LayoutData marked = data;
        marked.layout = layoutOf(scene, data);
        QCOMPARE(marked.layout.ports[0].getAllCabinets().first().calibrationIndex, 0);
        scene.setLayoutData(SmallWorlds::node(data), data, {}, {}, true);
        QCOMPARE(scene.undoStack()->count(), 0);
        QCOMPARE(scene.backend().highlights().records().size(), 1);
        scene.setLayoutData(SmallWorlds::node(marked), marked);
        QVERIFY(layoutOf(scene, data) == data.layout); // anew, and no cabinet stands out
    }

    void receiversFollowASizeInFigures()
    {
        const LayoutData data = world();
        CFixedPortStates states;
        Scene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data);
        selectCabinets(scene, 2, {0});
        scene.backend().shape().resizeTo(QSize(60, 30));
        const auto resized = layoutOf(scene, data).ports[2].getAllCabinets().first();
        QCOMPARE(resized.rects, (QVector<QRect>{QRect(0, 0, 30, 30), QRect(30, 0, 30, 30)}));
        scene.undo(nullptr);
        QVERIFY(layoutOf(scene, data) == data.layout);
    }

    void withoutAStackEditsStillApply()
    {
        const LayoutData data = world();
        CFixedPortStates states;
        Scene scene(states);
        scene.setUndoStack(nullptr);
        scene.setLayoutData(SmallWorlds::node(data), data);
        scene.selectAllItem();
        scene.backend().operations().remove();
        QVERIFY(layoutOf(scene, data).cabinetCount() == 0);
        scene.undo(nullptr);
        QVERIFY(layoutOf(scene, data).cabinetCount() == 0);
    }

    void movesLeftStopAtTheEdge()
    {
        LayoutData data = SmallWorlds::data({SmallWorlds::wiredPort(0, 1)});
        CFixedPortStates states;
        Scene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data);
        auto *cabinet = scene.portItem(0)->cabinets(nullptr).first();
        cabinet->setPos(0.4, 5);
        cabinet->setSelected(true);
        scene.selectedItemMoveLeft();
        QCOMPARE(cabinet->scenePos(), QPointF(0, 5));
        for (int i = 0; i < 3; ++i)
            scene.selectedItemMoveLeft();
        QCOMPARE(scene.undoStack()->count(), 1); // a step that moves nothing is none
    }
};

ORVO_TEST_MAIN(QApplication, CSceneEditsTest)
#include "tst_scene_edits.moc"
