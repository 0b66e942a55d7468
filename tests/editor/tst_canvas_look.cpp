// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CLayoutPainter.h"
#include "layout/drawing/CPortColors.h"
#include "layout/drawing/CPortEdge.h"
#include "layout/drawing/CPortLabel.h"
#include "layout/drawing/LayoutColors.h"
#include "layout/editor/items/CFarPorts.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/geometry/COutline.h"
#include "tests/editor/CMouseTest.h"

#include <QPainter>
#include <QScreen>
#include <QSignalSpy>

#include <utility>

namespace {

constexpr QPoint InPair(64, 264); // in a group of a group

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

/// Turns every second row of a wired group: long slanting dashes depend on where a repaint begins.
void alternateRows(SmallWorlds::Group &group)
{
    for (SmallWorlds::Cabinet &cabinet : group.cabinets) {
        if (cabinet.rank / 32 % 2)
            cabinet.rank += 31 - 2 * (cabinet.rank % 32);
    }
}

} // namespace

class CCanvasLookTest final : public CMouseTest
{
    Q_OBJECT

private Q_SLOTS:
    /// From afar a view draws lists in place of items.
    void portsUpToSixNumbersApartDifferInColor()
    {
        const auto distance = [](const QColor &a, const QColor &b) {
            return qAbs(a.red() - b.red()) + qAbs(a.green() - b.green()) + qAbs(a.blue() - b.blue());
        };
        for (int port = 0; port < 80; ++port) {
            const QColor color = CPortColors::fill(port);
            QCOMPARE(CPortColors::ink(color), QColor(Qt::white));
            QCOMPARE(CPortColors::ink(CPortColors::tint(color)), QColor(Qt::black));
            for (int step = 1; step <= 6; ++step)
                QVERIFY(distance(color, CPortColors::fill(port + step)) > 50);
        }
    }

    void aFrameFromAfarIsWhatTheItemsDraw()
    {
        CCabinetGraphicsScene &scene = m_mouse->scene();
        m_mouse->states().marksCustom = true;
        scene.onNotifyProcessorStateChanged();
        for (const CGraphicsPortItem *port : scene.backend().content().portItems()) {
            scene.onNotifyCabinetColorChanged(port->port(), QColor::fromHsv(90 * port->port(), 200, 150));
            scene.backend().picks().port(port->port(), true);
            scene.topologyWiring(0);
        }
        scene.clearSelection();
        m_mouse->cabinet(0, 1).setHighlighted(true);
        m_mouse->cabinet(0, 2).setSelected(true);
        m_mouse->at(InPair)->outermost().setSelected(true);
        // Of cabinets of 128 pixels: items, lists with borders, with faint ones, lists of dots; at last with
        // a port that became a redundancy port, which has no faults.
        m_mouse->cabinet(0, 0).setFaults({m_mouse->cabinet(0, 0).rect()}, {});
        for (const qreal scale : {0.1, 0.07, 0.04, 0.015, 0.07}) {
            if (view().transform().m11() < 0.02) {
                m_mouse->states().redundancy[0] = CabinetLayout::CabinetPort::Redundant;
                scene.onNotifyProcessorStateChanged();
            }
            view().setScaleFactor(scale);
            const QImage frame = view().viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
            QImage items(frame.size(), frame.format());
            QPainter painter(&items);
            view().render(&painter, QRectF(), view().viewport()->rect());
            painter.end();
            QVERIFY(differentPixels(frame, items) <= 2); // where wires of several lengths meet
            QVERIFY(colorsIn(frame).size() > 8);         // of canvas, ports, what is selected or highlighted
        }
    }

    void bordersAreEquallyWideOnEveryScreen()
    {
        LayoutData data = SmallWorlds::data({SmallWorlds::wiredPort(0, 1024)});
        data.canvas = data.bounds.size(); // no faults
        alternateRows(data.layout.ports[0].groups[0]);
        view().showLayout(SmallWorlds::node(data), data);
        for (const qreal ratio : {1.0, 1.04, 1.25, 1.5, 2.0}) {
            QImage image(700, 700, QImage::Format_RGB32);
            image.setDevicePixelRatio(ratio);
            QPainter painter(&image);
            QVERIFY(CFarPorts::drawPicture(m_mouse->scene().backend().content().portItems(), painter,
                                           QRectF(0, 0, 290, 290), data.bounds, [] {}));
            painter.end();
            const int y = int(30 * ratio); // between borders and wires
            const QRgb fill = image.pixel(int(14 * ratio), y);
            QMap<int, int> widths; // how many borders have them
            int width = 0;
            for (int x = int(14 * ratio); x < int(276 * ratio); ++x) { // of all but the first and the last
                if (image.pixel(x, y) != fill)
                    ++width;
                else if (width > 0)
                    ++widths[std::exchange(width, 0)];
            }
            QCOMPARE(widths, (QMap<int, int>{{qRound(ratio), 29}}));
        }
    }

