// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/CRecordJson.h"
#include "layout/api/records/LayoutLimits.h"
#include "layout/editor/items/CGraphicsConnectionItem.h"
#include "layout/resources/LayoutResources.h"
#include "platform/json/CJsonDocument.h"
#include "tests//editor/CNotedCommands.h"
#include "tests/editor/CSceneVerifier.h"
#include "tests/editor/CommandWorld.h"
#include "tests/editor/SInstalledInput.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QMenu>
#include <QSignalSpy>

namespace {

using Port = CabinetLayout::CabinetPort;
using CommandWorld::World;

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
        world.states.locked[0] = true;
        world.states.redundancy[1] = Port::Redundant;
        world.scene.onNotifyProcessorStateChanged();
        QVERIFY(world.layout().port(0)->locked);
        QVERIFY(world.scene.backend().content().portItem(1)->isShownRedundant());

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

    void groupsAreNestedOnlyAsDeepAsFilesHoldThem()
    {
        SPortsScene world({SmallWorlds::wiredPort(0, LayoutLimits::GroupLevels + 2)});
        QSignalSpy words(&world.scene, &CCabinetGraphicsScene::notifyWords);
        for (CGraphicsCabinetItem *cabinet : world.scene.backend().content().portItem(0)->cabinets(nullptr)) {
            cabinet->setSelected(true); // beside the group just made
            QCOMPARE(words.count(), 0);
            world.scene.backend().operations().group();
        }
        QCOMPARE(world.stack().count(), LayoutLimits::GroupLevels);
        QVERIFY(words.takeFirst().first().toString().contains(QStringLiteral("64 levels")));
        QVERIFY(CRecordJson::layout(CJsonDocument::of(CRecordJson::toJson(world.layout())).root()));
    }

