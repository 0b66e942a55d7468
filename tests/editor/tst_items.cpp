// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsConnectionItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "tests/editor/CommandWorld.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QGraphicsSceneHoverEvent>

using CommandWorld::World;

/// What other parts of the program rely on in items: their kinds, flags and what a group makes of the cursor.
class CItemsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void kindsAndFlags()
    {
        World world;
        CGraphicsCabinetItem cabinet(nullptr);
        CGraphicsGroupItem group(QUuid(), QRectF(), nullptr);
        const int edited = 67587; // movable, selectable, sends changes of geometry and of scene position
        QCOMPARE(int(cabinet.flags()), edited);
        QCOMPARE(int(group.flags()), edited);
        const QVector<QPair<const QGraphicsItem *, int>> kinds = {
            {&cabinet, 65537},
            {World::cabinet(world.scene, 0, 0).outgoing(), 65538},
            {&group, 65539},
            {world.scene.portItem(0), 65540}};
        for (const auto &row : kinds)
            QCOMPARE(row.first->type(), row.second);
        QVERIFY(!cabinet.uuid().isNull() && !group.uuid().isNull());
        QCOMPARE(cabinet.data(0).toUuid(), cabinet.uuid());
        QCOMPARE(group.data(0).toUuid(), group.uuid());
    }

    void aGroupGivesItsCursorUpWhenAMemberIsEntered_data()
    {
        QTest::addColumn<int>("cursor"); // of the group; negative: none
        QTest::addColumn<int>("event");
        QTest::addColumn<bool>("swallowed");
        QTest::newRow("resizing") << int(Qt::SizeHorCursor) << int(QEvent::GraphicsSceneHoverEnter) << true;
        QTest::newRow("arrow") << int(Qt::ArrowCursor) << int(QEvent::GraphicsSceneHoverEnter) << false;
        QTest::newRow("none") << -1 << int(QEvent::GraphicsSceneHoverEnter) << false;
        QTest::newRow("leaving") << int(Qt::SizeHorCursor) << int(QEvent::GraphicsSceneHoverLeave) << false;
    }
    void aGroupGivesItsCursorUpWhenAMemberIsEntered()
    {
        QFETCH(int, cursor);
        QFETCH(int, event);
        World world;
        CGraphicsGroupItem &group = World::group(world.scene, "inner");
        CGraphicsCabinetItem &member = *group.cabinets().first();
        member.setCursor(Qt::CrossCursor);
        if (cursor >= 0)
            group.setCursor(Qt::CursorShape(cursor));
        QGraphicsSceneHoverEvent hover{QEvent::Type(event)};
        world.scene.sendEvent(&member, &hover);
        QFETCH(bool, swallowed);
        QCOMPARE(group.hasCursor(), cursor >= 0 && !swallowed);
        QCOMPARE(member.hasCursor(), event == QEvent::GraphicsSceneHoverEnter); // gone on leaving
    }
};

ORVO_TEST_MAIN(QApplication, CItemsTest)
#include "tst_items.moc"