    void repaintsLeaveNothingBehind()
    {
        for (const qreal scale : {1.0, 0.52, 0.41, 0.33, 0.17, 0.09, 0.04}) {
            view().setScaleFactor(scale);
            view().centerOn(InPair);
            shown();
            for (CGraphicsItemBase *item : {m_mouse->at({64, 64}), m_mouse->at({192, 64}),
                                            m_mouse->at(InPair), m_mouse->at({64, 564})}) {
                for (const bool selected : {true, false}) {
                    {
                        const CEditBatch batch(m_mouse->scene().backend().batches());
                        item->outermost().setSelected(selected);
                    }
                    QCOMPARE(leftBehind(), 0);
                }
            }
        }
    }

    void gesturesLeaveNothingBehind()
    {
        const QRgb guide = QColor(LayoutColors::Highlight).rgb();
        for (const QPoint &press : {QPoint(64, 64), QPoint(-30, 170)}) { // a move, a rubber band
            m_mouse->press(press);
            for (const QPoint &way : {QPoint(100, 50), QPoint(249, 121), QPoint(251, 160), QPoint(90, 40)}) {
                m_mouse->moveTo(press + way, Qt::NoModifier);
                const QImage part = shown();
                QCOMPARE(colorsIn(part).contains(guide), press.x() > 0 && way.x() > 200); // near edges
                view().viewport()->update();
                QCOMPARE(differentPixels(part, shown()), 0);
            }
            m_mouse->release(press);
            QCOMPARE(leftBehind(), 0);
        }
    }

    void aBandFromAfarRepaintsWhatItChanges()
    {
        LayoutData data =
            SmallWorlds::data({SmallWorlds::wiredPort(0, 1024), SmallWorlds::wiredPort(1, 1024)});
        data.canvas = data.bounds.size(); // no faults, which would be found later
        for (auto &port : data.layout.ports)
            alternateRows(port.groups[0]);
        view().showLayout(SmallWorlds::node(data), data);
        view().setScaleFactor(0.07);
        view().centerOn(data.bounds.center());
        shown();
        m_mouse->press({-300, -200});
        // Several strips at once, a single cabinet with handles, thousands, nothing.
        for (const QPoint &end : {QPoint(700, 700), QPoint(1400, 4700), QPoint(60, 60), QPoint(4000, 6000),
                                  QPoint(60, 60), QPoint(4300, 8300), QPoint(-100, -100)}) {
            m_mouse->moveTo(end);
            QCOMPARE(leftBehind(), 0);
        }
        m_mouse->release({-100, -100});
        QSignalSpy told(&m_mouse->scene(), &CCabinetGraphicsScene::notifySelectedChanged);
        m_mouse->press({-300, -200});
        m_mouse->moveTo({4300, 8300});
        told.clear();
        m_mouse->release({4300, 8300});
        QVERIFY(!told.isEmpty());
        m_mouse->cabinet(0, 40).setSelected(false);
        const QImage frame = view().viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QImage items(frame.size(), frame.format());
        QPainter painter(&items);
        view().render(&painter, QRectF(), view().viewport()->rect());
        painter.end();
        QCOMPARE(differentPixels(frame, items), 0);
        m_mouse->click({704, 4800});
        QCOMPARE(leftBehind(), 0);
    }

    void aGrowingBandLeavesNoFrameOfAGroup()
    {
        for (const qreal scale : {1.0, 0.41, 0.17}) {
            view().setScaleFactor(scale);
            view().centerOn(InPair);
            shown();
            m_mouse->press({700, 700}); // and towards groups whose edges are those of their ports
            for (const QPoint &end : {QPoint(650, 620), QPoint(600, 560), QPoint(240, 440), QPoint(60, 260),
                                      QPoint(240, 440), QPoint(690, 690)}) {
                m_mouse->moveTo(end);
                QCOMPARE(leftBehind(), 0);
            }
            m_mouse->release({690, 690});
        }
    }

