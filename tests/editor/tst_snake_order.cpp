// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CSnakeOrder.h"
#include "tests/harness/CTestBase.h"

#include <QRandomGenerator>
#include <QSet>

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

/// The first line whose strip touches @p rect, -1: none. The first of @p rects sets the pitch.
int firstLine(const QRectF &rect, const QVector<QRectF> &rects, const CSnakeOrder::SPattern &pattern)
{
    QRectF bounds;
    for (const QRectF &each : rects)
        bounds |= each;
    const int pitch = int(pattern.rows ? rects.first().height() : rects.first().width());
    for (int line = 0; line * pitch < (pattern.rows ? bounds.height() : bounds.width()); ++line) {
        const int way = pitch / 2 + line * pitch;
        const bool forward = pattern.advanceForward;
        const QRectF strip =
            pattern.rows
                ? QRectF(bounds.x(), forward ? bounds.top() + way : bounds.bottom() - way, bounds.width(), 1)
                : QRectF(forward ? bounds.left() + way : bounds.right() - way, bounds.y(), 1,
                         bounds.height());
        if (rect.intersects(strip))
            return line;
    }
    return -1;
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

    void smallWalls_data()
    {
        QTest::addColumn<QVector<QRectF>>("rects");
        QTest::addColumn<int>("pattern");
        QTest::addColumn<QVector<int>>("expected");
        const auto row = [](const char *name, const QVector<QRectF> &rects, int pattern,
                            const QVector<int> &expected) {
            QTest::newRow(name) << rects << pattern << expected;
        };
        const QVector<QRectF> beside = {{0, 0, 200, 200}, {200, 0, 100, 100}, {200, 100, 100, 100}};
        row("the first line takes a large cabinet", beside, 0, {0, 1, 2});
        row("so does the last one", beside, 3, {0, 2, 1});
        row("between two strips", {{0, 0, 100, 100}, {200, 52, 200, 97}, {0, 200, 100, 100}}, 0, {0, 2});
        row("a partial last line", {{0, 0, 100, 100}, {0, 100, 100, 150}}, 2, {1, 0});
        // Strips from 1 to 2 and from 4 to 5: the second cabinet, from 2 to 4, touches both and meets none.
        row("half of an odd pitch, and edges", {{0, 0, 3, 3}, {10, 2, 20, 2}}, 0, {0});
        row("of equal areas the first one is high", {{0, 0, 10, 40}, {20, 0, 40, 10}}, 0, {0});
        row("of equal areas the first one is wide", {{20, 0, 40, 10}, {0, 0, 10, 40}}, 0, {1, 0});
        row("one above the other", {{0, 0, 10, 40}, {0, 5, 10, 20}}, 0, {1, 0});
        row("one above the other, backwards", {{0, 0, 10, 40}, {0, 5, 10, 20}}, 1, {1, 0});
        row("one beside the other", {{0, 0, 40, 10}, {5, 0, 20, 10}}, 4, {1, 0});
    }
    void smallWalls()
    {
        QFETCH(QVector<QRectF>, rects);
        QFETCH(int, pattern);
        QTEST(CSnakeOrder::order(cellsOf(rects), pattern), "expected");
    }

    void takesWhatStripsTouchLineByLine_data()
    {
        QTest::addColumn<int>("pattern");
        for (int i = 0; i < CSnakeOrder::PatternCount; ++i)
            QTest::newRow(CSnakeOrder::patterns().at(i).name) << i;
    }
    void takesWhatStripsTouchLineByLine()
    {
        QFETCH(int, pattern);
        const CSnakeOrder::SPattern &p = CSnakeOrder::patterns().at(pattern);
        QRandomGenerator random(20261);
        for (int round = 0; round < 200; ++round) {
            QVector<QRectF> rects = {QRectF(0, 0, 5, 7)}; // the smallest
            for (int i = random.bounded(30); i > 0; --i)
                rects << QRectF(random.bounded(90), random.bounded(90), 6 + random.bounded(20),
                                8 + random.bounded(20));
            const QVector<int> order = CSnakeOrder::order(cellsOf(rects), pattern);
            int touched = 0;
            for (const QRectF &rect : qAsConst(rects))
                touched += firstLine(rect, rects, p) >= 0;
            QCOMPARE(order.size(), touched);
            QCOMPARE(QSet<int>(order.begin(), order.end()).size(), touched);
            for (int i = 0; i < order.size(); ++i) {
                const int line = firstLine(rects.at(order.at(i)), rects, p);
                QVERIFY(line >= 0);
                if (i == 0)
                    continue;
                const QRectF &before = rects.at(order.at(i - 1));
                QVERIFY(firstLine(before, rects, p) <= line);
                const QPointF step = rects.at(order.at(i)).center() - before.center();
                const bool forward = (line % 2 == 0) == p.firstForward;
                if (firstLine(before, rects, p) == line)
                    QVERIFY((p.rows ? step.x() : step.y()) * (forward ? 1 : -1) >= 0);
            }
        }
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
