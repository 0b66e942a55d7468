// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/editor/CSceneVerifier.h"
#include "tests/editor/CommandWorld.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>

#include <functional>

using namespace CommandWorld;
using Maker = std::function<CUndoCommandBase *(Scene &)>;
Q_DECLARE_METATYPE(Maker)

class CUndoCommandsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsRecorded()
    {
        World world;
        Cabinet &member = *World::group(world.scene, "inner").cabinets().first();
        const CMoveCommand ofMember(&member);
        QCOMPARE(ofMember.port(), 1);
        QCOMPARE(ofMember.uuid(), member.uuid());
        QCOMPARE(ofMember.parentItem(), static_cast<QGraphicsItem *>(&World::group(world.scene, "inner")));
        const CMoveCommand ofLoose(&World::cabinet(world.scene, 2, 0));
        QCOMPARE(ofLoose.port(), 2);
        QVERIFY(!ofLoose.parentItem());
        const CMoveCommand ofNothing(nullptr);
        QCOMPARE(ofNothing.port(), 0);
        QVERIFY(ofNothing.uuid().isNull() && !ofNothing.parentItem());
    }

    void everyCommandIsExact_data()
    {
        QTest::addColumn<Maker>("maker");
        const auto row = [](const char *name, const Maker &maker) { QTest::newRow(name) << maker; };
        row("move", [](Scene &s) { return move(World::cabinet(s, 0, 1), {333, -44}); });
        row("move a member", [](Scene &s) {
            return move(*World::group(s, "inner").cabinets().at(0), {-9, 7});
        });
        row("move a group", [](Scene &s) { return move(World::group(s, "outer"), {1000, 2000}); });
        row("move an inner group", [](Scene &s) { return move(World::group(s, "inner"), {-500, 0}); });
        row("resize", [](Scene &s) {
            return make<CReszieCommand>(World::cabinet(s, 0, 2), QSizeF(128, 128), QSizeF(64, 301));
        });
        row("resize a member", [](Scene &s) {
            return make<CReszieCommand>(*World::group(s, "inner").cabinets().at(1), QSizeF(128, 128),
                                        QSizeF(400, 1));
        });
        row("append", [](Scene &s) { return append(s, 2, s.portItem(2)); });
        row("append to a group", [](Scene &s) { return append(s, 1, &World::group(s, "inner")); });
        row("remove", [](Scene &s) { return remove(World::cabinet(s, 1, 0)); });
        row("remove a member", [](Scene &s) { return remove(*World::group(s, "inner").cabinets().at(1)); });
        row("group", [](Scene &s) { return createGroup(s); });
        row("ungroup", [](Scene &s) { return breakGroup(World::group(s, "outer")); });
        row("ungroup in a group", [](Scene &s) { return breakGroup(World::group(s, "inner")); });
        row("wire the first", [](Scene &s) { return make<CCreateWiringCommand>(World::cabinet(s, 1, 0)); });
        row("unwire the head", [](Scene &s) { return breakWiring(World::cabinet(s, 0, 0)); });
        row("unwire the middle", [](Scene &s) { return breakWiring(World::cabinet(s, 0, 2)); });
        row("unwire the tail", [](Scene &s) { return breakWiring(World::cabinet(s, 0, 3)); });
        row("unwire the only one", [](Scene &s) { return breakWiring(World::cabinet(s, 2, 0)); });
        row("change the type", [](Scene &s) { return changeType(World::cabinet(s, 0, 1)); });
        row("change a member's type",
            [](Scene &s) { return changeType(*World::group(s, "inner").cabinets().at(0)); });
    }
    void everyCommandIsExact()
    {
        QFETCH(Maker, maker);
        World world;
        const CabinetLayout before = world.layout();
        QVERIFY(before == world.data.layout);
        world.stack().push(maker(world.scene));
        const CabinetLayout after = world.layout();
        QVERIFY(after != before);
        QCOMPARE(CSceneVerifier::faultIn(world.scene), QString());
        for (int i = 0; i < 2; ++i) {
            world.stack().undo();
            QVERIFY(world.layout() == before);
            QCOMPARE(CSceneVerifier::faultIn(world.scene), QString());
            world.stack().redo();
            QVERIFY(world.layout() == after);
            QCOMPARE(CSceneVerifier::faultIn(world.scene), QString());
        }
        world.stack().undo();
        world.stack().push(move(World::cabinet(world.scene, 0, 3), {9, 9})); // drops it
        world.stack().undo();
        QVERIFY(world.layout() == before);
    }

    void membersOfAnInnerGroupGoToThePort()
    {
        World world;
        const QVector<Cabinet *> members = World::group(world.scene, "inner").cabinets();
        const QPointF place = members.first()->scenePos();
        world.stack().push(breakGroup(World::group(world.scene, "inner")));
        for (const Cabinet *member : members) {
            QCOMPARE(member->parentItem(), static_cast<QGraphicsItem *>(world.scene.portItem(1)));
            QVERIFY(member->isSelected());
        }
        QCOMPARE(members.first()->scenePos(), place);
    }

    void movesMerge_data()
    {
        QTest::addColumn<Maker>("next");
        QTest::addColumn<int>("count");
        const auto row = [](const char *name, const Maker &next, int count) {
            QTest::newRow(name) << next << count;
        };
        row(
            "goes on",
            [](Scene &s) {
                return move(World::cabinet(s, 0, 1), {70, 80});
            },
            1);
        row(
            "back to the start",
            [](Scene &s) {
                return move(World::cabinet(s, 0, 1), {128, 0});
            },
            1);
        row(
            "gap",
            [](Scene &s) {
                return make<CMoveCommand>(World::cabinet(s, 0, 1), QPointF(50, 61), QPointF(70, 80));
            },
            2);
        row(
            "other item",
            [](Scene &s) {
                return make<CMoveCommand>(World::cabinet(s, 0, 2), QPointF(50, 60), QPointF(70, 80));
            },
            2);
        row(
            "other command",
            [](Scene &s) {
                return make<CReszieCommand>(World::cabinet(s, 0, 1), QPointF(50, 60), QSizeF(70, 80));
            },
            2);
    }
    void movesMerge()
    {
        QFETCH(Maker, next);
        QFETCH(int, count);
        World world;
        world.stack().push(move(World::cabinet(world.scene, 0, 1), {50, 60}));
        world.stack().push(next(world.scene));
        QCOMPARE(world.stack().count(), count);
        const CabinetLayout after = world.layout();
        world.stack().setIndex(0);
        if (count == 1)
            QVERIFY(world.layout() == world.data.layout);
        world.stack().setIndex(count);
        QVERIFY(world.layout() == after);
    }

    void movesOfAVanishedItemDoNotMerge()
    {
        World world;
        Cabinet &cabinet = World::cabinet(world.scene, 1, 0);
        world.stack().push(move(cabinet, {50, 60}));
        CUndoCommandBase *next = move(cabinet, {70, 80});
        vanish(world.scene, cabinet);
        world.stack().push(next);
        QCOMPARE(world.stack().count(), 2);
    }

    void aGroupLeavesWithItsMembers()
    {
        World world;
        const QUuid member = World::group(world.scene, "inner").cabinets().first()->uuid();
        Group &outer = World::group(world.scene, "outer");
        outer.setSelected(true);
        world.stack().push(makeWith<CRemoveCommand>(outer, ItemFactories::anew(outer)));
        QVERIFY(!world.scene.backend().content().editedItem(member));
        QVERIFY(world.scene.selection().isEmpty());
        QCOMPARE(CSceneVerifier::faultIn(world.scene), QString());
    }

    void aRemovedItemComesBackWithoutItsGroup()
    {
        World world;
        Group &inner = World::group(world.scene, "inner");
        Cabinet &member = *inner.cabinets().first();
        const QUuid uuid = member.uuid();
        const QPointF place = member.scenePos();
        CUndoCommandBase *command = remove(member);
        world.stack().push(command);
        QVERIFY(!world.scene.backend().content().editedItem(uuid));
        QCOMPARE(command->parentItem(), static_cast<QGraphicsItem *>(&inner));
        vanish(world.scene, inner);
        QVERIFY(!command->parentItem());
        world.stack().undo();
        const CGraphicsItemBase *back = world.scene.backend().content().editedItem(uuid);
        QVERIFY(back && back->scene() == &world.scene);
        QVERIFY(!back->parentItem());
        QCOMPARE(back->scenePos(), place);
        world.stack().redo();
        QVERIFY(!world.scene.backend().content().editedItem(uuid));
    }

    void aRemovedItemComesBackToItsPortSelected()
    {
        World world;
        Cabinet &loose = World::cabinet(world.scene, 1, 0);
        const QUuid uuid = loose.uuid();
        loose.setData(2, 42);
        loose.setName(QStringLiteral("A1"));
        world.stack().push(remove(loose));
        world.stack().undo();
        const CGraphicsItemBase *back = world.scene.backend().content().editedItem(uuid);
        QCOMPARE(back->parentItem(), static_cast<QGraphicsItem *>(world.scene.portItem(1)));
        QVERIFY(back->isSelected());
        QCOMPARE(back->data(2).toInt(), 42);
        QCOMPARE(back->name(), QStringLiteral("A1"));
    }

    void someStepsDoNothing_data()
    {
        QTest::addColumn<Maker>("maker");
        const auto row = [](const char *name, const Maker &maker) { QTest::newRow(name) << maker; };
        const auto vanished = [](const std::function<CUndoCommandBase *(Cabinet &)> &of) {
            return [of](Scene &s) {
                auto *cabinet = new Cabinet(SmallWorlds::cabinet(1, 90, -1), s.portItem(1));
                s.backend().content().enterEdited(*cabinet);
                CUndoCommandBase *command = of(*cabinet);
                vanish(s, *cabinet);
                return command;
            };
        };
        row("vanished, move", vanished([](Cabinet &c) { return move(c, {5, 5}); }));
        row("vanished, resize",
            vanished([](Cabinet &c) { return make<CReszieCommand>(c, QSizeF(128, 128), QSizeF(5, 5)); }));
        row("vanished, wire", vanished([](Cabinet &c) { return make<CCreateWiringCommand>(c); }));
        row("vanished, unwire", vanished([](Cabinet &c) { return make<CBreakWiringCommand>(c, 0); }));
        row("vanished, type", vanished(changeType));
        row("group, wire", [](Scene &s) { return make<CCreateWiringCommand>(World::group(s, "outer")); });
        row("group, unwire", [](Scene &s) { return make<CBreakWiringCommand>(World::group(s, "outer"), 0); });
        row("group, type", [](Scene &s) {
            return make<CChangeCabinetTypeCommand>(World::group(s, "outer"), QVariant::fromValue(Record()),
                                                   QVariant::fromValue(Record()));
        });
        row("cabinet, group", [](Scene &s) { return make<CCreateGroupCommand>(World::cabinet(s, 0, 0)); });
        row("cabinet, ungroup", [](Scene &s) { return make<CBreakGroupCommand>(World::cabinet(s, 0, 0)); });
        row("port, move",
            [](Scene &s) { return make<CMoveCommand>(*s.portItem(0), QPointF(), QPointF(5, 5)); });
        row("unwired already",
            [](Scene &s) { return make<CBreakWiringCommand>(World::cabinet(s, 1, 0), -1); });
    }
    void someStepsDoNothing()
    {
        QFETCH(Maker, maker);
        World world;
        world.stack().push(maker(world.scene));
        QVERIFY(world.layout() == world.data.layout);
        QCOMPARE(world.stack().index(), 1);
        world.stack().undo();
        QVERIFY(world.layout() == world.data.layout);
        QCOMPARE(world.stack().index(), 0);
        QCOMPARE(CSceneVerifier::faultIn(world.scene), QString());
    }

    void theFirstCommandWhosePortRefusesIsTold_data()
    {
        QTest::addColumn<QVector<int>>("ports"); // of the commands of a step, in their order
        QTest::addColumn<QString>("undo");
        QTest::addColumn<QString>("redo");
        QTest::newRow("locked first") << QVector<int>{1, 0, 2} << "Port 1 is locked and cannot be undone."
                                      << "Port 1 is locked and cannot be redone.";
        QTest::newRow("redundancy first")
            << QVector<int>{2, 0} << "Port 3 is redundancy and cannot be undone."
            << "Port 3 is redundancy and cannot be redone.";
    }
    void theFirstCommandWhosePortRefusesIsTold()
    {
        QFETCH(QVector<int>, ports);
        World world;
        QUndoCommand step;
        for (const int port : ports)
            new CMoveCommand(&World::cabinet(world.scene, port, 0), &step); // lives with the step
        world.states().locked[0] = true;
        world.states().redundancy[2] = CabinetLayout::CabinetPort::Redundant;
        QTEST(world.scene.backend().history().refusal(step, true), "undo");
        QTEST(world.scene.backend().history().refusal(step, false), "redo");
    }
};

ORVO_TEST_MAIN(QApplication, CUndoCommandsTest)
#include "tst_undo_commands.moc"
