// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/gestures/CItemDrag.h"
#include "layout/geometry/CResizeHandles.h"
#include "tests/editor/CMouseTest.h"

namespace {

constexpr QPoint InEmpty(300, 170);
constexpr QPoint InPair(64, 264);

} // namespace

class CMouseRulesTest final : public CMouseTest
{
    Q_OBJECT

private Q_SLOTS:
    void clicksSelect()
    {
        CGraphicsItemBase *member = m_mouse->at(InPair);
        CGraphicsItemBase *outer = &member->outermost();
        m_mouse->click({64, 64});
        QCOMPARE(m_mouse->selected(), loose({0}));
        m_mouse->click(InPair);
        QCOMPARE(m_mouse->selected(), Items{outer});
        m_mouse->click({192, 64}, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected(), loose({1}) + Items{outer});
        m_mouse->click({192, 390}, Qt::ControlModifier); // another member of the same outermost group
        QCOMPARE(m_mouse->selected(), loose({1}));
        m_mouse->doubleClick(InPair);
        QCOMPARE(m_mouse->selected(), Items{member});
        m_mouse->click(InPair, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected(), Items());
        m_mouse->doubleClick(InPair);
        m_mouse->click({192, 264}); // its neighbour
        QCOMPARE(m_mouse->selected(), Items{outer});
        m_mouse->doubleClick({192, 64}, Qt::ControlModifier); // takes in and out
        QCOMPARE(m_mouse->selected(), Items{outer});
        m_mouse->click({64, 64}, Qt::ControlModifier);
        m_mouse->click({64, 64}); // one of several selected
        QCOMPARE(m_mouse->selected(), loose({0}));
        m_mouse->click(InEmpty, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected(), loose({0}));
        m_mouse->click(InEmpty);
        QCOMPARE(m_mouse->selected(), Items());
        QCOMPARE(m_mouse->stack().count(), 0);
    }

    void theRightButtonSelectsOnly()
    {
        m_mouse->pressRight({64, 64});
        QCOMPARE(m_mouse->selected(), loose({0}));
        m_mouse->click({192, 64}, Qt::ControlModifier);
        m_mouse->pressRight({192, 64}); // what is selected stays so
        QCOMPARE(m_mouse->selected(), loose({0, 1}));
        m_mouse->pressRight({320, 64}, false, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected(), Items());
        m_mouse->pressRight({320, 64});
        m_mouse->moveTo({350, 90});
        QVERIFY(m_mouse->isUntouched());
    }

    void aBandSelectsWholeGroups()
    {
        CGraphicsItemBase *outer = &m_mouse->at(InPair)->outermost();
        m_mouse->click({192, 64});
        m_mouse->press({-30, 170});
        m_mouse->moveTo({40, 240});
        QCOMPARE(m_mouse->selected(), Items{outer});
        m_mouse->moveTo({40, 100}); // the group is left, a loose cabinet is entered
        QCOMPARE(m_mouse->selected(), loose({0}));
        m_mouse->moveTo({-10, 180});
        QCOMPARE(m_mouse->selected(), Items());
        m_mouse->moveTo({300, 100});
        m_mouse->release({300, 100});
        QCOMPARE(m_mouse->selected(), loose({0, 1, 2}));
        QVERIFY(!m_mouse->scene().backend().mouse()->hasRubberBand());
    }

    void aBandAddsToWhatWasSelected()
    {
        CGraphicsItemBase *member = m_mouse->at(InPair);
        m_mouse->doubleClick(InPair);
        m_mouse->cabinet(0, 2).setSelected(true);
        const Items before = m_mouse->selected();
        for (const Qt::KeyboardModifier key : {Qt::ControlModifier, Qt::ShiftModifier}) {
            m_mouse->press(QPoint(-30, 480), key);
            QCOMPARE(m_mouse->selected(), before);
            m_mouse->moveTo({40, 210});
            QCOMPARE(m_mouse->selected(), loose({2}) + Items{&member->outermost()});
            m_mouse->moveTo({-20, 470}); // the member that gave way to its group is selected again
            QCOMPARE(m_mouse->selected(), before);
            m_mouse->moveTo({400, 600});
            QVERIFY(m_mouse->selected() != before);
            m_mouse->scene().leaveOperation(); // Escape
            QCOMPARE(m_mouse->selected(), before);
            m_mouse->release({400, 600});
            QCOMPARE(m_mouse->selected(), before);
        }
    }

