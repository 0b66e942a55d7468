// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CSnakeOrder.h"
#include "tests/harness/CTestBase.h"

#include <algorithm>

namespace {

QVector<CSnakeOrder::SCell> grid(int columns, int rows, const QSizeF &size)
{
    QVector<CSnakeOrder::SCell> cells;
    for (int i = 0; i < columns * rows; ++i) {
        const QPointF corner((i % columns) * size.width(), (i / columns) * size.height());
        cells << CSnakeOrder::SCell{QRectF(corner, size), QUuid::createUuid()};
    }
    return cells;
}

QVector<CSnakeOrder::SCell> cellsOf(const QVector<QRectF> &rects)
{
    QVector<CSnakeOrder::SCell> cells;
    for (const QRectF &rect : rects)
        cells << CSnakeOrder::SCell{rect, QUuid::createUuid()};
    return cells;
}

} // namespace

class CSnakeOrderTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void runsThroughAGrid_data()
    {
        QTest::addColumn<QVector<int>>("expected");
        const QVector<QVector<int>> expected = {{0, 1, 2, 5, 4, 3}, {2, 1, 0, 3, 4, 5}, {5, 4, 3, 0, 1, 2},
                                                {3, 4, 5, 2, 1, 0}, {0, 3, 4, 1, 2, 5}, {2, 5, 4, 1, 0, 3},
                                                {5, 2, 1, 4, 3, 0}, {3, 0, 1, 4, 5, 2}};
        for (int i = 0; i < CSnakeOrder::PatternCount; ++i)
            QTest::newRow(CSnakeOrder::patterns().at(i).name) << expected.at(i);
    }
    void runsThroughAGrid()
    {
        QFETCH(QVector<int>, expected);
        int pattern = 0;
        while (qstrcmp(CSnakeOrder::patterns().at(pattern).name, QTest::currentDataTag()) != 0)
            ++pattern;
        QCOMPARE(CSnakeOrder::order(grid(3, 2, QSizeF(128, 64)), pattern), expected);
    }

    void smallestCabinetSetsThePitch()
    {
        // One large cabinet beside a column of small ones: the first line takes it.
        const auto cells =
            cellsOf({QRectF(0, 0, 200, 200), QRectF(200, 0, 100, 100), QRectF(200, 100, 100, 100)});
        QCOMPARE(CSnakeOrder::order(cells, 0), (QVector<int>{0, 1, 2}));
        QCOMPARE(CSnakeOrder::order(cells, 3), (QVector<int>{0, 2, 1}));
    }

    void leavesOutWhatNoLineTouches()
    {
        // Pitch 100, lines at 50, 150, 250; the cabinet from 52 to 149 lies between two strips.
        const auto cells =
            cellsOf({QRectF(0, 0, 100, 100), QRectF(200, 52, 200, 97), QRectF(0, 200, 100, 100)});
        QCOMPARE(CSnakeOrder::order(cells, 0), (QVector<int>{0, 2}));
    }

    void takesAPartialLastLine()
    {
        const auto cells = cellsOf({QRectF(0, 0, 100, 100), QRectF(0, 100, 100, 150)});
        QCOMPARE(CSnakeOrder::order(cells, 2), (QVector<int>{1, 0}));
    }

    void equalCentresAreOrderedByIdentity()
    {
        auto cells = cellsOf(QVector<QRectF>(6, QRectF(0, 0, 64, 64)));
        const auto identities = [&cells] {
            QVector<QUuid> result;
            for (int i : CSnakeOrder::order(cells, 0))
                result << cells.at(i).uuid;
            return result;
        };
        const QVector<QUuid> first = identities();
        std::reverse(cells.begin(), cells.end());
        QCOMPARE(identities(), first);
        QCOMPARE(first.size(), 6);
    }

    void unknownPatternsGiveNothing()
    {
        QVERIFY(CSnakeOrder::order(grid(2, 2, QSizeF(64, 64)), 8).isEmpty());
        QVERIFY(CSnakeOrder::order(grid(2, 2, QSizeF(64, 64)), -1).isEmpty());
    }
};

ORVO_TEST_MAIN(QCoreApplication, CSnakeOrderTest)
#include "tst_snake_order.moc"
