// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CLayoutReader.h"
#include "layout/editor/gestures/CSceneInput.h"
#include "layout/editor/menus/CCabinetMenu.h"
#include "layout/editor/undo/CMoveCommand.h"
#include "layout/resources/LayoutResources.h"
#include "tests/editor/CNotedCommands.h"
#include "tests/editor/CommandWorld.h"
#include "tests/harness/CTestBase.h"

#include <QGraphicsSceneMouseEvent>
#include <QMenu>
#include <QSignalSpy>

namespace {

using Port = CabinetLayout::CabinetPort;
using CommandWorld::World;

QStringList parameterEntries(QMenu &menu)
{
    QStringList texts;
    for (QMenu *sub : menu.findChildren<QMenu *>()) {
        for (const QAction *action : sub->actions())
            texts << action->text();
    }
    return texts;
}

} // namespace

/// What the scene keeps beside its items follows from what happens to them.
class CSceneStateTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void aChangedStateReachesRecordsItemsAndSelection()
    {
        World world;
        QVERIFY(!world.layout().port(0)->locked); // the records are known from here on
        world.states().locked[0] = true;
        world.states().redundancy[1] = Port::Redundant;
        world.scene.onNotifyProcessorStateChanged();
        QVERIFY(world.layout().port(0)->locked);
        QVERIFY(world.scene.portItem(1)->isShownRedundant());

        world.scene.backend().picks().port(2, true);
        world.scene.backend().picks().port(0, true);
        QSignalSpy selection(&world.scene, &CommandWorld::Scene::notifySelectedChanged);
        world.scene.setCabinetLocked(2, true);
        QCOMPARE(selection.count(), 1); // what can be grouped depends on locks
    }

    void theCanvasFollowsALayoutAndASize()
    {
        World world;
        LayoutData larger = world.data;
        larger.canvas = QSize(7000, 5000);
        world.scene.setLayoutData(SmallWorlds::node(larger), larger, {}, {}, true);
        QCOMPARE(world.scene.backend().content().canvas(), larger.canvas);
        QVERIFY(world.scene.contentRect().contains(QRectF(0, 0, 7000, 5000)));
        world.scene.setCanvasSize(QSize(9000, 8000));
        QVERIFY(world.scene.contentRect().contains(QRectF(0, 0, 9000, 8000)));
    }

    void aLayoutBringsWhatIsPasted()
    {
        World world;
        PasteCache cache;
        cache.groups << SmallWorlds::loose(0, 2);
        cache.groups[0].cabinets[0].mappingIndex = 7;
        world.scene.setLayoutData(SmallWorlds::node(world.data), world.data, cache);
        QVERIFY(world.scene.backend().placing().cache() == cache);
        world.states().current = 2;
        world.scene.pasteItems(QPointF(4000, 4000), nullptr);
        QCOMPARE(world.scene.selection().count(), 2);
        for (const auto &pasted : world.scene.selection().records())
            QCOMPARE(pasted.mappingIndex, -1); // a new cabinet has no place in the saved mapping
    }

    void anAppendThatEndsForgetsItsPress()
    {
        World world;
        CScenePlacing &placing = world.scene.backend().placing();
        QGraphicsSceneMouseEvent event;
        event.setScenePos(QPointF(3000, 3000));
        placing.beginAppend({}, 2, QSize(64, 64));
        placing.press(event);
        placing.endAppend();
        placing.beginAppend({}, 2, QSize(64, 64));
        QVERIFY(!placing.release(event)); // of a press before this append
        QCOMPARE(world.scene.portItem(2)->cabinets(nullptr).size(), 1);
        placing.press(event);
        QVERIFY(placing.release(event));
        QCOMPARE(world.scene.portItem(2)->cabinets(nullptr).size(), 2);
    }

    void aGroupCanBeResizedOnlyWhileItTiles()
    {
        World world;
        CGraphicsGroupItem &inner = World::group(world.scene, "inner");
        QVERIFY(inner.canResize());
        CGraphicsCabinetItem &member = *inner.cabinets().first();
        world.stack().push(CommandWorld::move(member, member.scenePos() + QPointF(-40, 0)));
        QVERIFY(!inner.canResize());
        world.stack().undo();
        QVERIFY(inner.canResize());
        world.stack().push(CommandWorld::changeType(member));
        QVERIFY(!inner.canResize());
    }

    void lockIsToldBeforeRedundancyOfWhicheverPort()
    {
        World world;
        QUndoCommand step;
        new CMoveCommand(&World::cabinet(world.scene, 0, 0), &step);
        new CMoveCommand(&World::cabinet(world.scene, 2, 0), &step);
        CGuardedUndo &history = world.scene.backend().history();
        world.states().redundancy[2] = Port::Redundant;
        QVERIFY(history.refusal(step, true).contains(QLatin1String("Port 3 is redundancy")));
        world.states().locked[2] = true;
        QVERIFY(history.refusal(step, true).contains(QLatin1String("Port 3 is locked")));
    }

    void blanksAreScaledWithTheirCabinet()
    {
        World world;
        auto &cabinet = World::cabinet(world.scene, 0, 1);
        auto record = cabinet.cabinet();
        record.rects = {QRect(0, 0, 64, 128)};
        record.blanks = {QRect(64, 0, 64, 128)};
        cabinet.setCabinet(record);
        world.scene.clearSelection();
        cabinet.setSelected(true);
        world.scene.backend().shape().resizeTo(QSize(64, 64));
        QCOMPARE(cabinet.cabinet().rects, QVector<QRect>{QRect(0, 0, 32, 64)});
        QCOMPARE(cabinet.cabinet().blanks, QVector<QRect>{QRect(32, 0, 32, 64)});
    }

    void onlyAPressOnAReceiverReversesThem()
    {
        World world;
        CSceneInput input(world.scene);
        auto &cabinet = World::cabinet(world.scene, 0, 1);
        auto record = cabinet.cabinet();
        record.rects = {QRect(0, 0, 32, 128), QRect(32, 0, 32, 128)};
        cabinet.setCabinet(record);
        world.scene.setToolMode(ToolMode::HeadToTailExchange, true);
        QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
        press.setPos(QPointF(100, 60));
        input.mouseMode().pressCabinet(cabinet, press);
        QCOMPARE(cabinet.cabinet().rects, record.rects);
        press.setPos(QPointF(40, 60));
        input.mouseMode().pressCabinet(cabinet, press);
        QCOMPARE(cabinet.cabinet().rects.first(), record.rects.last());
        QCOMPARE(world.stack().undoText(), QStringLiteral("Head-to-tail exchange"));
    }

    void fileEntriesBelongToASingleWiredCabinet()
    {
        World world;
        CNotedCommands commands;
        const auto entriesFor = [&](CGraphicsItemBase &clicked, CGraphicsItemBase &selected) {
            world.scene.clearSelection();
            selected.setSelected(true);
            QMenu menu;
            CCabinetMenu(menu, world.scene.backend(), &commands, clicked, nullptr).fill();
            return parameterEntries(menu).join(QLatin1Char('|'));
        };
        auto &wired = World::cabinet(world.scene, 0, 0);
        auto &unwired = World::cabinet(world.scene, 1, 0);
        QVERIFY(entriesFor(wired, wired).contains(QLatin1String("Readback")));
        QVERIFY(!entriesFor(unwired, unwired).contains(QLatin1String("Readback")));
        auto &group = World::group(world.scene, "outer");
        auto &member = *group.cabinets().first();
        auto record = member.cabinet();
        record.type = SMD5::ofContent("a type");
        member.setCabinet(record);
        QVERIFY(!entriesFor(member, group).contains(QLatin1String("Export")));
        QVERIFY(entriesFor(member, member).contains(QLatin1String("Export")));
    }

    void aSceneWithoutInputIgnoresTheMouseOnly()
    {
        World world;
        QVERIFY(!world.scene.backend().mouse());
        QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
        press.setScenePos(QPointF(10, 10));
        press.setButton(Qt::LeftButton);
        press.setButtons(Qt::LeftButton);
        QCoreApplication::sendEvent(&world.scene, &press);
        QVERIFY(world.scene.selection().isEmpty());
        world.scene.selectAllItem();
        world.scene.selectedItemMoveDown();
        QVERIFY(world.layout() != world.data.layout);
        world.scene.undo(nullptr);
        QVERIFY(world.layout() == world.data.layout);
    }

    void commandsCarryTheNameOfTheirEdit()
    {
        World world;
        world.scene.selectAllItem();
        world.scene.topologyWiring(0);
        const CUndoCommandBase *own = world.scene.getChildUndoCommand(world.stack().command(0));
        QVERIFY(own);
        QCOMPARE(own->operationName(), QStringLiteral("topologyWiring"));
    }
};

ORVO_TEST_MAIN(QApplication, CSceneStateTest)
#include "tst_scene_state.moc"