    void aDragIsOneStep()
    {
        m_mouse->drag({64, 64}, {41, -30}); // not selected before
        QCOMPARE(m_mouse->selected(), loose({0}));
        QCOMPARE(placeOf(0), QPoint(41, -30));
        QCOMPARE(m_mouse->stack().count(), 1);
        m_mouse->scene().undo(nullptr);
        QVERIFY(m_mouse->layout() == m_mouse->original());

        m_mouse->drag(InPair, {100, 0}); // a member takes its whole group along
        for (int place = 0; place < 3; ++place)
            QCOMPARE(m_mouse->layout().ports[1].getAllCabinets()[place].rect,
                     m_mouse->original().ports[1].getAllCabinets()[place].rect.translated(100, 0));
    }

    void aClickWithThePenWiresOneCabinet()
    {
        const auto wired = [this] {
            return m_mouse->scene().backend().content().portItem(0)->chain().order().size();
        };
        m_mouse->view().toolBar().chooseMode(CEditorToolBar::Pen);
        m_mouse->pull({126, 64}, {130, 64}); // trembles into the next one
        QCOMPARE(wired(), 1);
        m_mouse->pull({126, 64}, {200, 64});
        QCOMPARE(wired(), 2);
    }

    void aDragWithControlTakesTheItemAlong()
    {
        const auto before = m_mouse->layout().ports[1];
        m_mouse->click({64, 64});
        m_mouse->pull({192, 64}, {192, 104}, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected(), loose({0, 1}));
        QCOMPARE(placeOf(0), QPoint(0, 40));
        QCOMPARE(placeOf(1), QPoint(128, 40));
        m_mouse->states().locked[1] = true;
        m_mouse->pull({64, 264}, {64, 300}, Qt::ControlModifier); // of a locked port: nothing moves
        QCOMPARE(placeOf(0), QPoint(0, 40));
        QVERIFY(m_mouse->layout().ports[1] == before);
    }

    void aMoveCatchesAtEdges()
    {
        struct SCase
        {
            Qt::KeyboardModifiers keys;
            QPoint way;
            QPoint place;
        };
        const SCase cases[] = {{Qt::NoModifier, {249, 121}, {256, 128}}, // at neighbours
                               {Qt::NoModifier, {500, 8}, {500, 0}},     // at the canvas
                               {Qt::NoModifier, {700, 495}, {700, 495}}, // in line with what is far away
                               {Qt::AltModifier, {249, 121}, {249, 121}},
                               {Qt::ShiftModifier, {249, 121}, {256, 0}}};
        for (const SCase &one : cases) {
            m_mouse->pull({64, 64}, QPoint(64, 64) + one.way, Qt::NoModifier, one.keys);
            QCOMPARE(placeOf(0), one.place);
            m_mouse->scene().undo(nullptr);
        }
        for (const qreal scale : {0.5, 2.0}) { // the reach is one of the screen
            m_mouse->view().setScaleFactor(scale);
            m_mouse->pull({64, 64}, {64 + 242, 64 + 122}, Qt::NoModifier, Qt::NoModifier);
            QCOMPARE(placeOf(0), scale < 1 ? QPoint(256, 128) : QPoint(242, 122));
            m_mouse->scene().undo(nullptr);
        }
    }

    void figuresTellPlaceWayAndSize()
    {
        CSceneBackend &backend = m_mouse->scene().backend();
        CGraphicsItemBase &item = m_mouse->cabinet(0, 1);
        CItemDrag move(backend.batches(), backend.content(), {&item}, {192, 64});
        QCOMPARE(move.note(), QString());
        move.moveTo({222, 57}, {});
        QCOMPARE(move.note(), QStringLiteral("158, \u22127  (+30, \u22127)"));
        move.cancel();
        CItemDrag resize(backend.batches(), backend.content(), item, CResizeHandles::BottomRight, {256, 128});
        resize.moveTo({276, 118}, {});
        QCOMPARE(resize.note(), QStringLiteral("148 \u00d7 118"));
        resize.cancel();
    }