    /// A single selected cabinet has handles.
    void aBandLeavesNoHandles()
    {
        for (const QPoint &end : {QPoint(40, 40), QPoint(200, 40)}) { // in the first cabinet, in the second
            m_mouse->press({-30, -30});
            for (const QPoint &way : {QPoint(40, 40), QPoint(200, 40), QPoint(40, 40), end}) {
                m_mouse->moveTo(way);
                QCOMPARE(leftBehind(), 0);
            }
            m_mouse->scene().leaveOperation();
            QCOMPARE(leftBehind(), 0);
            m_mouse->release(end);
        }
    }

    /// A selected cabinet has a white frame of two pixels between dark rims at any scale that has room for
    /// it.
    void theSelectionIsFramed()
    {
        CGraphicsCabinetItem &cabinet = m_mouse->cabinet(0, 2); // of 128 pixels
        const QRgb rim = QColor(LayoutColors::Rim).rgb();
        const QRgb white = QColor(LayoutColors::Selection).rgb();
        for (const qreal scale : {0.14, 0.5, 1.0, 4.0}) {
            view().setScaleFactor(scale);
            view().centerOn(cabinet.placement().center());
            cabinet.setSelected(true);
            m_mouse->cabinet(0, 1).setSelected(true); // no handles
            const QImage frame = view().viewport()->grab().toImage();
            const QPoint edge =
                view().mapFromScene(cabinet.placement().topLeft() + QPointF(0, cabinet.rect().height() / 4));
            QVector<QRgb> line;
            for (int x = 0; x < 4; ++x)
                line << (frame.pixel(edge + QPoint(x, 0)) | 0xff000000);
            QCOMPARE(line, (QVector<QRgb>{rim, white, white, rim}));
            m_mouse->scene().clearSelection();
        }
    }

    void portsHaveAnEdge()
    {
        const auto colorAt = [this](int x, int y) {
            const QImage frame = view().viewport()->grab().toImage();
            return frame.pixel(view().mapFromScene(QPointF(x, y))) | 0xff000000;
        };
        const QColor fill = m_mouse->scene().backend().content().portItem(0)->fill();
        const QRgb tint = CPortColors::blended(fill, CPortColors::tint(fill), 0.7).rgb();
        const QRgb red = QColor(LayoutColors::Fault).rgb();
        for (const QPoint &place : {QPoint(100, 1), QPoint(100, 127), QPoint(1, 100), QPoint(383, 100)})
            QCOMPARE(colorAt(place.x(), place.y()), tint);
        QVERIFY(colorAt(127, 100) != tint && colorAt(129, 100) != tint); // between cabinets
        m_mouse->scene().setPortLoad(0, 101);
        QCOMPARE(leftBehind(), 0);
        QCOMPARE(colorAt(100, 1), red);
        QCOMPARE(colorAt(100, 3), QColor(LayoutColors::Rim).rgb());
        m_mouse->click({64, 64});
        QCOMPARE(colorAt(100, 1), QColor(LayoutColors::Selection).rgb());
        QCOMPARE(colorAt(200, 1), red);
        QCOMPARE(leftBehind(), 0);
        m_mouse->click({192, 64});
        QCOMPARE(colorAt(100, 1), red);
        QVERIFY(colorAt(200, 1) != red && colorAt(126, 20) != red);
        m_mouse->drag({192, 64}, {0, 40});
        QCOMPARE(colorAt(126, 20), red); // a side that has become free
        const auto lengthAround = [](const QVector<QRectF> &rects) {
            qreal length = 0;
            for (const COutline::SPiece &piece : COutline::of(rects))
                length += piece.to - piece.from;
            return length;
        };
        const QRectF square(0, 0, 100, 100);
        const QRectF beside = square.translated(100, 30);
        QCOMPARE(lengthAround({square, beside, square.translated(300, 0)}), 3 * 400.0 - 2 * 70);
        QCOMPARE(lengthAround({QRectF(0, 100, 300, 20), square, square.translated(200, 0)}),
                 640 + 800 - 400.0);
    }

