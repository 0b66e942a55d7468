// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/editor/CSceneVerifier.h"
#include "tests/editor/CommandWorld.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>

#include <functional>
#include <memory>

using namespace CommandWorld;
using Maker = std::function<CUndoCommandBase *(Scene &)>;

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
        QVERIFY(!CMoveCommand(&World::cabinet(world.scene, 2, 0)).parentItem());
        const CMoveCommand ofNothing(nullptr);
        QVERIFY(ofNothing.port() == 0 && ofNothing.uuid().isNull() && !ofNothing.parentItem());
    }

    /// Those that no edit of the user makes.
    void rareCommandsAreExact()
    {
        const Maker makers[] = {[](Scene &s) {
                                    return move(World::group(s, "inner"), {-500, 0});
                                },
                                [](Scene &s) {
                                    return make<CReszieCommand>(*World::group(s, "inner").cabinets().at(1),
                                                                QSizeF(128, 128), QSizeF(400, 1));
                                },
                                [](Scene &s) { return append(s, 1, &World::group(s, "inner")); },
                                [](Scene &s) { return createGroup(s); },
                                [](Scene &s) { return breakGroup(World::group(s, "inner")); },
                                [](Scene &s) { return make<CCreateWiringCommand>(World::cabinet(s, 1, 0)); },
                                [](Scene &s) { return breakWiring(World::cabinet(s, 2, 0)); }};
        for (const Maker &maker : makers) {
            World world;
            world.stack().push(maker(world.scene));
            const CabinetLayout after = world.layout();
            QVERIFY(after != world.data.layout);
            for (int i = 0; i < 2; ++i) {
                QCOMPARE(CSceneVerifier::faultIn(world.scene), QString());
                world.stack().undo();
                QVERIFY(world.layout() == world.data.layout);
                QCOMPARE(CSceneVerifier::faultIn(world.scene), QString());
                world.stack().redo();
                QVERIFY(world.layout() == after);
            }
            world.stack().undo();
            world.stack().push(move(World::cabinet(world.scene, 0, 3), {9, 9})); // drops it
            world.stack().undo();
            QVERIFY(world.layout() == world.data.layout);
        }
    }

    void membersOfAnInnerGroupGoToThePort()
    {
        World world;
        const QVector<Cabinet *> members = World::group(world.scene, "inner").cabinets();
        world.stack().push(breakGroup(World::group(world.scene, "inner")));
        for (const Cabinet *member : members) {
            QCOMPARE(member->parentItem(),
                     static_cast<QGraphicsItem *>(world.scene.backend().content().portItem(1)));
            QVERIFY(member->isSelected());
        }
    }

    void movesMerge()
    {
        struct SCase
        {
            Maker next;
            int count;
        };
        const QPointF place(50, 60);
        const QPointF next(70, 80);
        const SCase cases[] = {
            {[&](Scene &s) { return move(World::cabinet(s, 0, 1), next); }, 1},
            {[](Scene &s) {
                 return move(World::cabinet(s, 0, 1), {128, 0});
             },
             1}, // back to the start
            {[&](Scene &s) { return make<CMoveCommand>(World::cabinet(s, 0, 1), place * 2, next); }, 2},
            {[&](Scene &s) { return make<CMoveCommand>(World::cabinet(s, 0, 2), place, next); }, 2},
            {[&](Scene &s) { return make<CReszieCommand>(World::cabinet(s, 0, 1), place, QSizeF(7, 8)); },
             2}};
        for (const SCase &one : cases) {
            World world;
            world.stack().push(move(World::cabinet(world.scene, 0, 1), place));
            world.stack().push(one.next(world.scene));
            QCOMPARE(world.stack().count(), one.count);
            const CabinetLayout after = world.layout();
            world.stack().setIndex(0);
            QVERIFY(one.count == 2 || world.layout() == world.data.layout);
            world.stack().setIndex(one.count);
            QVERIFY(world.layout() == after);
        }
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

    void aRemovedItemComesBackWithoutItsGroup()
    {
        World world;
        Group &inner = World::group(world.scene, "inner");
        Cabinet &member = *inner.cabinets().first();
        const QUuid uuid = member.uuid();
        const QPointF place = member.scenePos();
        CUndoCommandBase *command = remove(member);
        world.stack().push(command);
        QCOMPARE(command->parentItem(), static_cast<QGraphicsItem *>(&inner));
        vanish(world.scene, inner);
        QVERIFY(!command->parentItem());
        world.stack().undo();
        const CGraphicsItemBase *back = world.scene.backend().content().editedItem(uuid);
        QVERIFY(back && back->scene() == &world.scene && !back->parentItem());
        QCOMPARE(back->scenePos(), place);
        world.stack().redo();
        QVERIFY(!world.scene.backend().content().editedItem(uuid));
    }

    void aRemovedItemKeepsWhatIsInNoRecord()
    {
        World world;
        Cabinet &loose = World::cabinet(world.scene, 1, 0);
        const QUuid uuid = loose.uuid();
        loose.setData(2, 42);
        loose.setName(QStringLiteral("A1"));
        world.stack().push(remove(loose));
        world.stack().undo();
        const CGraphicsItemBase *back = world.scene.backend().content().editedItem(uuid);
        QVERIFY(back->isSelected());
        QCOMPARE(back->data(2).toInt(), 42);
        QCOMPARE(back->name(), QStringLiteral("A1"));
    }

    void noItemIsFoundInAClearedScene()
    {
        World world;
        Cabinet &cabinet = World::cabinet(world.scene, 1, 0);
        const QUuid uuid = cabinet.uuid();
        const std::unique_ptr<CUndoCommandBase> expecting(move(cabinet, {5, 5}));
        QCOMPARE(world.scene.itemOf(uuid), static_cast<QGraphicsItem *>(&cabinet));
        world.scene.clearLayout();
        QVERIFY(!world.scene.itemOf(uuid));
    }

    void someStepsDoNothing()
    {
        const auto vanished = [](const std::function<CUndoCommandBase *(Cabinet &)> &of) {
            return [of](Scene &s) {
                auto *cabinet =
                    new Cabinet(SmallWorlds::cabinet(1, 90, -1), s.backend().content().portItem(1));
                s.backend().content().enterEdited(*cabinet);
                CUndoCommandBase *command = of(*cabinet);
                vanish(s, *cabinet);
                return command;
            };
        };
        const QVariant record = QVariant::fromValue(Record());
        const Maker makers[] = {
            vanished([](Cabinet &c) {
                return move(c, {5, 5});
            }),
            vanished([](Cabinet &c) { return make<CReszieCommand>(c, QSizeF(128, 128), QSizeF(5, 5)); }),
            vanished([](Cabinet &c) { return make<CCreateWiringCommand>(c); }),
            vanished([](Cabinet &c) { return make<CBreakWiringCommand>(c, 0); }),
            vanished(changeType),
            [](Scene &s) { return make<CCreateWiringCommand>(World::group(s, "outer")); },
            [](Scene &s) { return make<CBreakWiringCommand>(World::group(s, "outer"), 0); },
            [&](Scene &s) {
                return make<CChangeCabinetTypeCommand>(World::group(s, "outer"), record, record);
            },
            [](Scene &s) { return make<CCreateGroupCommand>(World::cabinet(s, 0, 0)); },
            [](Scene &s) { return make<CBreakGroupCommand>(World::cabinet(s, 0, 0)); },
            [](Scene &s) {
                return make<CMoveCommand>(*s.backend().content().portItem(0), QPointF(), QPointF(5, 5));
            },
            [](Scene &s) { return make<CBreakWiringCommand>(World::cabinet(s, 1, 0), -1); }};
        for (const Maker &maker : makers) {
            World world;
            world.stack().push(maker(world.scene));
            QVERIFY(world.layout() == world.data.layout);
            world.stack().undo();
            QVERIFY(world.layout() == world.data.layout);
            QCOMPARE(world.stack().index(), 0);
            QCOMPARE(CSceneVerifier::faultIn(world.scene), QString());
        }
    }
};

ORVO_TEST_MAIN(QApplication, CUndoCommandsTest)
#include "tst_undo_commands.moc"