    void closedPortsKeepStill()
    {
        for (const bool locked : {true, false}) {
            m_mouse->states().locked[0] = locked;
            if (!locked)
                m_mouse->states().redundancy[0] = CabinetLayout::CabinetPort::Redundant;
            m_mouse->click({320, 64});
            QCOMPARE(m_mouse->selected(), loose({2}));
            m_mouse->drag({320, 64}, {50, 50});
            m_mouse->drag({382, 126}, {20, 20});
            m_mouse->scene().backend().placing().cut(m_mouse->scene().backend().operations());
            m_mouse->view().toolBar().chooseMode(CEditorToolBar::Pen);
            m_mouse->drag({64, 64}, {256, 0});
            m_mouse->view().toolBar().chooseMode(CEditorToolBar::Arrow);
            QVERIFY(m_mouse->isUntouched());
        }
    }

    void handlesResize()
    {
        struct SCase
        {
            QPoint grab;
            QPoint delta;
            QRect rect; // of the third cabinet of port 0
        };
        const SCase cases[] = {{{382, 126}, {20, 31}, {256, 0, 148, 159}},
                               {{386, 130}, {20, 31}, {256, 0, 148, 159}}, // on its half outside
                               {{320, 2}, {7, -10}, {256, -10, 128, 138}},
                               {{382, 126}, {5000, 6000}, {256, 0, 2048, 2048}}};
        m_mouse->click({320, 64});
        for (const SCase &one : cases) {
            m_mouse->hover({382, 126}); // a handle is reached from inside
            m_mouse->drag(one.grab, one.delta);
            QCOMPARE(m_mouse->cabinet(0, 2).cabinet().rect, one.rect);
            QCOMPARE(m_mouse->stack().count(), 1);
            QTest::keyClick(&m_mouse->view(), Qt::Key_Z, Qt::ControlModifier);
            QVERIFY(m_mouse->layout() == m_mouse->original());
        }
    }

    void aTypedSizeScalesGroupsWithTheirMembers()
    {
        m_mouse->click({64, 564});
        m_mouse->click({64, 64}, Qt::ControlModifier);
        QVERIFY(m_mouse->scene().selection().figures().resizable);
        m_mouse->view().onNotifySelectedCabinetSizeChanged({512, 1256}); // twice as large
        QCOMPARE(m_mouse->layout().ports[0].getAllCabinets()[0].rect, QRect(0, 0, 256, 256));
        for (const int member : {0, 1})
            QCOMPARE(m_mouse->cabinet(2, member).cabinet().rect, QRect(member * 256, 1000, 256, 256));
        m_mouse->click(InPair, Qt::ControlModifier); // one that cannot is refused
        m_mouse->view().onNotifySelectedCabinetSizeChanged({256, 628});
        QCOMPARE(m_mouse->stack().count(), 1);
        m_mouse->click(InPair);
        QVERIFY(!m_mouse->scene().selection().figures().resizable);
        m_mouse->scene().undo(nullptr);
        QVERIFY(m_mouse->layout() == m_mouse->original());
        m_mouse->click({64, 64});
        for (const int x : {192, 320})
            m_mouse->click({x, 64}, Qt::ControlModifier);
        m_mouse->view().onNotifySelectedCabinetSizeChanged({2, 128}); // two pixels for three cabinets
        QVERIFY(m_mouse->layout() == m_mouse->original());
        m_mouse->view().onNotifySelectedCabinetSizeChanged({301, 77});
        const auto scaled = m_mouse->layout().ports[0].getAllCabinets();
        QCOMPARE(scaled[0].rect, QRect(0, 0, 100, 77));
        QCOMPARE(scaled[1].rect, QRect(100, 0, 101, 77));
        QCOMPARE(scaled[2].rect, QRect(201, 0, 100, 77));
    }

    void receiversFollowWhileTheirCabinetIsResized()
    {
        const QVector<QRect> before = m_mouse->cabinet(3, 0).cabinet().rects;
        const QPoint corner = m_mouse->cabinet(3, 0).cabinet().rect.bottomRight();
        m_mouse->click(corner - QPoint(20, 20));
        const auto resize = [&] {
            m_mouse->press(corner);
            m_mouse->moveTo(corner + QPoint(30, 10));
            m_mouse->moveTo(corner + QPoint(128, 0));
            QRect around;
            for (const QRect &receiver : m_mouse->cabinet(3, 0).cabinet().rects)
                around |= receiver;
            QCOMPARE(around.size(), m_mouse->cabinet(3, 0).rect().size().toSize());
        };
        resize();
        QTest::keyClick(&m_mouse->view(), Qt::Key_Escape);
        m_mouse->release(corner);
        QCOMPARE(m_mouse->cabinet(3, 0).cabinet().rects, before);
        QVERIFY(m_mouse->isUntouched());
        resize();
        m_mouse->release(corner + QPoint(128, 0));
        QVERIFY(m_mouse->cabinet(3, 0).cabinet().rects != before);
        m_mouse->scene().undo(nullptr);
        QVERIFY(m_mouse->layout() == m_mouse->original());
    }