    /// Cabinets apart from each other have so much edge that it would cover them from afar.
    void onlyFewPiecesOfAnEdgeAreDrawnFromAfar()
    {
        const auto isDrawn = [](int cabinets, qreal scale) {
            QVector<QRectF> apart;
            for (int i = 0; i < cabinets; ++i)
                apart << QRectF(200 * (i % 20), 200 * (i / 20), 100, 100);
            SPortLook look;
            look.fill = Qt::blue;
            look.bounds = QRectF(0, 0, 4000, 4000);
            QImage image(300, 300, QImage::Format_RGB32);
            image.fill(Qt::black);
            QPainter painter(&image);
            painter.scale(scale, scale);
            CPortEdge::paint(painter, CPortEdge::of(apart), look, 100, scale, look.bounds);
            return colorsIn(image).size() > 1;
        };
        QVERIFY(isDrawn(256, 0.09));
        QVERIFY(!isDrawn(257, 0.09));
        QVERIFY(isDrawn(257, 0.11));
    }

    void overlapsDifferFromTheOutsideInShape()
    {
        SCabinetLook look;
        look.rect = QRectF(0, 0, 60, 60);
        look.fill = Qt::blue;
        const auto picture = [&look](int ratio = 1) {
            QImage image(60 * ratio, 60 * ratio, QImage::Format_RGB32);
            image.setDevicePixelRatio(ratio);
            QPainter painter(&image);
            CLayoutPainter::paintCabinet(painter, look, 1);
            return image;
        };
        look.outside = {look.rect};
        const QImage outside = picture();
        look.outside.clear();
        look.overlaps = {look.rect};
        const QImage overlap = picture();
        int bright = 0;
        for (int x = 20; x < 40; ++x) // the sides of the plate are dark, the foot of the triangle is not
            bright += qRed(overlap.pixel(x, 35)) > 200;
        QVERIFY(bright > 8 && qRed(overlap.pixel(18, 20)) < 50);
        QVERIFY(qRed(overlap.pixel(9, 9)) != qRed(outside.pixel(9, 9))); // stripes the other way
        const QImage fine = picture(2);
        int edges = 0; // that go through a pixel
        int other = 0; // than on a usual screen
        for (int x = 3; x < 57; ++x) {
            const int left = qRed(fine.pixel(2 * x, 12));
            const int right = qRed(fine.pixel(2 * x + 1, 12));
            edges += std::abs(left - right) > 20;
            other += std::abs((left + right) / 2 - qRed(overlap.pixel(x, 6))) > 80;
        }
        QVERIFY(edges > 5);
        QCOMPARE(other, 0);
    }

    void crowdedFramesAreDrawnSimply()
    {
        LayoutData data = SmallWorlds::data({SmallWorlds::wiredPort(0, 1000), SmallWorlds::wiredPort(1, 1)});
        for (auto &cabinet : data.layout.ports[0].groups[0].cabinets)
            cabinet.rect = QRect(0, 0, 2000, 2000);
        data.layout.ports[1].groups[0].cabinets[0].rect = QRect(100, 100, 200, 200);
        m_mouse->states().colors[1] = Qt::red;
        view().showLayout(SmallWorlds::node(data), data);
        view().setScaleFactor(1);
        view().centerOn(200, 200);
        const QVector<CGraphicsPortItem *> &ports = m_mouse->scene().backend().content().portItems();
        const QVector<QRectF> exposed = {QRectF(0, 0, 400, 400)};
        QVERIFY(CFarPorts::isCrowded(ports, exposed));
        QVERIFY(!CFarPorts::isCrowded({ports.at(1)}, exposed));
        const QImage frame = view().viewport()->grab().toImage();
        QCOMPARE(frame.pixelColor(view().mapFromScene(QPointF(250, 250))), QColor(Qt::red)); // what is on top
        QCOMPARE(frame.pixelColor(view().mapFromScene(QPointF(350, 350))), QColor(Qt::darkCyan));
    }

    void lockedPortsAreMarkedAtAnyScale()
    {
        for (const qreal scale : {1.0, 0.2, 0.1, 0.07}) {
            view().setScaleFactor(scale);
            view().centerOn(InPair);
            m_mouse->scene().setCabinetLocked(1, false);
            const QImage open = view().viewport()->grab().toImage();
            m_mouse->scene().setCabinetLocked(1, true);
            QVERIFY2(view().viewport()->grab().toImage() != open, qPrintable(QString::number(scale)));
        }
    }

