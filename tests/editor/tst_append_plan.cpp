// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CAppendPlan.h"
#include "layout/geometry/CSnakeOrder.h"
#include "tests/harness/CTestBase.h"

class CAppendPlanTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void coversTheWayOfTheCursor_data()
    {
        QTest::addColumn<QPoint>("cursor");
        QTest::addColumn<int>("limit");
        QTest::addColumn<QVector<QPoint>>("corners");
        using Corners = QVector<QPoint>;
        QTest::newRow("on the first cell") << QPoint(149, 59) << 9 << Corners{{100, 40}};
        QTest::newRow("one to the right") << QPoint(150, 59) << 9 << Corners{{100, 40}, {150, 40}};
        QTest::newRow("last pixel to the left") << QPoint(50, 40) << 9 << Corners{{100, 40}, {50, 40}};
        QTest::newRow("left and up") << QPoint(99, 39) << 9
                                     << Corners{{100, 40}, {50, 40}, {100, 20}, {50, 20}};
        QTest::newRow("columns go before rows") << QPoint(160, 70) << 3 << Corners{{100, 40}, {150, 40}};
        QTest::newRow("never none") << QPoint(160, 70) << 0 << Corners{{100, 40}};
    }
    void coversTheWayOfTheCursor()
    {
        QFETCH(QPoint, cursor);
        QFETCH(int, limit);
        QVector<QPoint> corners;
        for (const QRect &cell : CAppendPlan::cells(QRect(100, 40, 50, 20), cursor, limit)) {
            QCOMPARE(cell.size(), QSize(50, 20));
            corners << cell.topLeft();
        }
        QTEST(corners, "corners");
    }

    void directionsAreTurnedIntoPatterns_data()
    {
        QTest::addColumn<int>("direction");
        QTest::addColumn<int>("plain");
        QTest::addColumn<int>("reversed");
        QTest::newRow("leftward") << int(CAppendPlan::Leftward) << 1 << 2;
        QTest::newRow("upward") << int(CAppendPlan::Upward) << 6 << 7;
        QTest::newRow("rightward") << int(CAppendPlan::Rightward) << 0 << 3;
        QTest::newRow("downward") << int(CAppendPlan::Downward) << 5 << 4;
    }
    void directionsAreTurnedIntoPatterns()
    {
        QFETCH(int, direction);
        QTEST(CAppendPlan::pattern(CAppendPlan::EDirection(direction), false), "plain");
        QTEST(CAppendPlan::pattern(CAppendPlan::EDirection(direction), true), "reversed");
    }

    void wiresOnFromTheSideOfTheChain_data()
    {
        QTest::addColumn<QRect>("tail");
        QTest::addColumn<QPoint>("cursor"); // the first cell lies at (100, 100)
        QTest::addColumn<QString>("pattern");
        const QRect none;
        QTest::newRow("no chain, right and down") << none << QPoint(125, 115) << "LTR TTB snake";
        QTest::newRow("no chain, left and up") << none << QPoint(85, 85) << "RTL BTT snake";
        QTest::newRow("no chain, a column down") << none << QPoint(105, 135) << "TTB LTR snake";
        QTest::newRow("no chain, a column up") << none << QPoint(105, 85) << "BTT LTR snake";
        QTest::newRow("left of the block, level")
            << QRect(90, 105, 10, 10) << QPoint(125, 115) << "LTR TTB snake";
        QTest::newRow("left of the block, at its foot")
            << QRect(60, 110, 10, 10) << QPoint(125, 95) << "LTR BTT snake";
        QTest::newRow("right of the block, at its head")
            << QRect(170, 90, 10, 10) << QPoint(125, 115) << "RTL TTB snake";
        QTest::newRow("above the block, at its left")
            << QRect(90, 40, 10, 10) << QPoint(125, 115) << "TTB LTR snake";
        QTest::newRow("above the block, level")
            << QRect(105, 40, 10, 10) << QPoint(115, 115) << "TTB RTL snake";
        QTest::newRow("below the block, at its left")
            << QRect(90, 190, 10, 10) << QPoint(125, 115) << "BTT LTR snake";
        QTest::newRow("below the block, at its right")
            << QRect(130, 190, 10, 10) << QPoint(125, 115) << "BTT RTL snake";
    }
    void wiresOnFromTheSideOfTheChain()
    {
        QFETCH(QRect, tail);
        QFETCH(QPoint, cursor);
        const auto cells = CAppendPlan::cells(QRect(100, 100, 10, 10), cursor, 100);
        const int pattern = CAppendPlan::patternAfter(tail, cells);
        QTEST(QString::fromLatin1(CSnakeOrder::patterns().at(pattern).name), "pattern");
    }
};

ORVO_TEST_MAIN(QCoreApplication, CAppendPlanTest)
#include "tst_append_plan.moc"
