// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CCabinetRect.h"
#include "layout/geometry/CCoverage.h"
#include "layout/geometry/CReceiverAreas.h"
#include "layout/geometry/CResizeHandles.h"
#include "tests/harness/CTestBase.h"

#include <QCoreApplication>
#include <QRegion>

#include <algorithm>

namespace {

using Areas = QVector<QRect>;
using Areas = QVector<QRect>;
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

qreal areaOf(const Rects &rects)
{
    qreal area = 0;
    for (const QRectF &rect : rects)
        area += rect.width() * rect.height();
    return area;
}

} // namespace

class CGeometryTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void coverage_data()
    {
        QTest::addColumn<Rects>("rects");
        QTest::addColumn<QRectF>("area");
        QTest::addColumn<bool>("covered");
        const QRectF area(-10, 20, 100, 60);
        const auto row = [&](const char *name, const Rects &rects, bool covered) {
            QTest::newRow(name) << rects << area << covered;
        };
        row("nothing", {}, false);
        row("itself", {area}, true);
        row("more than itself", {area.adjusted(-5, -5, 5, 5)}, true);
        row("elsewhere", {area.translated(500, 0)}, false);
        row("touching from outside", {area.translated(100, 0), area.translated(0, 60)}, false);
        row("two halves", {{-10, 20, 50, 60}, {40, 20, 50, 60}}, true);
        row("L shape", {{-10, 20, 50, 60}, {40, 50, 50, 30}}, false);
        row("steps without a gap", {{-10, 20, 50, 30}, {40, 20, 50, 40}, {-10, 50, 50, 30}, {40, 60, 50, 20}},
            true);
        row("overlaps cover", {{-10, 20, 80, 60}, {30, 20, 60, 40}, {20, 40, 70, 40}}, true);
        row("overlaps hide no gap", {{-10, 20, 80, 60}, {-10, 20, 80, 60}, {60, 20, 30, 30}}, false);
        row("gap of a pixel between", {{-10, 20, 50, 60}, {41, 20, 49, 60}}, false);
        row("gap of a pixel above", {{-10, 21, 100, 59}}, false);
        row("gap of a pixel below", {{-10, 20, 100, 59}}, false);
        row("gap of a line in the middle", {{-10, 20, 100, 30}, {-10, 51, 100, 29}}, false);
        row("hole", {{-10, 20, 100, 20}, {-10, 60, 100, 20}, {-10, 40, 40, 20}, {31, 40, 59, 20}}, false);
        row("pinwheel",
            {{-10, 20, 60, 20}, {50, 20, 40, 40}, {30, 60, 60, 20}, {-10, 40, 40, 40}, {30, 40, 20, 20}},
            true);
        row("rects without area", {{-10, 20, 100, 0}, {-10, 20, 0, 60}}, false);
        QTest::newRow("nothing to cover") << Rects() << QRectF(5, 5, 0, 10) << true;
    }
    void coverage()
    {
        QFETCH(Rects, rects);
        QFETCH(QRectF, area);
        QFETCH(bool, covered);
        QCOMPARE(CCoverage::covers(rects, area), covered);
        std::reverse(rects.begin(), rects.end());
        QCOMPARE(CCoverage::covers(rects, area), covered);
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

    void handlesSitOnCornersAndEdges()
    {
        const QRectF rect(10, 20, 100, 60);
        const QMap<int, QRectF> handles = CResizeHandles::handles(rect, 8);
        QCOMPARE(handles.size(), int(CResizeHandles::Count));
        const QMap<int, QPointF> centres = {
            {CResizeHandles::TopLeft, {10, 20}},      {CResizeHandles::Top, {60, 20}},
            {CResizeHandles::TopRight, {110, 20}},    {CResizeHandles::Right, {110, 50}},
            {CResizeHandles::BottomRight, {110, 80}}, {CResizeHandles::Bottom, {60, 80}},
            {CResizeHandles::BottomLeft, {10, 80}},   {CResizeHandles::Left, {10, 50}}};
        for (auto centre = centres.begin(); centre != centres.end(); ++centre) {
            QCOMPARE(handles.value(centre.key()).center(), centre.value());
            QCOMPARE(handles.value(centre.key()).size(), QSizeF(8, 8));
        }
    }

    void shortEdgesKeepTheirCorners()
    {
        const QList<int> corners = {CResizeHandles::TopLeft, CResizeHandles::TopRight,
                                    CResizeHandles::BottomRight, CResizeHandles::BottomLeft};
        QCOMPARE(CResizeHandles::handles({0, 0, 23, 23}, 8).keys(), corners);
        const QMap<int, QRectF> narrow = CResizeHandles::handles({0, 0, 23, 24}, 8);
        QVERIFY(narrow.contains(CResizeHandles::Left) && narrow.contains(CResizeHandles::Right));
        QVERIFY(!narrow.contains(CResizeHandles::Top) && !narrow.contains(CResizeHandles::Bottom));
        const QMap<int, QRectF> small = CResizeHandles::handles({0, 0, 9, 9}, 8);
        QCOMPARE(small.value(CResizeHandles::TopLeft), QRectF(-3, -3, 6, 6)); // the middle third is free
        QVERIFY(CResizeHandles::handles({0, 0, 7, 90}, 8).isEmpty());
    }

    void aHandleMovesItsEdgesOnly_data()
    {
        QTest::addColumn<int>("handle");
        QTest::addColumn<QRectF>("byDrag"); // by (7.4, 5.6) from (0, 0, 100, 50)
        QTest::newRow("top left") << int(CResizeHandles::TopLeft) << QRectF(7, 6, 93, 44);
        QTest::newRow("top") << int(CResizeHandles::Top) << QRectF(0, 6, 100, 44);
        QTest::newRow("top right") << int(CResizeHandles::TopRight) << QRectF(0, 6, 107, 44);
        QTest::newRow("right") << int(CResizeHandles::Right) << QRectF(0, 0, 107, 50);
        QTest::newRow("bottom right") << int(CResizeHandles::BottomRight) << QRectF(0, 0, 107, 56);
        QTest::newRow("bottom") << int(CResizeHandles::Bottom) << QRectF(0, 0, 100, 56);
        QTest::newRow("bottom left") << int(CResizeHandles::BottomLeft) << QRectF(7, 0, 93, 56);
        QTest::newRow("left") << int(CResizeHandles::Left) << QRectF(7, 0, 93, 50);
    }
    void aHandleMovesItsEdgesOnly()
    {
        QFETCH(int, handle);
        QFETCH(QRectF, byDrag);
        const QRectF rect(0, 0, 100, 50);
        const QSizeF smallest(1, 2);
        const QSizeF largest(2048, 2048);
        QCOMPARE(CResizeHandles::resized(rect, handle, {7.4, 5.6}, smallest, largest), byDrag);
        QCOMPARE(CResizeHandles::resized(rect, handle, {0, 0}, smallest, largest), rect);
        // However far it is dragged: the sides keep within their limits, and what does not move stays.
        for (const QPointF &far : {QPointF(9e4, 9e4), QPointF(-9e4, -9e4), QPointF(9e4, -9e4)}) {
            const QRectF limited = CResizeHandles::resized(rect, handle, far, smallest, largest);
            QVERIFY(limited.width() >= 1 && limited.width() <= 2048);
            QVERIFY(limited.height() >= 2 && limited.height() <= 2048);
            QCOMPARE(limited.left() == rect.left(), byDrag.left() == rect.left());
            QCOMPARE(limited.right() == rect.right(), byDrag.right() == rect.right());
            QCOMPARE(limited.top() == rect.top(), byDrag.top() == rect.top());
            QCOMPARE(limited.bottom() == rect.bottom(), byDrag.bottom() == rect.bottom());
        }
    }

    void limitsAreReachedExactly()
    {
        const QRectF rect(300, 400, 100, 50);
        const QSizeF smallest(3, 2);
        const QSizeF largest(2048, 1000);
        QCOMPARE(CResizeHandles::resized(rect, CResizeHandles::TopLeft, {-9999, -9999}, smallest, largest),
                 QRectF(400 - 2048, 450 - 1000, 2048, 1000));
        QCOMPARE(CResizeHandles::resized(rect, CResizeHandles::TopLeft, {9999, 9999}, smallest, largest),
                 QRectF(397, 448, 3, 2));
        QCOMPARE(CResizeHandles::resized(rect, CResizeHandles::BottomRight, {9999, 9999}, smallest, largest),
                 QRectF(300, 400, 2048, 1000));
        QCOMPARE(
            CResizeHandles::resized(rect, CResizeHandles::BottomRight, {-9999, -9999}, smallest, largest),
            QRectF(300, 400, 3, 2));
    }

    void tilingsStayGapless_data()
    {
        QTest::addColumn<QSizeF>("size");
        QTest::newRow("same") << QSizeF(99, 101);
        QTest::newRow("a pixel more") << QSizeF(100, 102);
        QTest::newRow("odd") << QSizeF(157, 211);
        QTest::newRow("large") << QSizeF(1999, 1021);
        QTest::newRow("one direction") << QSizeF(317, 101);
    }
    void tilingsStayGapless()
    {
        QFETCH(QSizeF, size);
        const QRectF from(13, -40, 99, 101);
        const QRectF to(QPointF(-7, 5), size);
        Rects mapped;
        for (const QRectF &tile : unevenTiling(from)) {
            mapped << CResizeHandles::mapped(tile, from, to);
            QCOMPARE(mapped.last(), QRectF(mapped.last().toRect())); // whole pixels
        }
        QVERIFY(CCoverage::covers(mapped, to));
        QCOMPARE(areaOf(mapped), size.width() * size.height()); // so none overlaps another or sticks out
    }

    void partsKeepAPixel()
    {
        const QRectF from(0, 0, 99, 101);
        for (const QRectF &tile : unevenTiling(from)) {
            const QRectF mapped = CResizeHandles::mapped(tile, from, QRectF(0, 0, 3, 2));
            QVERIFY(mapped.width() >= 1 && mapped.height() >= 1);
        }
    }

    void areasAreAFunctionOfTheSize_data()
    {
        QTest::addColumn<Areas>("areas");
        QTest::addColumn<QSize>("smallest");
        QTest::newRow("none") << Areas() << QSize(1, 1);
        QTest::newRow("one") << Areas{{0, 0, 128, 96}} << QSize(1, 1);
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
    }

    void recordsHoldInclusiveWholePixels_data()
    {
        QTest::addColumn<QRectF>("place");
        QTest::addColumn<QVector<int>>("edges"); // left, top, right, bottom
        QTest::newRow("whole") << QRectF(3, 4, 10, 20) << QVector<int>{3, 4, 12, 23};
        QTest::newRow("halves go up") << QRectF(10.5, -0.5, 20, 10) << QVector<int>{11, 0, 30, 9};
        QTest::newRow("negative halves") << QRectF(-2.5, -1.5, 2, 1) << QVector<int>{-2, -1, -1, -1};
        QTest::newRow("below a half") << QRectF(0.49, 7.4, 5, 5) << QVector<int>{0, 7, 4, 11};
        QTest::newRow("edges round on their own") << QRectF(0.4, 0.6, 1.2, 1.8) << QVector<int>{0, 1, 1, 1};
    }
    void recordsHoldInclusiveWholePixels()
    {
        QFETCH(QRectF, place);
        QFETCH(QVector<int>, edges);
        const QRect record = CCabinetRect::toRecord(place);
        QCOMPARE((QVector<int>{record.left(), record.top(), record.right(), record.bottom()}), edges);
        QCOMPARE(CCabinetRect::toRecord(CCabinetRect::fromRecord(record)), record);
    }
};

ORVO_TEST_MAIN(QCoreApplication, CGeometryTest)
#include "tst_geometry.moc"
