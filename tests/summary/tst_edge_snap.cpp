// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CEdgeSnap.h"
#include "tests/harness/CTestBase.h"

class CEdgeSnapTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void catchesAtTheNearestEdgeWithinReach_data()
    {
        QTest::addColumn<QPoint>("corner"); // of a rectangle of 50 x 40 pixels
        QTest::addColumn<int>("reach");
        QTest::addColumn<QPoint>("expected");
        QTest::newRow("left at right") << QPoint(104, 500) << 5 << QPoint(100, 500);
        QTest::newRow("right at left") << QPoint(-47, 500) << 5 << QPoint(-50, 500);
        QTest::newRow("left at left") << QPoint(-5, 500) << 5 << QPoint(0, 500);
        QTest::newRow("right at right") << QPoint(48, 500) << 5 << QPoint(50, 500);
        QTest::newRow("top at bottom") << QPoint(500, 103) << 5 << QPoint(500, 100);
        QTest::newRow("bottom at top") << QPoint(500, -44) << 5 << QPoint(500, -40);
        QTest::newRow("both ways") << QPoint(98, 63) << 5 << QPoint(100, 60);
        QTest::newRow("just within") << QPoint(105, 500) << 5 << QPoint(100, 500);
        QTest::newRow("just beyond") << QPoint(106, 500) << 5 << QPoint(106, 500);
        QTest::newRow("lies there already") << QPoint(100, 500) << 5 << QPoint(100, 500);
        QTest::newRow("the nearer of two") << QPoint(207, 500) << 9 << QPoint(210, 500);
        QTest::newRow("no reach") << QPoint(101, 500) << 0 << QPoint(101, 500);
    }
    void catchesAtTheNearestEdgeWithinReach()
    {
        QFETCH(QPoint, corner);
        QFETCH(int, reach);
        QFETCH(QPoint, expected);
        const QVector<QRect> neighbours = {QRect(0, 0, 100, 100), QRect(200, 1000, 10, 10)};
        const QSize size(50, 40);
        QCOMPARE(CEdgeSnap::snapped(QRect(corner, size), neighbours, reach), QRect(expected, size));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CEdgeSnapTest)
#include "tst_edge_snap.moc"
