// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CEdgeSnap.h"
#include "layout/resources/LayoutResources.h"
#include "layout/summary/CGraphicsProcessorItem.h"
#include "layout/summary/CSummaryGraphicsView.h"
#include "layout/summary/CSummaryLabel.h"
#include "platform/graphics/CGraphicsScene.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QLineEdit>
#include <QSpinBox>

#include <functional>
#include <limits>

namespace {

/// Two processors side by side with a gap, and one that is offline below them; a screen pixel is one of the
/// canvas.
struct SViewWorld
{
    SViewWorld()
    {
        view.resize(700, 600);
        view.show();
        view.setProcessors({a, b, off});
        view.setScaleFactor(1);
        moved.clear();
    }

    CGraphicsProcessorItem &item(const SSummaryProcessor &processor) const
    {
        for (QGraphicsItem *item : view.scene()->items()) {
            if (item->data(CGraphicsProcessorItem::KeyRole).toUuid() == processor.uuid)
                return *dynamic_cast<CGraphicsProcessorItem *>(item);
        }
        qFatal("There is no such item");
    }
    QPoint middleOf(const SSummaryProcessor &processor) const
    {
        return view.mapFromScene(item(processor).sceneBoundingRect().center());
    }
    void click(const SSummaryProcessor &processor, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, middleOf(processor));
    }
    void press(const SSummaryProcessor &processor)
    {
        pressed = middleOf(processor);
        QTest::mousePress(view.viewport(), Qt::LeftButton, {}, pressed);
    }
    void moveBy(const QPoint &way, Qt::KeyboardModifiers modifiers = {})
    {
        QMouseEvent move(QEvent::MouseMove, pressed + way, view.viewport()->mapToGlobal(pressed + way),
                         Qt::NoButton, Qt::LeftButton, modifiers);
        QApplication::sendEvent(view.viewport(), &move);
    }
    void release(const QPoint &way, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, modifiers, pressed + way);
    }
    void drag(const SSummaryProcessor &processor, const QPoint &way, Qt::KeyboardModifiers modifiers = {})
    {
        press(processor);
        moveBy(way, modifiers);
        release(way, modifiers);
    }
    QStringList selected() const
    {
        QStringList texts;
        for (const SSummaryProcessor &processor : view.selection())
            texts << processor.text.left(1);
        return texts;
    }
    QPoint offsetOf(const SSummaryProcessor &processor) const { return view.offsets().value(processor.uuid); }

    const SSummaryProcessor a{QUuid::createUuid(), QStringLiteral("A(10.0.0.1)"), {200, 100}, {0, 0}, true};
    const SSummaryProcessor b{QUuid::createUuid(), QStringLiteral("B(10.0.0.2)"), {100, 150}, {260, 0}, true};
    const SSummaryProcessor off{
        QUuid::createUuid(), QStringLiteral("Off(10.0.0.3)"), {120, 80}, {0, 200}, false};
    CSummaryGraphicsView view;
    QSignalSpy moved{&view, &CSummaryGraphicsView::notifyMoved};
    QPoint pressed;
};

} // namespace

class CSummaryViewTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        initLayoutResources();
        qRegisterMetaType<ProcessorOffsets>("ProcessorOffsets");
    }

    void aProcessorIsAnItemOfItsAreaAtItsOffset()
    {
        SViewWorld world;
        const CGraphicsProcessorItem &b = world.item(world.b);
        QCOMPARE(b.data(0).toUuid(), world.b.uuid);
        QCOMPARE(b.rect(), QRectF(0, 0, 100, 150));
        QCOMPARE(b.pos(), QPointF(260, 0));
        QCOMPARE(b.toolTip(), world.b.text);
        QCOMPARE(b.data(2).toRect(), QRect(0, 0, 100, 150));
        QCOMPARE(b.flags(), QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable |
                                QGraphicsItem::ItemSendsScenePositionChanges);
        QVERIFY(b.pen().isCosmetic() && b.pen().width() == 0);
        QVERIFY(world.view.sceneRect().contains(QRectF(0, 0, 360, 280)));
        QCOMPARE(world.selected(), QStringList{QStringLiteral("A")});

        CGraphicsProcessorItem &item = world.item(world.a);
        const QSignalSpy geometry(&item, &CGraphicsProcessorItem::geometryChanged);
        const QSignalSpy offset(&item, &CGraphicsProcessorItem::offsetChanged);
        const QSignalSpy viewGeometry(&world.view, &CSummaryGraphicsView::itemGeometryChanged);
        const QSignalSpy viewOffset(&world.view, &CSummaryGraphicsView::itemOffsetChanged);
        item.setPos(30, -40);
        for (const QSignalSpy *spy : {&geometry, &viewGeometry})
            QCOMPARE(spy->last().first().toRectF(), QRectF(30, -40, 200, 100));
        for (const QSignalSpy *spy : {&offset, &viewOffset})
            QCOMPARE(spy->last().first().toPoint(), QPoint(30, -40));
        QVERIFY(viewGeometry.count() == 1 && viewOffset.count() == 1);
        world.item(world.b).setPos(300, 0); // not selected
        QVERIFY(viewGeometry.count() == 1 && viewOffset.count() == 1);
    }

    void clicksSelect()
    {
        SViewWorld world;
        const QSignalSpy selection(&world.view, &CSummaryGraphicsView::selectionChanged);
        world.click(world.b);
        QCOMPARE(selection.count(), 1);
        QCOMPARE(selection.last().first().toUuid(), world.b.uuid);
        world.click(world.off, Qt::ControlModifier);
        QCOMPARE(world.selected(), (QStringList{QStringLiteral("B"), QStringLiteral("O")}));
        world.click(world.off); // out of both
        QCOMPARE(world.selected(), QStringList{QStringLiteral("O")});
        world.click(world.off, Qt::ControlModifier);
        QCOMPARE(selection.last().first().toUuid(), QUuid());
        QTest::keyClick(&world.view, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(world.selected().size(), 3);
        QCOMPARE(world.moved.count(), 0);
    }

    void edgesCatchWithinReach()
    {
        const QVector<QRect> neighbours = {QRect(0, 0, 100, 100), QRect(200, 1000, 10, 10)};
        const QVector<std::tuple<QPoint, int, QPoint>> rows{
            // the corner, the reach, the corner then
            {{104, 500}, 5, {100, 500}}, {{-47, 500}, 5, {-50, 500}}, {{-5, 500}, 5, {0, 500}},
            {{48, 500}, 5, {50, 500}},   {{500, 103}, 5, {500, 100}}, {{500, -44}, 5, {500, -40}},
            {{98, 63}, 5, {100, 60}},    {{105, 500}, 5, {100, 500}}, {{106, 500}, 5, {106, 500}},
            {{207, 500}, 9, {210, 500}}, {{101, 500}, 0, {101, 500}}}; // the nearer of two, no reach
        for (const auto &[corner, reach, then] : rows)
            QCOMPARE(CEdgeSnap::snapped({corner, QSize(50, 40)}, neighbours, reach),
                     QRect(then, QSize(50, 40)));
    }

    void aDragCatchesAtEdges()
    {
        const QVector<std::tuple<QPoint, Qt::KeyboardModifier, qreal, QPoint>> rows{
            {{-53, 30}, Qt::NoModifier, 1.0, {200, 30}},
            {{-40, 30}, Qt::NoModifier, 1.0, {220, 30}}, // beyond reach
            {{-53, 30}, Qt::AltModifier, 1.0, {207, 30}},
            {{-21, 60}, Qt::NoModifier, 0.5, {200, 130}}, // from afar it reaches further
            {{-106, 60}, Qt::NoModifier, 2.0, {207, 30}}};
        for (const auto &[way, modifier, scale, expected] : rows) {
            SViewWorld world;
            world.view.setScaleFactor(scale);
            world.drag(world.b, way, modifier);
            QCOMPARE(world.offsetOf(world.b), expected);
            QCOMPARE(world.item(world.b).offset(), expected);
            QCOMPARE(world.moved.count(), 1);
            QCOMPARE(world.moved.first().at(0).value<ProcessorOffsets>(),
                     (ProcessorOffsets{{world.b.uuid, world.b.offset}}));
            QCOMPARE(world.moved.first().at(1).value<ProcessorOffsets>(),
                     (ProcessorOffsets{{world.b.uuid, expected}}));
        }
    }

    void severalMoveTogetherAndThoseOfflineStay()
    {
        SViewWorld world;
        QTest::keyClick(&world.view, Qt::Key_A, Qt::ControlModifier);
        world.drag(world.a, {60, 400}, Qt::AltModifier);
        QCOMPARE(world.offsetOf(world.a), QPoint(60, 400));
        QCOMPARE(world.offsetOf(world.b), QPoint(320, 400));
        QCOMPARE(world.offsetOf(world.off), QPoint(0, 200));
        QCOMPARE(world.moved.count(), 1);
    }

    void whatCannotBeMovedIsNot()
    {
        SViewWorld world;
        world.drag(world.off, {100, 100});
        QTest::keyClick(&world.view, Qt::Key_Right);
        QVERIFY(!world.view.canMove());
        world.view.setEditingBlocked(true);
        world.drag(world.a, {100, 100});
        QTest::keyClick(&world.view, Qt::Key_Right);
        QVERIFY(!world.view.canMove());
        world.view.onItemOffsetChanged({5, 5});
        QCOMPARE(world.moved.count(), 0);
        QCOMPARE(world.offsetOf(world.a), QPoint(0, 0));
        world.view.setEditingBlocked(false);
        QVERIFY(world.view.canMove());
    }

    void aDragIsGivenUp()
    {
        using View = CSummaryGraphicsView;
        const std::function<void(View &)> ways[] = {
            [](View &view) { QTest::keyClick(&view, Qt::Key_Escape); },
            [](View &view) {
                view.setOffsets({{view.selection().first().uuid, {260, 0}}});
            },
            [](View &view) { view.setEditingBlocked(true); },
            [](View &view) {
                QFocusEvent out(QEvent::FocusOut);
                QApplication::sendEvent(&view, &out);
            }};
        for (const auto &giveUp : ways) {
            SViewWorld world;
            world.press(world.b);
            world.moveBy({50, 50});
            QCOMPARE(world.item(world.b).offset(), QPoint(310, 50));
            QCOMPARE(world.offsetOf(world.b), QPoint(260, 0)); // not before it ends
            giveUp(world.view);
            world.moveBy({70, 70});
            world.release({70, 70});
            QCOMPARE(world.item(world.b).offset(), QPoint(260, 0));
            QCOMPARE(world.moved.count(), 0);
        }
    }

    void arrowKeysMoveOnceForEachPress()
    {
        SViewWorld world;
        QTest::keyClick(&world.view, Qt::Key_Right);
        QTest::keyClick(&world.view, Qt::Key_Right, Qt::ControlModifier); // stands for something else
        QCOMPARE(world.offsetOf(world.a), QPoint(1, 0));
        QTest::keyClick(&world.view, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(world.offsetOf(world.a), QPoint(1, 10));
        QVERIFY(world.view.accessibleDescription().endsWith(QStringLiteral("X 1, Y 10")));
        QTest::keyPress(&world.view, Qt::Key_Left); // held
        QTest::keyPress(&world.view, Qt::Key_Left);
        QTest::keyPress(&world.view, Qt::Key_Up);
        QCOMPARE(world.moved.count(), 2);
        QTest::keyRelease(&world.view, Qt::Key_Up);
        QCOMPARE(world.moved.count(), 3);
        QCOMPARE(world.offsetOf(world.a), QPoint(-1, 9));
    }

    void tabGoesFromProcessorToProcessorAndOn()
    {
        QWidget window;
        auto *world = new SViewWorld;
        const std::unique_ptr<SViewWorld> owner(world);
        QLineEdit after(&window);
        world->view.setParent(&window);
        QWidget::setTabOrder(&world->view, &after);
        window.show();
        QApplication::setActiveWindow(&window);
        world->view.show();
        world->view.setFocus();
        QTRY_VERIFY(world->view.hasFocus());
        QStringList order{world->selected()};
        for (int i = 0; i < 2; ++i) {
            QTest::keyClick(&world->view, Qt::Key_Tab);
            order << world->selected();
        }
        QCOMPARE(order.join(QString()), QStringLiteral("ABO"));
        QVERIFY(world->view.accessibleDescription().contains(
            QStringLiteral("Off(10.0.0.3), 120 by 80 pixels at X 0, Y 200, offline")));
        QTest::keyClick(&world->view, Qt::Key_Tab);
        QVERIFY(after.hasFocus());
        world->view.setFocus();
        QTest::keyClick(&world->view, Qt::Key_Backtab);
        QCOMPARE(world->selected(), QStringList{QStringLiteral("B")});
        world->view.setParent(nullptr);
    }

    void newsKeepSelectionAndZoomOthersDoNot()
    {
        SViewWorld world;
        world.click(world.b);
        const qreal scale = world.view.scaleFactor();
        SSummaryProcessor renamed = world.b;
        renamed.text = QStringLiteral("Beta(10.0.0.2)");
        renamed.area = {300, 10};
        renamed.offset = {-7, 8};
        world.view.setProcessors({world.a, renamed, world.off});
        QCOMPARE(world.item(world.b).text(), renamed.text);
        QCOMPARE(world.item(world.b).place(), QRect(-7, 8, 300, 10));
        QCOMPARE(world.selected(), QStringList{QStringLiteral("B")});
        QCOMPARE(world.view.scaleFactor(), scale);
        world.view.setProcessors({world.a, world.off});
        QCOMPARE(world.selected(), QStringList{QStringLiteral("A")});
        QVERIFY(world.view.isFitted());
        world.press(world.a);
        world.moveBy({50, 50});
        world.view.setProcessors({world.a, world.off}); // nothing new
        world.release({50, 50});
        QCOMPARE(world.moved.count(), 1);
        world.view.setProcessors({});
        QVERIFY(world.selected().isEmpty());
    }

    void theViewPlacesTheSelectedItem()
    {
        SViewWorld world;
        world.view.onItemOffsetChanged({-20, 1500});
        QCOMPARE(world.item(world.a).pos(), QPointF(-20, 1500));
        QCOMPARE(world.moved.count(), 1);
        const int largest = std::numeric_limits<int>::max();
        world.view.onItemOffsetChanged({largest, -largest});
        QCOMPARE(world.offsetOf(world.a), QPoint(1 << 20, -(1 << 20)));
        QTest::keyClick(&world.view, Qt::Key_Right);
        QCOMPARE(world.offsetOf(world.a), QPoint(1 << 20, -(1 << 20)));
    }

    void textsKeepTheirSizeOnTheScreen()
    {
        SViewWorld world;
        const auto lightRows = [&world](qreal scale) {
            world.view.setScaleFactor(scale);
            world.view.centerOn(&world.item(world.a));
            const QImage image = world.view.viewport()->grab().toImage();
            const QPoint middle = world.middleOf(world.a);
            int rows = 0;
            for (int y = middle.y() - 20; y < middle.y() + 20; ++y) {
                bool light = false;
                for (int x = middle.x() - 25; x < middle.x() + 25; ++x)
                    light = light || image.pixelColor(x, y).lightness() > 180;
                rows += light;
            }
            return rows;
        };
        const int rows = lightRows(1);
        QVERIFY2(rows >= 8 && rows <= 16, qPrintable(QString::number(rows)));
        QCOMPARE(lightRows(0.5), rows);
        QCOMPARE(lightRows(3), rows);
    }

    void textsKeepClearOfItemsAbove()
    {
        SViewWorld world;
        world.click(world.b);
        const auto lightColumns = [&world](int left, int right) {
            const QImage image = world.view.viewport()->grab().toImage();
            int columns = 0;
            for (int x = left; x < right; ++x) {
                bool light = false;
                for (int y = 5; y < 95; ++y)
                    light = light || image.pixelColor(world.view.mapFromScene(x, y)).lightness() > 180;
                columns += light;
            }
            return columns;
        };
        const int whole = lightColumns(5, 195);
        QVERIFY(whole > 40);
        world.view.onItemOffsetChanged({110, -20});
        QCOMPARE(lightColumns(5, 100), whole); // all of it, beside the upper one
        world.view.onItemOffsetChanged({60, -20});
        const int elided = lightColumns(5, 55);
        QVERIFY(elided > 5 && elided < whole);
        world.view.onItemOffsetChanged({10, -20});
        QCOMPARE(lightColumns(0, 8), 0); // no room there, but on the other side
        QVERIFY(lightColumns(115, 195) > 40);
    }

    void theLabelShowsAndTakesFigures()
    {
        CSummaryLabel label;
        label.show();
        auto &x = *named<QSpinBox>(label, "Offset, X");
        auto &y = *named<QSpinBox>(label, "Offset, Y");
        const auto &width = *named<QSpinBox>(label, "Processor area, Width");
        const auto &height = *named<QSpinBox>(label, "Processor area, Height");
        QVERIFY(!x.isEnabled() && !y.isEnabled());
        QVERIFY(width.isReadOnly() && height.isReadOnly());
        const int largest = std::numeric_limits<int>::max();
        for (const QSpinBox *field : {&std::as_const(x), &std::as_const(y), &width, &height}) {
            const bool isOffset = field == &x || field == &y;
            QCOMPARE(field->minimum(), isOffset ? -largest : 0);
            QCOMPARE(field->maximum(), largest);
            QCOMPARE(field->value(), 0);
            QCOMPARE(field->size().width(), 100);
        }
        label.setSubject(QStringLiteral("A"), {});
        label.setEditable(true);
        label.onItemGeometryChanged(QRectF(5, 6, 1920, 1080));
        label.onItemOffsetChanged({5, 6000});
        QCOMPARE(width.value(), 1920);
        QCOMPARE(height.value(), 1080);
        const QSignalSpy changed(&label, &CSummaryLabel::notifyItemOffsetChanged);
        const auto type = [](QSpinBox &field, const char *text) {
            field.setFocus();
            field.selectAll();
            QTest::keyClicks(&field, QString::fromLatin1(text));
        };
        type(x, "3840/2");
        label.onItemOffsetChanged({5, 6000}); // no news
        QCOMPARE(x.text(), QStringLiteral("3840/2"));
        QCOMPARE(changed.count(), 0);
        QTest::keyClick(&x, Qt::Key_Return);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.last().first().toPoint(), QPoint(1920, 6000));
        type(y, "-7");
        QTest::keyClick(&y, Qt::Key_Escape);
        QCOMPARE(y.text(), QStringLiteral("6000"));
        QTest::keyClick(&y, Qt::Key_Tab);
        QCOMPARE(changed.count(), 1);
        label.setSubject({}, {});
        QCOMPARE(y.value() + height.value(), 0);
        QCOMPARE(changed.count(), 1);
    }
};

ORVO_TEST_MAIN(QApplication, CSummaryViewTest)
#include "tst_summary_view.moc"
