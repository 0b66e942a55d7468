// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CLayoutPainter.h"
#include "layout/drawing/CLayoutPicture.h"
#include "layout/drawing/CPortColors.h"
#include "layout/drawing/CReceiverBorders.h"
#include "layout/drawing/CWirePainter.h"
#include "layout/drawing/LayoutColors.h"
#include "layout/resources/LayoutResources.h"
#include "tests/harness/CTestBase.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QPicture>

namespace {

using Port = CabinetLayout::CabinetPort;

const QColor PortFill(60, 90, 160);

/// A wired group of two typed cabinets and a custom-defined one that is not wired, 200 x 200 pixels each,
/// with a gap of 100 between the first two. The first has its receivers left and right.
LayoutData wall()
{
    Port::CabinetGroup group;
    group.uuid = QUuid::createUuid();
    group.cabinets.resize(2);
    for (int i = 0; i < 2; ++i) {
        group.cabinets[i].rect = QRect(i * 300, 0, 200, 200);
        group.cabinets[i].type = SMD5::ofContent("P2");
        group.cabinets[i].rank = i;
    }
    group.cabinets[0].rects = {QRect(0, 0, 100, 200), QRect(100, 0, 100, 200)};
    Port::CabinetGroup loose;
    loose.cabinets.resize(1);
    loose.cabinets[0].rect = QRect(500, 0, 200, 200);
    Port port;
    port.index = 0;
    port.color = PortFill;
    port.groups = {loose, group};
    LayoutData data;
    data.canvas = QSize(700, 200);
    data.layout.ports << port;
    return data;
}

/// A picture of @p data, @p scale pixels a pixel of the canvas; black where nothing is drawn.
QImage pictureOf(const LayoutData &data, const SLayoutDrawOptions &options = {}, qreal scale = 1)
{
    QImage image(CLayoutPicture::extent(data).size() * scale, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    CLayoutPicture::paint(painter, data, QRectF(image.rect()), options);
    return image;
}

/// Where two pictures differ, as a rectangle.
QRect difference(const QImage &a, const QImage &b)
{
    QRect rect;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y))
                rect |= QRect(x, y, 1, 1);
        }
    }
    return rect;
}

QRect differenceWithout(bool SLayoutDrawOptions::*part)
{
    SLayoutDrawOptions options;
    options.*part = false;
    return difference(pictureOf(wall()), pictureOf(wall(), options));
}

} // namespace

class CLayoutPictureTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void wiresAreDashedAndPointTheWayOfTheSignal()
    {
        SLayoutDrawOptions bare;
        bare.canvas = bare.numbers = bare.groups = false;
        const QImage image = pictureOf(wall(), bare);
        const int y = 99; // from the second receiver's centre to the other cabinet's, a little downward
        QVector<int> thickness;
        int gaps = 0;
        for (int x = 160; x < 390; ++x) {
            int lit = 0;
            for (int dy = -8; dy <= 8; ++dy)
                lit += qRed(image.pixel(x, y + dy)) > 200;
            thickness << lit;
            gaps += lit == 0;
        }
        QVERIFY(gaps > 40 && gaps < 160);
        // The head: thickest at its foot, a quarter of the way along, and pointing at the next cabinet.
        const int widest = *std::max_element(thickness.begin(), thickness.end());
        const int foot = 160 + thickness.indexOf(widest);
        QVERIFY2(widest >= 9, "there is no head");
        QVERIFY2(qAbs(foot - (149 + 250 / 4)) <= 2, qPrintable(QString::number(foot)));
        QVERIFY(thickness[foot - 160 + 4] >= 4);
        QVERIFY(thickness[foot - 160 - 3] <= 2);
    }

    void wiresLeaveTheLastReceiverAndReachTheFirst()
    {
        Port::Cabinet cabinet = wall().layout.ports[0].groups[1].cabinets[0];
        const QRectF place(10.5, 20, 200, 200);
        QCOMPARE(SWireAnchors::of(cabinet, place).entry, QPointF(59.5, 119));
        QCOMPARE(SWireAnchors::of(cabinet, place).exit, QPointF(159.5, 119));
        cabinet.rects = {{-5, -4, 4, 2}, {0, 0, 2, 2}}; // rounded towards zero
        QCOMPARE(SWireAnchors::of(cabinet, {0, 0, 9, 9}).entry, QPointF(-3, -3));
        cabinet.type = {};
        QCOMPARE(SWireAnchors::of(cabinet, place).exit, place.center());
        cabinet.type = SMD5::ofContent("P2");
        cabinet.rects.resize(1);
        QCOMPARE(SWireAnchors::of(cabinet, place).entry, place.center());
    }

    void eachPartOfThePictureCanBeLeftOut()
    {
        // The frame goes around both members.
        const QRect frame = differenceWithout(&SLayoutDrawOptions::groups);
        QVERIFY(frame.left() <= 1 && frame.top() <= 1 && frame.bottom() >= 198);
        QVERIFY(qAbs(frame.right() - 500) <= 2);
        const QRect wire = differenceWithout(&SLayoutDrawOptions::wires);
        QVERIFY(wire.left() > 140 && wire.right() < 410 && wire.top() > 85 && wire.bottom() < 115);
        // The third cabinet is not wired and has no number.
        const QRect numbers = differenceWithout(&SLayoutDrawOptions::numbers);
        QVERIFY(numbers.left() < 60 && numbers.right() > 310 && numbers.right() < 400 &&
                numbers.bottom() < 100);
        const QRect canvas = differenceWithout(&SLayoutDrawOptions::canvas);
        QVERIFY(canvas.left() <= 200 && canvas.right() >= 299);
    }

    void aGroupsFrameGoesAroundTheGroupsInIt()
    {
        LayoutData nested = wall();
        Port::CabinetGroup &outer = nested.layout.ports[0].groups[1];
        Port::CabinetGroup inner = outer;
        inner.uuid = QUuid::createUuid();
        inner.cabinets = {outer.cabinets.takeLast()};
        outer.groups << inner;
        const QRect between(210, 0, 80, 200);
        QCOMPARE(pictureOf(nested).copy(between), pictureOf(wall()).copy(between));
    }

    void numbersCountFromOne()
    {
        SLayoutDrawOptions options;
        options.canvas = options.wires = options.groups = options.labels = false;
        LayoutData second = wall();
        second.layout.ports[0].groups[1].cabinets[0].rank = 1;
        QImage expected(200, 200, QImage::Format_RGB32);
        SCabinetLook look;
        look.rect = QRectF(0, 0, 200, 200);
        look.fill = PortFill;
        look.number = QStringLiteral("2");
        QPainter painter(&expected);
        CLayoutPainter::paintCabinet(painter, look, 1);
        painter.end();
        const QRect corner(4, 4, 90, 90); // within the frame, and left of the receivers' border
        QCOMPARE(pictureOf(second, options).copy(corner), expected.copy(corner));
        QVERIFY(pictureOf(wall(), options).copy(corner) != expected.copy(corner));
        const QRect unwired(510, 10, 80, 80); // has no number
        SLayoutDrawOptions bare = options;
        bare.numbers = false;
        QCOMPARE(pictureOf(wall(), options).copy(unwired), pictureOf(wall(), bare).copy(unwired));
    }

    void showsCabinetsOutsideTheCanvas()
    {
        LayoutData data = wall();
        data.layout.ports[0].groups[0].cabinets[0].rect.moveTo(-50, -20);
        QVERIFY(CLayoutPicture::extent(data).contains(QPoint(-50, -20)));
        QVERIFY(CLayoutPicture::extent(data).contains(QRect({}, data.canvas)));
    }

    void aLabelTakesThePlaceOfASmallNumber()
    {
        const auto pictured = [](const char *number, const char *label) {
            QImage picture(40, 40, QImage::Format_RGB32);
            SCabinetLook look;
            look.rect = QRectF(0, 0, 40, 40);
            look.fill = PortFill;
            look.number = QLatin1String(number);
            look.label = QLatin1String(label);
            QPainter painter(&picture);
            CLayoutPainter::paintCabinet(painter, look, 1);
            return picture;
        };
        QVERIFY(pictured("2", "") != pictured("", ""));
        QCOMPARE(pictured("2", "P1"), pictured("", "P1"));
    }

    void bordersOfReceiversAreDrawn()
    {
        LayoutData plain = wall();
        plain.layout.ports[0].groups[1].cabinets[0].rects = {QRect(0, 0, 200, 200)};
        SLayoutDrawOptions options;
        options.wires = options.labels = false;
        const QRect border = difference(pictureOf(wall(), options), pictureOf(plain, options));
        QVERIFY(border.width() >= 1 && border.width() <= 2 && qAbs(border.center().x() - 100) <= 1);
        QVERIFY(border.height() > 180);
        LayoutData gap = plain;
        gap.layout.ports[0].groups[1].cabinets[0].rects = {QRect(0, 0, 90, 200), QRect(110, 0, 90, 200)};
        const QRect both = difference(pictureOf(gap, options), pictureOf(plain, options));
        QVERIFY(qAbs(both.left() - 90) <= 1 && qAbs(both.right() - 110) <= 1 && both.height() > 180);
    }

    void aPortIsNamedWhereItsChainBegins_data()
    {
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<QRect>("place"); // of the label, in pixels of the picture
        QTest::newRow("beside the number") << 1.0 << QRect(8, 8, 60, 26);
        QTest::newRow("in place of the number") << 0.2 << QRect(0, 0, 40, 20);
        QTest::newRow("in the middle of the port") << 0.04 << QRect(0, 0, 28, 8);
    }
    void aPortIsNamedWhereItsChainBegins()
    {
        QFETCH(qreal, scale);
        QFETCH(QRect, place);
        LayoutData other = wall();
        other.layout.ports[0].index = 1;
        const QRect name = difference(pictureOf(wall(), {}, scale), pictureOf(other, {}, scale));
        if (scale < 0.1) { // the port is smaller than its name
            QVERIFY(name.isEmpty());
            return;
        }
        QVERIFY(name.width() > 3 && name.height() > 3);
        other.layout.ports[0].groups[0].cabinets.clear(); // which is not wired and has the name for a number
        LayoutData wired = wall();
        wired.layout.ports[0].groups[0].cabinets.clear();
        QVERIFY(place.contains(difference(pictureOf(wired, {}, scale), pictureOf(other, {}, scale))));
    }

    void anOverloadIsTold()
    {
        QVector<QImage> pictures;
        for (const int load : {90, 100, 101, 112}) {
            LayoutData data = wall();
            data.layout.ports[0].load = load;
            pictures << pictureOf(data, {}, 0.2);
        }
        QCOMPARE(pictures[0], pictures[1]);
        QVERIFY(pictures[1] != pictures[2] && pictures[2] != pictures[3]);
        LayoutData data = wall();
        data.layout.ports[0].load = 1120;
        // By the edge, and below the name: the number stays beside it.
        QCOMPARE(pictureOf(data).pixelColor(100, 1), QColor(LayoutColors::Fault));
        const QRect within(4, 4, 192, 192);
        QVERIFY(QRect(4, 4, 80, 60)
                    .contains(difference(pictureOf(wall()).copy(within), pictureOf(data).copy(within))));
        QCOMPARE(pictureOf(wall()).copy(44, 8, 100, 26), pictureOf(data).copy(44, 8, 100, 26));
    }

    void aDotIsWhereTheChainBeginsAndARingWhereItEnds()
    {
        const QImage picture = pictureOf(wall());
        const QPoint entry(50, 100); // in the first receiver
        const QPoint exit(400, 100);
        QCOMPARE(picture.pixelColor(entry - QPoint(0, 4)), QColor(LayoutColors::Wire));
        QCOMPARE(picture.pixelColor(entry), QColor(LayoutColors::Wire));
        QVERIFY(picture.pixelColor(exit - QPoint(0, 4)).lightness() > 150);
        QCOMPARE(picture.pixelColor(exit), QColor(LayoutColors::Rim));
    }

    void aRedundancyPortIsNamedWhereItsPrimarysChainEnds()
    {
        LayoutData paired = wall();
        paired.layout.ports[0].redundancy = Port::Primary;
        paired.layout.ports[0].redundancyPort = 15;
        LayoutData elsewhere = paired;
        elsewhere.layout.ports[0].redundancyProcessor = QUuid::createUuid();
        for (const qreal scale : {1.0, 0.2}) {
            const QRect tail(int(300 * scale), int(100 * scale), int(200 * scale), int(100 * scale));
            const QRect name = difference(pictureOf(wall(), {}, scale), pictureOf(paired, {}, scale));
            QVERIFY(!name.isEmpty() && tail.contains(name));
            QVERIFY(!difference(pictureOf(paired, {}, scale), pictureOf(elsewhere, {}, scale)).isEmpty());
        }
        QCOMPARE(pictureOf(wall(), {}, 0.04), pictureOf(paired, {}, 0.04)); // no room from afar
    }

    void locksAndRedundancyAreShownAtEveryScale()
    {
        for (const qreal scale : {1.0, 0.4, 0.2}) {
            LayoutData locked = wall();
            locked.layout.ports[0].locked = true;
            const QRect lock = difference(pictureOf(wall(), {}, scale), pictureOf(locked, {}, scale));
            QVERIFY(!lock.isEmpty());
            if (scale == 0.4) // in the label of the first cabinet, which has no room beside it
                QVERIFY(QRect(0, 0, 80, 34).intersects(lock));
            if (scale < 0.4)
                QVERIFY(QRect(0, 0, 60, 20).contains(lock)); // in the label
            LayoutData redundant = wall();
            redundant.layout.ports[0].redundancy = Port::Redundant;
            const QImage picture = pictureOf(redundant, {}, scale);
            QVERIFY(picture.pixelColor(QPoint(int(40 * scale), int(160 * scale))) != PortFill); // no fill
            QVERIFY(pictureOf(wall(), {}, scale).pixelColor(QPoint(int(40 * scale), int(160 * scale))) ==
                    PortFill);
        }
    }

    void cabinetsThatAreNotWiredAreMarkedAtEveryScale()
    {
        for (const qreal scale : {1.0, 0.2, 0.04}) {
            LayoutData wired = wall();
            wired.layout.ports[0].groups[0].cabinets[0].rank = 2;
            SLayoutDrawOptions options;
            options.wires = options.numbers = false;
            const QImage picture = pictureOf(wall(), options, scale);
            int amber = 0;
            for (int x = int(500 * scale); x < picture.width(); ++x) {
                for (int y = 0; y < picture.height(); ++y) {
                    const QColor color = picture.pixelColor(x, y);
                    amber += color.red() > 220 && color.blue() < 120;
                }
            }
            QVERIFY2(amber >= 6, qPrintable(QString::number(amber)));
            QVERIFY(picture != pictureOf(wired, options, scale));
        }
    }

    void onlyRedundancyPortsLookLikeOne()
    {
        LayoutData paired = wall();
        paired.layout.ports[0].redundancy = Port::Primary;
        QCOMPARE(pictureOf(paired), pictureOf(wall()));
        paired.layout.ports[0].redundancy = Port::Redundant;
        QVERIFY(pictureOf(paired) != pictureOf(wall()));
    }

    void overlapsAndWhatLiesOutsideAreMarkedAsOnTheCanvas()
    {
        SLayoutDrawOptions options;
        options.wires = options.numbers = options.canvas = false;
        LayoutData data = wall();
        data.layout.ports[0].groups[0].cabinets[0].rank = 2;
        const QImage plain = pictureOf(data, options);
        LayoutData overlapping = data;
        overlapping.layout.ports[0].groups[1].cabinets[1].rect.moveLeft(100);
        const auto pixels = [](const QImage &image, const QRect &area, const QColor &color) {
            int count = 0;
            for (int x = area.left(); x <= area.right(); ++x) {
                for (int y = area.top(); y <= area.bottom(); ++y)
                    count += image.pixelColor(x, y) == color;
            }
            return count;
        };
        const QRect shared(100, 60, 100, 130);
        QVERIFY(pixels(pictureOf(overlapping, options), shared, LayoutColors::Fault) > 500);
        QCOMPARE(pixels(plain, shared, LayoutColors::Fault), 0);
        data.canvas = QSize(600, 200);
        const QRect beyond(600, 60, 100, 130);
        QVERIFY(pixels(pictureOf(data, options), beyond, LayoutColors::Warning) > 500);
        data.layout.ports[0].redundancy = Port::Redundant; // repeats others
        QCOMPARE(pixels(pictureOf(data, options), beyond, LayoutColors::Warning), 0);
    }

    void bordersBetweenNeighboursAreOnePixelWide()
    {
        constexpr int length = 192;
        for (int side = 10; side < 70; ++side) { // pixels; each edge lies between two of them
            QImage image(20 * side, side, QImage::Format_RGB32);
            image.fill(Qt::magenta);
            QPainter painter(&image);
            const qreal scale = qreal(side) / length;
            SCabinetLook look;
            look.fill = Qt::darkGreen;
            look.rect = QRectF(0, 0, length, 2 * length);
            for (int x = -1; x < 21; ++x) { // as the scene places its items
                painter.setWorldTransform(QTransform::fromScale(scale, scale) *
                                          QTransform::fromTranslate(0.5 - 3 * side, -0.5));
                painter.translate(length * (x + 3), 0);
                CLayoutPainter::paintCabinet(painter, look, scale);
            }
            const QRgb fill = image.pixel(side / 2, side / 2);
            int borders = 0;
            for (int x = 0; x < image.width(); ++x)
                borders += image.pixel(x, side / 2) != fill;
            QVERIFY2(borders == 20, qPrintable(QStringLiteral("%1 of %2").arg(borders).arg(side)));
        }
    }

    void ofVeryManyLayersTheUpperOnesAreDrawn()
    {
        LayoutData data;
        data.canvas = QSize(100, 100);
        data.layout.ports.resize(1);
        data.layout.ports[0].groups.resize(1);
        auto &cabinets = data.layout.ports[0].groups[0].cabinets;
        cabinets.resize(1000);
        for (int i = 0; i < cabinets.size(); ++i)
            cabinets[i].rect = QRect(0, 0, i == 0 ? 2 : 100, 100);
        QPicture commands; // what is drawn, not how long it takes
        QPainter painter(&commands);
        SLayoutDrawOptions options;
        options.labels = false;
        CLayoutPicture::paint(painter, data, QRectF(0, 0, 100, 100), options);
        painter.end();
        LayoutData few = data;
        few.layout.ports[0].groups[0].cabinets.resize(40);
        QPicture fewCommands;
        painter.begin(&fewCommands);
        CLayoutPicture::paint(painter, few, QRectF(0, 0, 100, 100), options);
        painter.end();
        QVERIFY(commands.size() <= fewCommands.size());
        QCOMPARE(pictureOf(data, options), pictureOf(few, options));
    }

    void whatIsSelectedOrHighlightedStandsOut()
    {
        QVector<QColor> middles;
        QVector<QColor> edges;
        for (const qreal side : {100.0, 6.0}) {
            for (const int state : {0, 1, 2}) {
                QImage image(100, 100, QImage::Format_RGB32);
                image.fill(Qt::black);
                SCabinetLook look;
                look.rect = QRectF(0, 0, side, side);
                look.fill = PortFill;
                look.selected = state == 1;
                look.highlighted = state == 2;
                QPainter painter(&image);
                CLayoutPainter::paintCabinet(painter, look, 1);
                middles << image.pixelColor(QPoint(int(side / 2), int(side / 2)));
                edges << image.pixelColor(QPoint(int(side) - 1, int(side / 2)));
            }
        }
        QCOMPARE(middles[0], PortFill);
        QCOMPARE(middles[1].rgb(), CPortColors::selected(PortFill).rgb());
        QCOMPARE(middles[2], PortFill); // within its frame
        QVERIFY(edges[0] == PortFill && edges[1] != middles[1] && edges[2].red() > 200);
        QVERIFY(middles[4].lightness() > PortFill.lightness() && middles[5].red() > 200);
        QVERIFY(PortFill.lightness() < middles[1].lightness());
    }

    void wireBoundsHoldWhatIsDrawn()
    {
        for (const QLineF &line : {QLineF(20, 50, 80, 50), QLineF(80, 80, 20, 30), QLineF(50, 90, 50, 10),
                                   QLineF(50, 50, 50, 50)}) {
            for (const qreal scale : {0.05, 0.25, 0.69, 1.0, 4.0}) {
                QImage image(QSize(100, 100) * scale, QImage::Format_RGB32);
                image.fill(Qt::black);
                QPainter painter(&image);
                painter.scale(scale, scale);
                CWirePainter::paint(painter, line, scale);
                const qreal pixel = scale < 1 ? 1 / scale : 0;
                const QRectF bounds = CWirePainter::bounds(line);
                painter.fillRect(bounds.adjusted(-pixel, -pixel, pixel, pixel), Qt::black);
                painter.end();
                QImage empty(image);
                empty.fill(Qt::black);
                QVERIFY(difference(image, empty).isEmpty());
            }
        }
    }

    void marksCustomDefinedCabinetsAtEveryScale()
    {
        for (const qreal scale : {1.0, 0.06, 0.04, 0.015}) {
            SLayoutDrawOptions options;
            options.canvas = options.wires = options.groups = options.labels = false;
            const QImage marked = pictureOf(wall(), options, scale);
            options.customMarks = false;
            const QRect mark = difference(marked, pictureOf(wall(), options, scale));

            QVERIFY2(mark.left() >= int(500 * scale), "a typed cabinet is marked");
            QVERIFY(mark.bottomRight() == marked.rect().bottomRight());
            QVERIFY(mark.width() <= qMax(3.0, 60 * scale));
        }
    }
};

ORVO_TEST_MAIN(QGuiApplication, CLayoutPictureTest)
#include "tst_layout_picture.moc"
