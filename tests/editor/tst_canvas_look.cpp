// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CLayoutPainter.h"
#include "layout/resources/LayoutResources.h"
#include "tests/editor/CMouseTester.h"
#include "tests/harness/CTestBase.h"

#include <QPainter>
#include <QScreen>

#include <memory>

namespace {

constexpr QPoint InPair(64, 264); // in a group of a group

/// Whether the painter leaves all pixels alone that lie farther than a pixel outside of a wire's bounds.
bool staysInBounds(const QLineF &line, qreal scale)
{
    QImage image(600, 600, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    const QRectF bounds = CLayoutPainter::wireBounds(line);
    QTransform transform;
    transform.translate(300, 300);
    transform.scale(scale, scale);
    transform.translate(-line.center().x(), -line.center().y());
    QPainter painter(&image);
    painter.setTransform(transform);
    CLayoutPainter::paintWire(painter, line, scale);
    const QRect covered = transform.mapRect(bounds).toAlignedRect().adjusted(-1, -1, 1, 1);
    painter.resetTransform();
    painter.fillRect(covered, Qt::black);
    painter.end();
    QImage black(image.size(), image.format());
    black.fill(Qt::black);
    return image == black;
}

int differentPixels(const QImage &a, const QImage &b)
{
    int different = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            different += a.pixel(x, y) != b.pixel(x, y);
    }
    return different;
}

QSet<QRgb> colorsIn(const QImage &image)
{
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            colors << image.pixel(x, y);
    }
    return colors;
}

} // namespace

class CCanvasLookTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void wiresStayInTheirBounds_data()
    {
        QTest::addColumn<QLineF>("line");
        QTest::newRow("level") << QLineF(0, 0, 64, 0);
        QTest::newRow("back") << QLineF(500, 0, 0, 0);
        QTest::newRow("upright") << QLineF(0, 0, 0, 128);
        QTest::newRow("slanted") << QLineF(0, 0, 300, -20);
        QTest::newRow("nowhere") << QLineF(5, 5, 5, 5);
    }
    void wiresStayInTheirBounds()
    {
        QFETCH(QLineF, line);
        for (const qreal scale : {0.05, 0.1, 0.25, 0.5, 0.69, 1.0})
            QVERIFY2(staysInBounds(line, scale), qPrintable(QString::number(scale)));
    }

    /// From afar a view draws lists in place of items.
    void aFrameFromAfarIsWhatTheItemsDraw_data()
    {
        QTest::addColumn<qreal>("scale"); // cabinets have 128 pixels
        QTest::newRow("items") << 0.1;
        QTest::newRow("lists with borders") << 0.07;
        QTest::newRow("lists with faint borders") << 0.04;
        QTest::newRow("lists of dots") << 0.015;
    }
    void aFrameFromAfarIsWhatTheItemsDraw()
    {
        QFETCH(qreal, scale);
        CMouseTester mouse;
        QVERIFY(QTest::qWaitForWindowExposed(&mouse.view()));
        CCabinetGraphicsScene &scene = mouse.scene();
        mouse.states().marksCustom = true;
        scene.onNotifyProcessorStateChanged();
        for (const CGraphicsPortItem *port : scene.portItems()) {
            scene.onNotifyCabinetColorChanged(port->port(), QColor::fromHsv(90 * port->port(), 200, 150));
            scene.backend().picks().port(port->port(), true);
            scene.topologyWiring(0);
        }
        scene.clearSelection();
        mouse.cabinet(0, 1).setHighlighted(true);
        mouse.cabinet(0, 2).setSelected(true);
        mouse.at(InPair)->outermost().setSelected(true);
        mouse.view().setScaleFactor(scale);

        const QImage frame = mouse.view().viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QImage items(frame.size(), frame.format());
        QPainter painter(&items);
        mouse.view().render(&painter, QRectF(), mouse.view().viewport()->rect());
        painter.end();
        QVERIFY(differentPixels(frame, items) <= 2); // where wires of several lengths meet
        QVERIFY(colorsIn(frame).size() >
                8); // canvas and border, ports, what is selected, what is highlighted
    }

    void repaintsLeaveNothingBehind_data()
    {
        QTest::addColumn<qreal>("scale");
        for (const int percent : {100, 52, 41, 33, 17, 9, 4})
            QTest::newRow(qPrintable(QString::number(percent))) << percent / 100.0;
    }
    void repaintsLeaveNothingBehind()
    {
        QFETCH(qreal, scale);
        CMouseTester mouse;
        QVERIFY(QTest::qWaitForWindowExposed(&mouse.view()));
        mouse.view().setScaleFactor(scale);
        mouse.view().centerOn(InPair);
        const auto shown = [&mouse] {
            QCoreApplication::processEvents();
            QEvent frame(QEvent::UpdateRequest);
            QCoreApplication::sendEvent(&mouse.view(), &frame); // by itself it would come with the next tick
            return mouse.view().screen()->grabWindow(mouse.view().winId()).toImage();
        };
        shown();
        for (CGraphicsItemBase *item :
             {mouse.at({64, 64}), mouse.at({192, 64}), mouse.at(InPair), mouse.at({64, 564})}) {
            for (const bool selected : {true, false}) {
                {
                    const CEditBatch batch(mouse.scene().backend().batches());
                    item->outermost().setSelected(selected);
                }
                const QImage part = shown();
                mouse.view().viewport()->update();
                const QImage whole = shown();
                QVERIFY(!part.isNull());
                QCOMPARE(differentPixels(part, whole), 0);
            }
        }
    }

    void lockedPortsAreMarkedAtAnyScale()
    {
        CMouseTester mouse;
        QVERIFY(QTest::qWaitForWindowExposed(&mouse.view()));
        const auto picture = [&mouse] { return mouse.view().viewport()->grab().toImage(); };
        for (const qreal scale : {1.0, 0.2, 0.1, 0.07}) {
            mouse.view().setScaleFactor(scale);
            mouse.view().centerOn(InPair);
            mouse.scene().setCabinetLocked(1, false);
            const QImage open = picture();
            mouse.scene().setCabinetLocked(1, true);
            QVERIFY2(picture() != open, qPrintable(QString::number(scale)));
        }
    }

    void figuresStandAtTheCursor_data()
    {
        QTest::addColumn<QPoint>("press");
        QTest::newRow("place and way of a move") << QPoint(320, 64);
        QTest::newRow("size") << QPoint(383, 127);
        QTest::newRow("how many are appended") << QPoint(450, 400);
    }
    void figuresStandAtTheCursor()
    {
        QFETCH(QPoint, press);
        CMouseTester mouse;
        QVERIFY(QTest::qWaitForWindowExposed(&mouse.view(), PatienceMilliseconds));
        mouse.showAtActualSize();
        mouse.click({320, 64});
        const QPoint cursor(500, 410); // with nothing to the right and below
        const auto picture = [&] {
            const QPoint place = mouse.view().mapFromScene(cursor) + QPoint(20, 24);
            return mouse.view().viewport()->grab(QRect(place, QSize(20, 12))).toImage();
        };
        if (!mouse.at(press))
            mouse.scene().backend().placing().beginAppend({}, 0, {40, 10});
        const QSet<QRgb> before = colorsIn(picture());
        mouse.press(press);
        mouse.moveTo(cursor);
        const QSet<QRgb> during = colorsIn(picture());
        mouse.view().cabinetScene().leaveOperation();
        QVERIFY(during.size() > 4 && before.size() <= 2); // letters; the checkerboard
        QVERIFY(colorsIn(picture()).size() <= 2);
    }

    void handlesAreShownWhereTheyWork_data()
    {
        QTest::addColumn<QPoint>("click");
        QTest::addColumn<QPoint>("corner"); // bottom right, of what is selected
        QTest::addColumn<bool>("shown");
        QTest::newRow("a cabinet") << QPoint(320, 64) << QPoint(384, 128) << true;
        QTest::newRow("a tiling group") << QPoint(64, 564) << QPoint(256, 628) << true;
        QTest::newRow("a group of two types") << QPoint(464, 564) << QPoint(656, 628) << false;
    }
    void handlesAreShownWhereTheyWork()
    {
        QFETCH(QPoint, click);
        QFETCH(QPoint, corner);
        QFETCH(bool, shown);
        CMouseTester mouse;
        QVERIFY(QTest::qWaitForWindowExposed(&mouse.view(), PatienceMilliseconds));
        mouse.showAtActualSize();
        const auto picture = [&] {
            const QPoint place = mouse.view().mapFromScene(corner);
            return mouse.view().viewport()->grab(QRect(place - QPoint(5, 5), QSize(4, 4))).toImage();
        };
        mouse.click(click);
        const QImage selected = picture();
        CCabinetGraphicsScene &scene = mouse.scene();
        scene.setToolMode(ToolMode::HeadToTailExchange, true); // the cabinet looks the same
        const QImage without = picture();
        QCOMPARE(selected != without, shown);
        scene.setToolMode(ToolMode::HeadToTailExchange, false);
        QCOMPARE(picture(), selected);
        mouse.click({64, 64}, Qt::ControlModifier); // a second item
        QCOMPARE(picture(), without);
        mouse.click({64, 64}, Qt::ControlModifier);
        QCOMPARE(picture(), selected);
        for (const int port : {0, 2})
            mouse.states().locked[port] = true; // the lock's own mark lies elsewhere
        QCOMPARE(picture(), without);
        mouse.states().locked.clear();
        QCOMPARE(mouse.stack().count(), 0);
    }
};

ORVO_TEST_MAIN(QApplication, CCanvasLookTest)
#include "tst_canvas_look.moc"
