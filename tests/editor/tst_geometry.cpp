// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CAppendPlan.h"
#include "layout/geometry/CCabinetRect.h"
#include "layout/geometry/CCoverage.h"
#include "layout/geometry/CEdgeSnap.h"
#include "layout/geometry/COverlapGrid.h"
#include "layout/geometry/CReceiverAreas.h"
#include "layout/geometry/CResizeHandles.h"
#include "layout/geometry/CSharedPixels.h"
#include "layout/geometry/CSnakeOrder.h"
#include "tests/harness/CTestBase.h"

#include <QCoreApplication>
#include <QLine>
#include <QRandomGenerator>
#include <QRegion>

#include <algorithm>
#include <array>
#include <numeric>

namespace {

using Areas = QVector<QRect>;
using Handles = CResizeHandles;
using Order = QVector<int>;
using Rects = QVector<QRectF>;

/// Strips of uneven widths, side by side, and below each other.
Rects unevenTiling(const QRectF &frame)
{
    const QVector<qreal> columns = {0, 1, 7, 8, 50, frame.width()};
    const QVector<qreal> lines = {0, 33, 34, frame.height()};
    Rects tiles;
    for (int i = 1; i < columns.size(); ++i) {
        for (int j = 1; j < lines.size(); ++j)
            tiles << QRectF(frame.topLeft() + QPointF(columns.at(i - 1), lines.at(j - 1)),
                            frame.topLeft() + QPointF(columns.at(i), lines.at(j)));
    }
    return tiles;
}

QRectF unite(const QRectF &a, const QRectF &b)
{
    return a | b;
}

QVector<CSnakeOrder::SCell> cellsOf(const Rects &rects)
{
    QVector<CSnakeOrder::SCell> cells;
    for (const QRectF &rect : rects)
        cells << CSnakeOrder::SCell{rect, QUuid::createUuid()};
    return cells;
}

} // namespace

class CGeometryTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void coverage()
    {
        const QRectF area(-10, 20, 100, 60);
        struct SCase
        {
            const char *name;
            Rects rects;
            bool covered;
        };
        const SCase cases[] = {
            {"nothing", {}, false},
            {"touching from outside", {area.translated(100, 0), area.translated(0, 60)}, false},
            {"overlaps cover", {{-10, 20, 80, 60}, {30, 20, 60, 40}, {20, 40, 70, 40}}, true},
            {"overlaps hide no gap", {{-10, 20, 80, 60}, {-10, 20, 80, 60}, {60, 20, 30, 30}}, false},
            {"pinwheel",
             {{-10, 20, 60, 20}, {50, 20, 40, 40}, {30, 60, 60, 20}, {-10, 40, 40, 40}, {30, 40, 20, 20}},
             true},
            {"rects without area", {{-10, 20, 100, 0}, {-10, 20, 0, 60}}, false}};
        for (const SCase &one : cases) {
            QVERIFY2(CCoverage::covers(one.rects, area) == one.covered, one.name);
            const Rects reversed(one.rects.rbegin(), one.rects.rend());
            QVERIFY2(CCoverage::covers(reversed, area) == one.covered, one.name);
        }
        QVERIFY(CCoverage::covers({}, QRectF(5, 5, 0, 10))); // nothing to cover
    }

    void everyTileOfAWallCounts()
    {
        const QRectF frame(0, 0, 99, 101);
        const Rects tiles = unevenTiling(frame);
        QVERIFY(CCoverage::covers(tiles, frame));
        for (int i = 0; i < tiles.size(); ++i) {
            Rects others = tiles;
            others.removeAt(i);
            QVERIFY2(!CCoverage::covers(others, frame), qPrintable(QString::number(i)));
        }
    }

    void handlesSitOnCornersAndEdgesAndMoveThem()
    {
        struct SCase
        {
            int handle;
            QPointF place;  // on (0, 0, 100, 50)
            QRectF dragged; // by (7.4, 5.6)
        };
        const SCase cases[] = {
            {Handles::TopLeft, {0, 0}, {7, 6, 93, 44}},         {Handles::Top, {50, 0}, {0, 6, 100, 44}},
            {Handles::TopRight, {100, 0}, {0, 6, 107, 44}},     {Handles::Right, {100, 25}, {0, 0, 107, 50}},
            {Handles::BottomRight, {100, 50}, {0, 0, 107, 56}}, {Handles::Bottom, {50, 50}, {0, 0, 100, 56}},
            {Handles::BottomLeft, {0, 50}, {7, 0, 93, 56}},     {Handles::Left, {0, 25}, {7, 0, 93, 50}}};
        const QRectF rect(0, 0, 100, 50);
        QCOMPARE(Handles::handles(rect, 8).size(), int(Handles::Count));
        for (const SCase &one : cases) {
            const QRectF handle = Handles::handles(rect, 8).value(one.handle);
            QCOMPARE(handle, QRectF(one.place - QPointF(4, 4), QSizeF(8, 8)));
            QCOMPARE(Handles::resized(rect, one.handle, {7.4, 5.6}, {1, 2}, {2048, 2048}), one.dragged);
        }
    }

    void guidesRunAlongAllThatTheyLineUp()
    {
        const QVector<QRect> neighbours = {{10, 20, 5, 5}, {-5, 0, 5, 8}};
        QCOMPARE(CEdgeSnap::guides({0, 0, 10, 10}, neighbours),
                 (QVector<QLine>{{0, 0, 0, 10}, {10, 0, 10, 25}, {-5, 0, 10, 0}}));
        QCOMPARE(CEdgeSnap::guides({1, 1, 8, 8}, neighbours), QVector<QLine>());
    }

    void shortEdgesKeepTheirCorners()
    {
        const QList<int> corners = {Handles::TopLeft, Handles::TopRight, Handles::BottomRight,
                                    Handles::BottomLeft};
        QCOMPARE(Handles::handles({0, 0, 23, 23}, 8).keys(), corners);
        const QMap<int, QRectF> narrow = Handles::handles({0, 0, 23, 24}, 8);
        QVERIFY(narrow.contains(Handles::Left) && narrow.contains(Handles::Right));
        QVERIFY(!narrow.contains(Handles::Top) && !narrow.contains(Handles::Bottom));
        const QMap<int, QRectF> small = Handles::handles({0, 0, 9, 9}, 8);
        QCOMPARE(small.value(Handles::TopLeft), QRectF(-3, -3, 6, 6)); // the middle third is free
        QVERIFY(Handles::handles({0, 0, 7, 90}, 8).isEmpty());
    }

    void limitsAreReachedExactly()
    {
        const auto farBy = [](int handle, qreal way) {
            return Handles::resized({300, 400, 100, 50}, handle, {way, way}, {3, 2}, {2048, 1000});
        };
        QCOMPARE(farBy(Handles::TopLeft, -9999), QRectF(400 - 2048, 450 - 1000, 2048, 1000));
        QCOMPARE(farBy(Handles::TopLeft, 9999), QRectF(397, 448, 3, 2));
        QCOMPARE(farBy(Handles::BottomRight, 9999), QRectF(300, 400, 2048, 1000));
        QCOMPARE(farBy(Handles::BottomRight, -9999), QRectF(300, 400, 3, 2));
    }

    void tilingsStayGapless()
    {
        const QRectF from(13, -40, 99, 101);
        for (const QSizeF &size :
             {QSizeF(99, 101), QSizeF(100, 102), QSizeF(1999, 1021), QSizeF(317, 101), QSizeF(3, 2)}) {
            const QRectF to(QPointF(-7, 5), size);
            Rects mapped;
            qreal area = 0;
            for (const QRectF &tile : unevenTiling(from)) {
                mapped << Handles::mapped(tile, from, to);
                QCOMPARE(mapped.last(), QRectF(mapped.last().toRect())); // whole pixels
                area += mapped.last().width() * mapped.last().height();
            }
            QVERIFY(CCoverage::covers(mapped, to));
            QCOMPARE(area, size.width() * size.height()); // so none overlaps another or sticks out
        }
    }

    void areasAreAFunctionOfTheSize_data()
    {
        QTest::addColumn<Areas>("areas");
        QTest::addColumn<QSize>("smallest");
        QTest::newRow("none") << Areas() << QSize(1, 1);
        QTest::newRow("halves") << Areas{{0, 0, 64, 96}, {64, 0, 64, 96}} << QSize(2, 1);
        QTest::newRow("slivers") << Areas{{0, 0, 126, 96}, {126, 0, 1, 96}, {127, 0, 1, 96}} << QSize(3, 1);
        QTest::newRow("slivers first") << Areas{{0, 0, 1, 96}, {1, 0, 1, 96}, {2, 0, 126, 96}} << QSize(3, 1);
        QTest::newRow("a T") << Areas{{0, 0, 128, 40}, {0, 40, 50, 56}, {50, 40, 78, 56}} << QSize(2, 2);
    }
    void areasAreAFunctionOfTheSize()
    {
        QFETCH(Areas, areas);
        QFETCH(QSize, smallest);
        CReceiverAreas::Cabinet original;
        original.rect = QRect(10, 20, 128, 96);
        original.rects = areas;
        CReceiverAreas::Cabinet cabinet = original;
        const auto resizeTo = [&cabinet](const QSize &size) {
            CReceiverAreas::resize(cabinet, cabinet.rect.size(), size);
            cabinet.rect.setSize(size);
        };
        QCOMPARE(CReceiverAreas::smallest(cabinet, cabinet.rect.size()), smallest);
        for (const QSize &size : {QSize(3, 2), QSize(257, 95), smallest, QSize(2048, 1), QSize(97, 2047)}) {
            resizeTo(size.expandedTo(smallest));
            QRegion covered;
            for (const QRect &area : qAsConst(cabinet.rects)) {
                QVERIFY(!area.isEmpty() && !covered.intersects(area));
                covered += area;
            }
            QCOMPARE(covered, areas.isEmpty() ? QRegion() : QRegion(QRect(QPoint(), cabinet.rect.size())));
            CReceiverAreas::Cabinet direct = original;
            CReceiverAreas::resize(direct, original.rect.size(), cabinet.rect.size());
            QCOMPARE(cabinet.rects, direct.rects); // whatever sizes it had between
        }
        CReceiverAreas::reverse(cabinet);
        resizeTo(original.rect.size());
        std::reverse(original.rects.begin(), original.rects.end());
        QCOMPARE(cabinet, original);
    }

    void areasThatBreakTheRulesSurviveAResize()
    {
        CReceiverAreas::Cabinet cabinet;
        cabinet.rects = {{-9, 0, 64, 96}, {500, 500, 64, 96}, {3, 3, 0, 0}};
        CReceiverAreas::resize(cabinet, {128, 96}, {3, 3});
        QCOMPARE(cabinet.rects.size(), 3);
        CReceiverAreas::resize(cabinet, {3, 3}, {128, 96});
        QCOMPARE(cabinet.rects.first(), QRect(0, 0, 55, 96));
        QVERIFY(cabinet.rects.at(1).isEmpty());
    }

    void sharedPixelsAreFoundAsByComparingAll()
    {
        QRandomGenerator random(7);
        for (int round = 0; round < 300; ++round) {
            QVector<QRect> rects(random.bounded(12));
            for (QRect &rect : rects)
                rect = QRect(random.bounded(-200, 200), random.bounded(-20, 20), random.bounded(140),
                             random.bounded(9));
            const QVector<bool> found = CSharedPixels::overlapping(rects);
            for (int i = 0; i < rects.size(); ++i) {
                int others = 0;
                for (const QRect &rect : qAsConst(rects))
                    others += &rect != &qAsConst(rects)[i] && !rect.isEmpty() && rect.intersects(rects.at(i));
                QCOMPARE(found.at(i), others > 0 && !rects.at(i).isEmpty());
            }
        }
        const QVector<QRect> wide = {{0, 0, 1, 1},
                                     {1 << 23, 1 << 23, 1, 1}}; // which nothing could be drawn on
        QCOMPARE(CSharedPixels::overlapping(wide), (QVector<bool>{true, true}));
    }

    void overlapsAreFoundAsByComparingAll()
    {
        QRandomGenerator random(7);
        const auto anyRect = [&random] {
            const int most = std::array<int, 3>{6, 60, 400}.at(size_t(random.bounded(3)));
            const int reach = random.bounded(2) ? 600 : 3 * most;
            return QRect(random.bounded(-reach, reach), random.bounded(-reach, reach),
                         1 + random.bounded(most), 1 + random.bounded(most));
        };
        COverlapGrid grid;
        QMap<int, QRect> rects;
        QMap<int, bool> overlapping; // kept up to date with what is touched only
        for (int step = 0; step < 400; ++step) {
            const int kind = random.bounded(4);
            if (kind < 2 || rects.isEmpty()) {
                const QRect rect = anyRect();
                rects.insert(grid.add(rect), rect);
            } else {
                const int number = rects.keys().at(random.bounded(rects.size()));
                if (kind == 2)
                    grid.move(number, rects[number] = anyRect());
                else if (rects.remove(number))
                    grid.remove(number);
            }
            QSet<int> touched;
            while (grid.hasTouched())
                touched |= grid.takeTouched();
            for (const int number : touched)
                overlapping[number] = !grid.overlaps(number, 4).isEmpty();
            for (auto one = rects.begin(); one != rects.end(); ++one) {
                bool expected = false;
                for (auto other = rects.begin(); other != rects.end(); ++other)
                    expected |= other.key() != one.key() && other->intersects(*one);
                QCOMPARE(overlapping.value(one.key()), expected);
            }
        }
    }

    void overlapsAreToldOnce()
    {
        COverlapGrid grid;
        const int wide = grid.add({0, 0, 90, 90});
        for (const QRect &rect : {QRect(50, 50, 90, 90), QRect(40, 40, 50, 50), QRect(50, 50, 90, 90)})
            grid.add(rect);
        QCOMPARE(grid.overlaps(wide, 4), QVector<QRect>({QRect(40, 40, 50, 50)}));
        grid.add({0, 0, 10, 10});
        QCOMPARE(grid.overlaps(wide, 4).size(), 2);
    }

    void recordsHoldInclusiveWholePixels()
    {
        const QPair<QRectF, QRect> places[] = {
            {{10.5, -0.5, 20, 10}, QRect({11, 0}, QPoint(30, 9))}, // halves go up
            {{-2.5, -1.5, 2, 1}, QRect({-2, -1}, QPoint(-1, -1))},
            {{0.49, 7.4, 5, 5}, QRect({0, 7}, QPoint(4, 11))},
            {{0.4, 0.6, 1.2, 1.8}, QRect({0, 1}, QPoint(1, 1))}}; // each edge on its own
        for (const auto &[place, record] : places) {
            QCOMPARE(CCabinetRect::toRecord(place), record);
            QCOMPARE(CCabinetRect::toRecord(CCabinetRect::fromRecord(record)), record);
        }
    }

    void snakesRunThroughAGrid()
    {
        const Order expected[] = {{0, 1, 2, 5, 4, 3}, {2, 1, 0, 3, 4, 5}, {5, 4, 3, 0, 1, 2},
                                  {3, 4, 5, 2, 1, 0}, {0, 3, 4, 1, 2, 5}, {2, 5, 4, 1, 0, 3},
                                  {5, 2, 1, 4, 3, 0}, {3, 0, 1, 4, 5, 2}};
        Rects grid;
        for (int i = 0; i < 6; ++i)
            grid << QRectF(i % 3 * 128, i / 3 * 64, 128, 64);
        for (int pattern = 0; pattern < CSnakeOrder::PatternCount; ++pattern)
            QCOMPARE(CSnakeOrder::order(cellsOf(grid), pattern), expected[pattern]);
        QVERIFY(CSnakeOrder::order(cellsOf(grid), 8).isEmpty());
        QVERIFY(CSnakeOrder::order(cellsOf(grid), -1).isEmpty());
    }

    void snakesThroughUnevenWalls_data()
    {
        QTest::addColumn<Rects>("rects");
        QTest::addColumn<int>("pattern");
        QTest::addColumn<Order>("expected");
        const auto row = [](const char *name, const Rects &rects, int pattern, const Order &expected) {
            QTest::newRow(name) << rects << pattern << expected;
        };
        const Rects beside = {{0, 0, 200, 200}, {200, 0, 100, 100}, {200, 100, 100, 100}};
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
    void snakesThroughUnevenWalls()
    {
        QFETCH(Rects, rects);
        QFETCH(int, pattern);
        QTEST(CSnakeOrder::order(cellsOf(rects), pattern), "expected");
    }

    void takesWhatStripsTouchLineByLine()
    {
        QRandomGenerator random(20261);
        for (int round = 0; round < 200; ++round) {
            Rects rects = {QRectF(0, 0, 5, 7)}; // the smallest, which sets the pitch
            for (int i = random.bounded(30); i > 0; --i)
                rects << QRectF(random.bounded(90), random.bounded(90), 6 + random.bounded(20),
                                8 + random.bounded(20));
            for (const bool down : {true, false}) {
                const qreal height = std::accumulate(rects.begin(), rects.end(), QRectF(), unite).height();
                const auto lineOf = [&](const QRectF &rect) {
                    for (int line = 0; line * 7 < height; ++line) {
                        const int way = 3 + line * 7;
                        if (rect.intersects(QRectF(-1, down ? way : height - way, 200, 1)))
                            return line;
                    }
                    return -1;
                };
                QVector<int> touched;
                for (const QRectF &rect : qAsConst(rects))
                    touched << lineOf(rect);
                touched.removeAll(-1);
                std::sort(touched.begin(), touched.end());
                QVector<int> lines;
                for (const int place : CSnakeOrder::order(cellsOf(rects), down ? 0 : 3))
                    lines << lineOf(rects.at(place));
                QCOMPARE(lines, touched);
            }
        }
    }

    void equalCentresAreOrderedByIdentity()
    {
        auto cells = cellsOf(Rects(6, QRectF(0, 0, 64, 64)));
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

    void anAppendIsCutAtItsLimit()
    {
        const auto corners = [](const QPoint &cursor, int limit) {
            QVector<QPoint> result;
            for (const QRect &cell : CAppendPlan::cells(QRect(100, 40, 50, 20), cursor, limit))
                result << cell.topLeft();
            return result;
        };
        using Corners = QVector<QPoint>;
        QCOMPARE(corners({99, 39}, 9), (Corners{{100, 40}, {50, 40}, {100, 20}, {50, 20}}));
        QCOMPARE(corners({160, 70}, 3), (Corners{{100, 40}, {150, 40}})); // columns go before rows
        QCOMPARE(corners({160, 70}, 0), (Corners{{100, 40}}));            // never none
    }

    void anAppendIsWiredFromTheSideOfTheChain()
    {
        struct SCase
        {
            QRect tail;
            QPoint cursor; // the first cell lies at (100, 100)
            const char *pattern;
        };
        const SCase cases[] = {
            {{}, {125, 115}, "LTR TTB snake"}, // no chain
            {{}, {85, 85}, "RTL BTT snake"},
            {{}, {105, 135}, "TTB LTR snake"},
            {{}, {105, 85}, "BTT LTR snake"},
            {{90, 105, 10, 10}, {125, 115}, "LTR TTB snake"}, // left of the block, level
            {{60, 110, 10, 10}, {125, 95}, "LTR BTT snake"},  // left of the block, at its foot
            {{170, 90, 10, 10}, {125, 115}, "RTL TTB snake"}, // right of the block, at its head
            {{90, 40, 10, 10}, {125, 115}, "TTB LTR snake"},  // above
            {{105, 40, 10, 10}, {115, 115}, "TTB RTL snake"},
            {{90, 190, 10, 10}, {125, 115}, "BTT LTR snake"}, // below
            {{130, 190, 10, 10}, {125, 115}, "BTT RTL snake"}};
        for (const SCase &one : cases) {
            const auto cells = CAppendPlan::cells(QRect(100, 100, 10, 10), one.cursor, 100);
            const int pattern = CAppendPlan::patternAfter(one.tail, cells);
            QCOMPARE(CSnakeOrder::patterns().at(pattern).name, one.pattern);
        }
    }
};

ORVO_TEST_MAIN(QCoreApplication, CGeometryTest)
#include "tst_geometry.moc"