    void aLayoutBringsWhatIsPasted()
    {
        World world;
        PasteCache cache;
        cache.groups << SmallWorlds::loose(0, 2);
        cache.groups[0].cabinets[0].mappingIndex = 7;
        world.scene.setLayoutData(SmallWorlds::node(world.data), world.data, cache);
        QVERIFY(world.scene.backend().placing().cache() == cache);
        world.states.current = 2;
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
        QCOMPARE(world.scene.backend().content().portItem(2)->cabinets(nullptr).size(), 1);
        placing.press(event);
        QVERIFY(placing.release(event));
        QCOMPARE(world.scene.backend().content().portItem(2)->cabinets(nullptr).size(), 2);
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

    void blanksAreScaledWithTheirCabinet()
    {
        World world;
        auto &cabinet = World::cabinet(world.scene, 0, 1);
        auto record = cabinet.cabinet();
        record.rects = {QRect(0, 0, 64, 128)};
        record.blanks = {QRect(64, 0, 64, 128)};
        record.mappingIndex = 7;
        cabinet.setCabinet(record);
        QCOMPARE(cabinet.cabinet().mappingIndex, -1); // which only the host knows
        world.scene.clearSelection();
        cabinet.setSelected(true);
        world.scene.backend().shape().resizeTo(QSize(64, 64));
        QCOMPARE(cabinet.cabinet().rects, QVector<QRect>{QRect(0, 0, 32, 64)});
        QCOMPARE(cabinet.cabinet().blanks, QVector<QRect>{QRect(32, 0, 32, 64)});
    }

    void refusalsTellWhichPortIsLockedOrARedundancy()
    {
        World world;
        world.scene.selectAllItem();
        world.scene.selectedItemMoveDown();
        const CabinetLayout moved = world.layout();
        CMessageBoxAnswerer user({QStringLiteral("OK"), QStringLiteral("OK"), QStringLiteral("OK")});
        world.states.redundancy[2] = Port::Redundant;
        world.scene.undo(nullptr);
        world.states.locked[2] = true; // is told first
        world.scene.undo(nullptr);
        QVERIFY(world.layout() == moved);
        world.states.locked.clear();
        world.states.redundancy.clear();
        world.scene.undo(nullptr);
        world.states.locked[0] = true;
        world.scene.redo(nullptr);
        QVERIFY(world.layout() == world.data.layout);
        QCOMPARE(user.texts(), (QStringList{QStringLiteral("Port 3 is redundancy and cannot be undone."),
                                            QStringLiteral("Port 3 is locked and cannot be undone."),
                                            QStringLiteral("Port 1 is locked and cannot be redone.")}));
        for (int i = 0; i < 3; ++i) // advice for what is the reason
            QCOMPARE(user.boxes().at(i).details.contains(QLatin1String("redundancy")), i == 0);
    }

    void onlyAPressOnAReceiverReversesThem()
    {
        World world;
        const SInstalledInput input(world.scene);
        auto &cabinet = World::cabinet(world.scene, 0, 1);
        auto record = cabinet.cabinet();
        record.rects = {QRect(0, 0, 32, 128), QRect(32, 0, 32, 128)};
        cabinet.setCabinet(record);
        world.states.resetsHighlight = true;
        cabinet.setHighlighted(true);
        world.scene.backend().setToolMode(ToolMode::HeadToTailExchange, true);
        QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
        for (const int x : {100, 40}) { // beside them, and on the second one
            press.setPos(QPointF(x, 60));
            world.scene.backend().mouse()->mouseMode().pressCabinet(cabinet, press);
            QCOMPARE(cabinet.cabinet().rects.first(), record.rects.at(x == 40));
        }
        QVERIFY(cabinet.isHighlighted()); // it has its type still
        const QVariant same = QVariant::fromValue(cabinet.cabinet());
        world.stack().push(CommandWorld::make<CChangeCabinetTypeCommand>(cabinet, same, same));
        QVERIFY(!cabinet.isHighlighted()); // it was given a type, if only the same
        world.stack().undo();
        const CUndoCommandBase *own = world.scene.getChildUndoCommand(world.stack().command(0));
        QVERIFY(own);
        QCOMPARE(own->operationName(), QStringLiteral("ChangeRank"));
    }

    void reloadingUndoably()
    {
        World world;
        const auto reload = [&world](const CabinetLayout &layout, const QList<QUuid> &selected = {}) {
            LayoutData data = world.data;
            data.layout = layout;
            world.scene.setLayoutData(SmallWorlds::node(data), data, {}, selected, true);
        };
        CabinetLayout other = world.data.layout;
        other.ports[0] = SmallWorlds::wiredPort(0, 2);
        const QUuid chosen = other.ports[0].getAllCabinets().first().uuid;
        const CGraphicsCabinetItem *kept = &World::cabinet(world.scene, 2, 0);
        reload(other, {chosen});
        QVERIFY(world.layout() == other);
        QCOMPARE(&World::cabinet(world.scene, 2, 0), kept); // its port has not changed
        QCOMPARE(world.scene.backend().recorder().operationName(), QStringLiteral("Reset"));
        world.scene.undo(nullptr);

        QSignalSpy sceneSpy(&world.scene, &CommandWorld::Scene::notifySceneChanged);
        CabinetLayout same = world.data.layout;
        same.ports[0].groups << Port::CabinetGroup();
        same.ports[0].groups.last().uuid = QUuid::createUuid(); // an empty group is not shown
        reload(same);
        QVERIFY(world.layout() == world.data.layout);
        QCOMPARE(sceneSpy.count(), 0);
        world.scene.redo(nullptr);
        QVERIFY(world.layout() == other);
        QCOMPARE(world.scene.selection().uuids(), QVector<QUuid>{chosen});
        QCOMPARE(CSceneVerifier::faultIn(world.scene), QString());
    }

    void theSelectionsOfStepsAreNotMixedUp()
    {
        World world;
        for (const int place : {0, 1}) {
            world.scene.clearSelection();
            CommandWorld::Cabinet &cabinet = World::cabinet(world.scene, 0, place);
            cabinet.setSelected(true);
            QCOMPARE(world.scene.selection().uuids(), QVector<QUuid>{cabinet.uuid()});
            world.scene.selectedItemMoveRight();
        }
        world.scene.undo(nullptr);
        world.scene.undo(nullptr);
        QVERIFY(World::cabinet(world.scene, 0, 0).isSelected() && world.scene.selection().count() == 1);
    }

    void aHighlightIsNoDifferenceOfTheLayout()
    {
        World world;
        world.scene.backend().highlights().press(World::cabinet(world.scene, 0, 0), false);
        LayoutData marked = world.data;
        marked.layout = world.layout();
        QCOMPARE(marked.layout.ports[0].getAllCabinets().first().calibrationIndex, 0);
        world.scene.setLayoutData(SmallWorlds::node(world.data), world.data, {}, {}, true);
        QCOMPARE(world.stack().count(), 0);
        QCOMPARE(world.scene.backend().highlights().records().size(), 1);
        world.scene.setLayoutData(SmallWorlds::node(marked), marked);
        QVERIFY(world.layout() == world.data.layout); // anew, and no cabinet stands out
    }

    void withoutAStackEditsStillApply()
    {
        World world;
        world.scene.setUndoStack(nullptr);
        world.scene.setLayoutData(SmallWorlds::node(world.data), world.data);
        world.scene.selectAllItem();
        world.scene.backend().operations().remove();
        world.scene.undo(nullptr);
        QCOMPARE(world.layout().cabinetCount(), 0);
    }

    /// What other parts of the program rely on.
    void kindsAndFlagsOfItems()
    {
        World world;
        const CGraphicsCabinetItem cabinet(nullptr);
        const CGraphicsGroupItem group(QUuid(), QRectF(), nullptr);
        QCOMPARE(cabinet.type(), 65537);
        QCOMPARE(World::cabinet(world.scene, 0, 0).outgoing()->type(), 65538);
        QCOMPARE(group.type(), 65539);
        QCOMPARE(world.scene.backend().content().portItem(0)->type(), 65540);
        for (const CGraphicsItemBase *item : {static_cast<const CGraphicsItemBase *>(&cabinet),
                                              static_cast<const CGraphicsItemBase *>(&group)}) {
            QCOMPARE(int(item->flags()), 67587); // movable, selectable, sends changes of geometry and place
            QVERIFY(!item->uuid().isNull());
            QCOMPARE(item->data(0).toUuid(), item->uuid());
        }
    }

    void aGroupGivesItsCursorUpWhenAMemberIsEntered()
    {
        World world;
        CGraphicsGroupItem &group = World::group(world.scene, "inner");
        CGraphicsCabinetItem &member = *group.cabinets().first();
        const auto keepsCursor = [&](Qt::CursorShape shape, QEvent::Type event) {
            member.setCursor(Qt::CrossCursor);
            group.setCursor(shape);
            QGraphicsSceneHoverEvent hover{event};
            world.scene.sendEvent(&member, &hover);
            return group.hasCursor();
        };
        QVERIFY(!keepsCursor(Qt::SizeHorCursor, QEvent::GraphicsSceneHoverEnter));
        QVERIFY(member.hasCursor());
        QVERIFY(keepsCursor(Qt::ArrowCursor, QEvent::GraphicsSceneHoverEnter));
        QVERIFY(keepsCursor(Qt::SizeHorCursor, QEvent::GraphicsSceneHoverLeave));
        QVERIFY(!member.hasCursor());
    }
};

ORVO_TEST_MAIN(QApplication, CSceneStateTest)
#include "tst_scene_state.moc"