    void clicksChangeNothing()
    {
        m_mouse->view().setScaleFactor(0.14);
        m_mouse->drag({192, 64}, {28, 14}); // trembles by a few pixels of the screen
        m_mouse->drag({64, 10}, {28, 14});  // now on a handle, too
        QVERIFY(m_mouse->isUntouched());
    }

    void onlyAHandleThatIsShownIsGrabbed()
    {
        m_mouse->pull({382, 126}, {402, 136}); // in the corner, not selected before
        QCOMPARE(m_mouse->cabinet(0, 2).cabinet().rect, QRect(276, 10, 128, 128));
        m_mouse->pull({408, 142}, {428, 142}); // beside the cabinet, on the outer half of its handle
        QCOMPARE(m_mouse->cabinet(0, 2).cabinet().rect, QRect(276, 10, 148, 128));
        m_mouse->click({192, 64});
        m_mouse->drag({260, 64}, {20, 0}); // the outer half lies over its neighbour
        QCOMPARE(m_mouse->cabinet(0, 1).cabinet().rect, QRect(128, 0, 148, 128));
        m_mouse->click({270, 64}, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected(), Items());
    }

    void quickClicksCount()
    {
        m_mouse->click({64, 64});
        m_mouse->pressAgain({64, 64});
        m_mouse->moveTo({74, 70});
        m_mouse->release({74, 70});
        QCOMPARE(placeOf(0), QPoint(10, 6));
        m_mouse->scene().undo(nullptr);
        m_mouse->click({382, 126});
        m_mouse->pressAgain({382, 126}); // on a handle
        m_mouse->moveTo({392, 126});
        m_mouse->release({392, 126});
        QCOMPARE(m_mouse->cabinet(0, 2).rect().size(), QSizeF(138, 128));
        m_mouse->scene().undo(nullptr);
        m_mouse->click(InEmpty);
        m_mouse->pressAgain(InEmpty);
        QVERIFY(m_mouse->scene().backend().mouse()->hasRubberBand());
        m_mouse->release(InEmpty);

        m_mouse->view().toolBar().chooseMode(CEditorToolBar::Pen);
        m_mouse->click({192, 64});
        m_mouse->pressAgain({192, 64});
        m_mouse->moveTo({320, 64});
        m_mouse->release({320, 64});
        QCOMPARE(m_mouse->scene().backend().content().portItem(0)->chain().order().size(), 2);
        QCOMPARE(m_mouse->selected(), Items());
        m_mouse->view().toolBar().chooseMode(CEditorToolBar::HeadToTailExchange);
        const QVector<QRect> receivers = m_mouse->cabinet(3, 0).cabinet().rects;
        m_mouse->click({420, 64});
        QCOMPARE(m_mouse->cabinet(3, 0).selectedCell(), 0);
        m_mouse->pressAgain({420, 64});
        m_mouse->release({420, 64});
        QVERIFY(m_mouse->cabinet(3, 0).cabinet().rects != receivers); // exchanged once
        QCOMPARE(m_mouse->stack().count(), 3);
    }

    void escapePutsBack()
    {
        m_mouse->press(InEmpty);
        m_mouse->moveTo({310, 180});
        QTest::keyClick(&m_mouse->view(), Qt::Key_Escape);
        QVERIFY(!m_mouse->scene().backend().mouse()->hasRubberBand());
        m_mouse->release({310, 180});

        m_mouse->view().toolBar().chooseMode(CEditorToolBar::Pen);
        m_mouse->press({64, 64});
        m_mouse->moveTo({192, 64});
        QTest::keyClick(&m_mouse->view(), Qt::Key_Escape);
        m_mouse->release({192, 64});
        QVERIFY(m_mouse->view().toolBar().tool(CEditorToolBar::Arrow)->isChecked());
        QVERIFY(m_mouse->isUntouched());
    }

