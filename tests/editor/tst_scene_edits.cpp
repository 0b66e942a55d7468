// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsCabinetItem.h"
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

namespace {

using Scene = CCabinetGraphicsScene;

/// Port 0: eight wired cabinets; port 1: nested groups, partly wired; port 2: two cabinets of two receivers.
struct SEditWorld
{
    static LayoutData anew()
    {
        return SmallWorlds::data(
            {SmallWorlds::wiredPort(0, 8), SmallWorlds::nestedPort(1), SmallWorlds::receiverPort(2)});
    }

    SEditWorld() { show(data); }
    void show(const LayoutData &shown) { scene.setLayoutData(SmallWorlds::node(shown), shown); }
    void reload(const LayoutData &shown, const QList<QUuid> &selected = {})
    {
        scene.setLayoutData(SmallWorlds::node(shown), shown, {}, selected, true);
    }
    CabinetLayout layout() const
    {
        CabinetLayout layout;
        scene.getLayoutData(layout, data.processor);
        return layout;
    }
    CGraphicsCabinetItem &first(int port) const { return *scene.portItem(port)->cabinets(nullptr).first(); }

    const LayoutData data = anew();
    CFixedPortStates states;
    Scene scene{states};
};

} // namespace

class CSceneEditsTest final : public CTestBase
{
    Q_OBJECT

private:
private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }
    void undoAndRedoAreRefusedWithAMessage_data()
    {
        QTest::addColumn<bool>("undoing");
        QTest::addColumn<QString>("text");
        QTest::newRow("undo") << true << "Port 3 is locked and cannot be undone.";
        QTest::newRow("redo") << false << "Port 3 is locked and cannot be redone.";
    }
    void undoAndRedoAreRefusedWithAMessage()
    {
        QFETCH(bool, undoing);
        QFETCH(QString, text);
        SEditWorld world;
        Scene &scene = world.scene;
        scene.selectAllItem();
        scene.selectedItemMoveDown();
        if (!undoing)
            scene.undo(nullptr);
        const CabinetLayout before = world.layout();
        const int index = scene.undoStack()->index();
        world.states.locked[2] = true;

        CMessageBoxAnswerer user({QStringLiteral("OK")});
        undoing ? scene.undo(nullptr) : scene.redo(nullptr);
        QCOMPARE(user.texts(), QStringList{text});
        QCOMPARE(scene.undoStack()->index(), index);
        QVERIFY(world.layout() == before);
    }

    void reloadingUndoably()
    {
        SEditWorld world;
        Scene &scene = world.scene;
        LayoutData other = world.data;
        other.layout.ports = SEditWorld::anew().layout.ports;
        const QUuid chosen = other.layout.ports[0].getAllCabinets().first().uuid;
        world.reload(other, {chosen});
        QVERIFY(world.layout() == other.layout);
        QCOMPARE(scene.backend().recorder().operationName(), QStringLiteral("Reset"));
        scene.undo(nullptr);
        QVERIFY(world.layout() == world.data.layout);

        QSignalSpy sceneSpy(&scene, &Scene::notifySceneChanged);
        LayoutData same = world.data;
        same.layout.ports[0].groups << CabinetLayout::CabinetPort::CabinetGroup();
        same.layout.ports[0].groups.last().uuid = QUuid::createUuid(); // an empty group is not shown
        world.reload(same);
        QVERIFY(world.layout() == world.data.layout);
        QCOMPARE(sceneSpy.count(), 0);
        QVERIFY(scene.undoStack()->canRedo());
        scene.redo(nullptr);
        QVERIFY(world.layout() == other.layout);
        QCOMPARE(scene.selection().uuids(), QVector<QUuid>{chosen});

        const CGraphicsCabinetItem *kept = &world.first(0);
        other.layout.ports[2].groups.clear();
        world.reload(other);
        QVERIFY(world.layout() == other.layout);
        QCOMPARE(&world.first(0), kept); // its port has not changed
        QCOMPARE(CSceneVerifier::faultIn(scene), QString());
    }

    void aHighlightIsNoDifferenceOfTheLayout()
    {
        SEditWorld world;
        Scene &scene = world.scene;
        scene.backend().highlights().press(world.first(0), false);
        LayoutData marked = world.data;
        marked.layout = world.layout();
        QCOMPARE(marked.layout.ports[0].getAllCabinets().first().calibrationIndex, 0);
        world.reload(world.data);
        QCOMPARE(scene.undoStack()->count(), 0);
        QCOMPARE(scene.backend().highlights().records().size(), 1);
        world.show(marked);
        QVERIFY(world.layout() == world.data.layout); // anew, and no cabinet stands out
    }

    void withoutAStackEditsStillApply()
    {
        SEditWorld world;
        Scene &scene = world.scene;
        scene.setUndoStack(nullptr);
        world.show(world.data);
        scene.selectAllItem();
        scene.backend().operations().remove();
        QVERIFY(world.layout().cabinetCount() == 0);
        scene.undo(nullptr);
        QVERIFY(world.layout().cabinetCount() == 0);
    }

    void movesLeftStopAtTheEdge()
    {
        SEditWorld world;
        CGraphicsCabinetItem &cabinet = world.first(0);
        cabinet.setPos(0.4, 5);
        cabinet.setSelected(true);
        for (int i = 0; i < 4; ++i)
            world.scene.selectedItemMoveLeft();
        QCOMPARE(cabinet.scenePos(), QPointF(0, 5));
        QCOMPARE(world.scene.undoStack()->count(), 1); // a step that moves nothing is none
    }
};

ORVO_TEST_MAIN(QApplication, CSceneEditsTest)
#include "tst_scene_edits.moc"