    void figuresStandAtTheCursor()
    {
        m_mouse->click({320, 64});
        QPoint cursor(500, 410); // with nothing to the right and below
        const auto colors = [&] {
            const QPoint place = view().mapFromScene(cursor) + QPoint(20, 24);
            return colorsIn(view().viewport()->grab(QRect(place, QSize(20, 12))).toImage()).size();
        };
        // Place and way of a move, size, how many are appended.
        for (const QPoint &press : {QPoint(320, 64), QPoint(383, 127), QPoint(450, 400)}) {
            if (!m_mouse->at(press))
                m_mouse->scene().backend().placing().beginAppend({}, 0, {40, 10});
            QVERIFY(colors() <= 2); // the checkerboard
            m_mouse->press(press);
            m_mouse->moveTo(cursor);
            QVERIFY(colors() > 4); // letters
            m_mouse->scene().leaveOperation();
            QVERIFY(colors() <= 2);
            m_mouse->release(cursor);
        }
        QCursor::setPos(view().mapToGlobal({-50, -50})); // by keys: in the middle of what is appended
        m_mouse->scene().backend().placing().beginAppend({}, 0, {40, 10});
        cursor = m_mouse->scene().backend().placing().block().topRight() + QPoint(1, 5);
        QVERIFY(colors() <= 2);
        QTest::keyClick(&view(), Qt::Key_Right, Qt::ShiftModifier);
        QVERIFY(colors() > 4);
    }

    void handlesAreShownWhereTheyWork()
    {
        struct SCase
        {
            QPoint click;
            QPoint corner; // bottom right, of what is selected
            bool shown;
        };
        const SCase cases[] = {{{320, 64}, {384, 128}, true},
                               {{64, 564}, {256, 628}, true},   // a group that tiles
                               {{464, 564}, {656, 628}, false}, // a group of two types
                               {InPair, {256, 456}, false}};    // an L
        for (const SCase &one : cases) {
            const auto picture = [&] {
                const QPoint place = view().mapFromScene(one.corner);
                return view().viewport()->grab(QRect(place - QPoint(5, 5), QSize(4, 4))).toImage();
            };
            m_mouse->click(one.click);
            const QImage selected = picture();
            m_mouse->scene().backend().setToolMode(ToolMode::HeadToTailExchange,
                                                   true); // looks the same otherwise
            const QImage without = picture();
            QCOMPARE(selected != without, one.shown);
            m_mouse->scene().backend().setToolMode(ToolMode::HeadToTailExchange, false);
            QCOMPARE(picture(), selected);
            m_mouse->click({64, 64}, Qt::ControlModifier); // a second item
            QCOMPARE(picture(), without);
            m_mouse->click({64, 64}, Qt::ControlModifier);
            for (const int port : {0, 2})
                m_mouse->states().locked[port] = true; // the lock's own mark lies elsewhere
            QCOMPARE(picture(), without);
            m_mouse->states().locked.clear();
            const QSizeF before = m_mouse->at(one.click)->outermost().rect().size();
            const QSizeF step = one.shown ? QSizeF(64, 32) : QSizeF(0, 0);
            m_mouse->drag(one.corner - QPoint(2, 2), {64, 32});
            QCOMPARE(m_mouse->stack().undoText(),
                     one.shown ? QStringLiteral("Scale") : QStringLiteral("Move"));
            QCOMPARE(m_mouse->scene().selection().sorted().first()->rect().size(), before + step);
            m_mouse->scene().undo(nullptr);
        }
    }

private:
    /// The number of pixels that another picture of the whole view changes.
    int leftBehind()
    {
        const QImage part = shown();
        view().viewport()->update();
        return part.isNull() ? -1 : differentPixels(part, shown());
    }

    CLayoutGraphicsView &view() { return m_mouse->view(); }

    /// What is on screen once everything that was asked for is painted.
    QImage shown()
    {
        m_mouse->scene()
            .backend()
            .faults()
            .finish(); // on a busy machine its turns would come between two pictures
        QCoreApplication::processEvents();
        QEvent frame(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&view(), &frame); // by itself it would come with the next tick
        return view().screen()->grabWindow(view().winId()).toImage();
    }
};

ORVO_TEST_MAIN(QApplication, CCanvasLookTest)
#include "tst_canvas_look.moc"