    void keys()
    {
        const auto key = [this](Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
            QTest::keyClick(&m_mouse->view(), code, modifiers);
        };
        m_mouse->click({64, 64});
        key(Qt::Key_Right);
        key(Qt::Key_Right);
        key(Qt::Key_Down);
        QCOMPARE(placeOf(0), QPoint(2, 1));
        key(Qt::Key_Left);
        key(Qt::Key_Up);
        QCOMPARE(placeOf(0), QPoint(1, 0));
        const int pressed = m_mouse->stack().count();
        for (const bool again : {false, true, true}) { // held
            QKeyEvent press(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, {}, again);
            QCoreApplication::sendEvent(&m_mouse->view(), &press);
        }
        QCOMPARE(placeOf(0), QPoint(4, 0));
        QCOMPARE(m_mouse->stack().count(), pressed + 1);
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(placeOf(0), QPoint(1, 0));
        key(Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(placeOf(0), QPoint(4, 0));
        m_mouse->scene().selectAllItem();
        QKeyEvent withOthers(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, {}, true);
        QCoreApplication::sendEvent(&m_mouse->view(), &withOthers);
        QCOMPARE(m_mouse->stack().count(), pressed + 2); // no part of it goes into the step before
        m_mouse->stack().setClean();
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier, {}, true); // since it was saved
        QCoreApplication::sendEvent(&m_mouse->view(), &press);
        QCOMPARE(m_mouse->stack().count(), pressed + 3);
        while (m_mouse->stack().canUndo())
            key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(m_mouse->layout() == m_mouse->original());
        key(Qt::Key_Y, Qt::ControlModifier);
        QVERIFY(m_mouse->layout() != m_mouse->original());
        m_mouse->view().toolBar().chooseMode(CEditorToolBar::Hand);
        const int steps = m_mouse->stack().index();
        key(Qt::Key_Delete); // the hand edits nothing
        key(Qt::Key_Right);
        QCOMPARE(m_mouse->stack().index(), steps);
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_mouse->stack().index(), steps - 1);
        m_mouse->view().toolBar().chooseMode(CEditorToolBar::Arrow);

        m_mouse->click({192, 64}, Qt::ControlModifier);
        key(Qt::Key_G, Qt::ControlModifier);
        QCOMPARE(m_mouse->scene().backend().content().portItem(0)->groups(true).size(), 1);
        key(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(m_mouse->scene().backend().content().portItem(0)->groups(true).isEmpty());
        key(Qt::Key_Delete);
        QCOMPARE(m_mouse->scene().backend().content().portItem(0)->cabinets(nullptr).size(), 1);
        key(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected().size(), 1 + 1 + 2 + 2);
    }

    void handlesEndHighlightsOfCabinetsWithoutAType()
    {
        struct SCase
        {
            bool option;
            QPoint click;
            QPoint corner;
            bool ends;
        };
        const SCase cases[] = {{true, {320, 64}, {384, 128}, true},
                               {false, {320, 64}, {384, 128}, false},
                               {true, {64, 564}, {256, 628}, false}}; // a group of a type
        QVector<CGraphicsCabinetItem *> all;
        for (const CGraphicsPortItem *port : m_mouse->scene().backend().content().portItems())
            all += port->cabinets(nullptr);
        for (const SCase &one : cases) {
            m_mouse->states().resetsHighlight = one.option;
            for (CGraphicsCabinetItem *cabinet : qAsConst(all))
                cabinet->setHighlighted(true);
            m_mouse->drag(one.click, {13, 3}); // a move leaves highlights alone
            m_mouse->scene().undo(nullptr);
            m_mouse->click(one.click);
            m_mouse->drag(one.corner - QPoint(2, 2), {10, 0});
            QCOMPARE(m_mouse->stack().undoText(), QStringLiteral("Scale"));
            const auto concerned = m_mouse->scene().selection().cabinets();
            for (CGraphicsCabinetItem *cabinet : qAsConst(all))
                QCOMPARE(cabinet->isHighlighted(), !(one.ends && concerned.contains(cabinet)));
            m_mouse->scene().undo(nullptr);
        }
    }

private:
    QPoint placeOf(int place) { return m_mouse->cabinet(0, place).cabinet().rect.topLeft(); }
    /// Cabinets of port 0.
    Items loose(const QVector<int> &places)
    {
        Items items;
        for (const int place : places)
            items << &m_mouse->cabinet(0, place);
        return items;
    }
};

ORVO_TEST_MAIN(QApplication, CMouseRulesTest)
#include "tst_mouse_rules.moc"
