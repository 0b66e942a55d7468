// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "tests/editor/CMouseTest.h"

namespace {

using View = CLayoutGraphicsView;

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
        QCOMPARE(m_mouse->selected(), Items{&m_mouse->cabinet(0, 0)});
        m_mouse->click(InPair);
        QCOMPARE(m_mouse->selected(), Items{outer});
        m_mouse->click({192, 64}, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected(), (Items{outer, &m_mouse->cabinet(0, 1)}));
        m_mouse->click({192, 390}, Qt::ControlModifier); // another member of the same outermost group
        QCOMPARE(m_mouse->selected(), Items{&m_mouse->cabinet(0, 1)});
        m_mouse->doubleClick(InPair);
        QCOMPARE(m_mouse->selected(), Items{member});
        m_mouse->click(InPair, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected(), Items());
        m_mouse->doubleClick(InPair);
        m_mouse->click({192, 264}); // its neighbour
        QCOMPARE(m_mouse->selected(), Items{outer});
        m_mouse->click({64, 64}, Qt::ControlModifier);
        m_mouse->click({64, 64}); // one of several selected
        QCOMPARE(m_mouse->selected(), Items{&m_mouse->cabinet(0, 0)});
        m_mouse->click(InEmpty, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected(), Items{&m_mouse->cabinet(0, 0)});
        m_mouse->click(InEmpty);
        QCOMPARE(m_mouse->selected(), Items());
        QCOMPARE(m_mouse->stack().count(), 0);
    }

    void aBandSelectsWholeGroups()
    {
        CGraphicsItemBase *member = m_mouse->at(InPair);
        CGraphicsItemBase *outer = &member->outermost();
        m_mouse->click({192, 64});
        m_mouse->press({-30, 170});
        m_mouse->moveTo({40, 240});
        QCOMPARE(m_mouse->selected(), Items{outer});
        QVERIFY(!member->isSelected());
        m_mouse->moveTo({40, 100}); // the group is left, a loose cabinet is entered
        QCOMPARE(m_mouse->selected(), Items{&m_mouse->cabinet(0, 0)});
        m_mouse->moveTo({-10, 180});
        QCOMPARE(m_mouse->selected(), Items());
        m_mouse->moveTo({300, 100});
        m_mouse->release({300, 100});
        QCOMPARE(m_mouse->selected(),
                 (Items{&m_mouse->cabinet(0, 0), &m_mouse->cabinet(0, 1), &m_mouse->cabinet(0, 2)}));
        QVERIFY(!m_mouse->scene().backend().mouse()->hasRubberBand());
    }

    void aDragIsOneStep()
    {
        m_mouse->drag({64, 64}, {41, -30}); // not selected before
        QCOMPARE(m_mouse->selected(), Items{&m_mouse->cabinet(0, 0)});
        QCOMPARE(m_mouse->cabinet(0, 0).cabinet().rect, QRect(41, -30, 128, 128));
        QCOMPARE(m_mouse->stack().count(), 1);
        const CabinetLayout afterOne = m_mouse->layout();
        m_mouse->drag({64, 64}, {5, 5});
        QCOMPARE(m_mouse->stack().count(), 2);
        m_mouse->scene().undo(nullptr);
        QVERIFY(m_mouse->layout() == afterOne);
        m_mouse->scene().undo(nullptr);
        QVERIFY(m_mouse->layout() == m_mouse->original());

        m_mouse->drag(InPair, {100, 0}); // a member takes its whole group along
        for (int place = 0; place < 3; ++place)
            QCOMPARE(m_mouse->layout().ports[1].getAllCabinets()[place].rect,
                     m_mouse->original().ports[1].getAllCabinets()[place].rect.translated(100, 0));
    }

    void closedPortsKeepStill_data()
    {
        QTest::addColumn<bool>("locked");
        QTest::newRow("locked") << true;
        QTest::newRow("redundancy") << false;
    }
    void closedPortsKeepStill()
    {
        QFETCH(bool, locked);
        m_mouse->states().locked[0] = locked;
        if (!locked)
            m_mouse->states().redundancy[0] = CabinetLayout::CabinetPort::Redundant;
        m_mouse->click({320, 64});
        QCOMPARE(m_mouse->selected(), Items{&m_mouse->cabinet(0, 2)});
        m_mouse->drag({320, 64}, {50, 50});
        m_mouse->drag({382, 126}, {20, 20});
        m_mouse->scene().backend().placing().cut(m_mouse->scene().backend().operations());
        m_mouse->view().toolBar().chooseMode(CEditorToolBar::Pen);
        m_mouse->drag({64, 64}, {256, 0});
        QVERIFY(m_mouse->layout() == m_mouse->original());
        QCOMPARE(m_mouse->stack().count(), 0);
        m_mouse->states().locked.clear();
        m_mouse->states().redundancy.clear();
    }

    void handlesResize_data()
    {
        QTest::addColumn<QPoint>("grab");
        QTest::addColumn<QPoint>("delta");
        QTest::addColumn<QRect>("rect"); // of the third cabinet of port 0
        QTest::newRow("bottom right") << QPoint(382, 126) << QPoint(20, 31) << QRect(256, 0, 148, 159);
        QTest::newRow("sticking out") << QPoint(386, 130) << QPoint(20, 31) << QRect(256, 0, 148, 159);
        QTest::newRow("top") << QPoint(320, 2) << QPoint(7, -10) << QRect(256, -10, 128, 138);
        QTest::newRow("largest") << QPoint(382, 126) << QPoint(5000, 6000) << QRect(256, 0, 2048, 2048);
        QTest::newRow("middle") << QPoint(320, 64) << QPoint(10, 10) << QRect(266, 10, 128, 128);
    }
    void handlesResize()
    {
        QFETCH(QPoint, grab);
        QFETCH(QPoint, delta);
        QFETCH(QRect, rect);
        m_mouse->click({320, 64});
        m_mouse->hover({382, 126}); // a handle is reached from inside
        m_mouse->drag(grab, delta);
        QCOMPARE(m_mouse->cabinet(0, 2).cabinet().rect, rect);
        QCOMPARE(m_mouse->stack().count(), 1);
        QTest::keyClick(&m_mouse->view(), Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(m_mouse->layout() == m_mouse->original());
    }

    void aDragWithControlTakesTheItemAlong()
    {
        m_mouse->click({64, 64});
        m_mouse->press({192, 64}, Qt::ControlModifier);
        m_mouse->moveTo({192, 104});
        m_mouse->release({192, 104}, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected(), (Items{&m_mouse->cabinet(0, 0), &m_mouse->cabinet(0, 1)}));
        QCOMPARE(m_mouse->cabinet(0, 0).scenePos(), QPointF(0, 40));
        QCOMPARE(m_mouse->cabinet(0, 1).scenePos(), QPointF(128, 40));
    }

    void aMoveCatchesAtEdges_data()
    {
        QTest::addColumn<int>("keys");
        QTest::addColumn<QPoint>("way");
        QTest::addColumn<QPoint>("place");
        QTest::newRow("neighbours") << 0 << QPoint(249, 121) << QPoint(256, 128);
        QTest::newRow("canvas") << 0 << QPoint(500, 8) << QPoint(500, 0);
        QTest::newRow("in line with what is far away") << 0 << QPoint(700, 495) << QPoint(700, 495);
        QTest::newRow("alt") << int(Qt::AltModifier) << QPoint(249, 121) << QPoint(249, 121);
        QTest::newRow("shift") << int(Qt::ShiftModifier) << QPoint(249, 121) << QPoint(256, 0);
    }
    void aMoveCatchesAtEdges()
    {
        QFETCH(int, keys);
        QFETCH(QPoint, way);
        m_mouse->press({64, 64});
        m_mouse->moveTo(QPoint(64, 64) + way, Qt::KeyboardModifiers(keys));
        m_mouse->release(QPoint(64, 64) + way, Qt::KeyboardModifiers(keys));
        QTEST(m_mouse->cabinet(0, 0).cabinet().rect.topLeft(), "place");
        m_mouse->scene().undo(nullptr);
        QVERIFY(m_mouse->layout() == m_mouse->original());
    }

    void theHandEditsNothingByKeys()
    {
        m_mouse->click({64, 64});
        m_mouse->drag({64, 64}, {0, 40});
        m_mouse->view().toolBar().chooseMode(CEditorToolBar::Hand);
        QTest::keyClick(&m_mouse->view(), Qt::Key_Delete);
        QTest::keyClick(&m_mouse->view(), Qt::Key_Right);
        QCOMPARE(m_mouse->stack().count(), 1);
        QTest::keyClick(&m_mouse->view(), Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(m_mouse->layout() == m_mouse->original());
    }

    void clicksChangeNothing()
    {
        m_mouse->view().setScaleFactor(0.14);
        m_mouse->drag({192, 64}, {28, 14}); // trembles by a few pixels of the screen
        m_mouse->drag({64, 10}, {28, 14});  // now on a handle, too
        QVERIFY(m_mouse->layout() == m_mouse->original());
        QCOMPARE(m_mouse->stack().count(), 0);
    }

    void onlyAHandleThatIsShownIsGrabbed()
    {
        m_mouse->press({382, 126}); // in the corner, not selected before
        m_mouse->moveTo({402, 136});
        m_mouse->release({402, 136});
        QCOMPARE(m_mouse->cabinet(0, 2).cabinet().rect, QRect(276, 10, 128, 128));
        m_mouse->press({408, 142}); // beside the cabinet, on the outer half of its handle
        m_mouse->moveTo({428, 142});
        m_mouse->release({428, 142});
        QCOMPARE(m_mouse->cabinet(0, 2).cabinet().rect, QRect(276, 10, 148, 128));
        m_mouse->click({192, 64});
        m_mouse->drag({260, 64}, {20, 0}); // the outer half lies over its neighbour
        QCOMPARE(m_mouse->cabinet(0, 1).cabinet().rect, QRect(128, 0, 148, 128));
        m_mouse->click({270, 64}, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected(), Items());
    }

    void groupsResizeWhenTheyTile_data()
    {
        QTest::addColumn<QPoint>("member");
        QTest::addColumn<QPoint>("corner"); // bottom right, of the group
        QTest::addColumn<QPoint>("second"); // a second item to select
        QTest::addColumn<QString>("text");
        const QPoint none;
        QTest::newRow("tiling") << QPoint(64, 564) << QPoint(256, 628) << none << "Scale";
        QTest::newRow("two types") << QPoint(464, 564) << QPoint(656, 628) << none << "Move";
        QTest::newRow("L shape") << InPair << QPoint(256, 456) << none << "Move";
        QTest::newRow("two selected") << QPoint(64, 564) << QPoint(256, 628) << QPoint(64, 64) << "Move";
    }
    void groupsResizeWhenTheyTile()
    {
        QFETCH(QPoint, member);
        QFETCH(QPoint, corner);
        QFETCH(QPoint, second);
        QFETCH(QString, text);
        m_mouse->click(member);
        if (!second.isNull())
            m_mouse->click(second, Qt::ControlModifier);
        const CGraphicsItemBase &group = m_mouse->at(member)->outermost();
        const QSizeF before = group.rect().size();
        m_mouse->drag(corner - QPoint(2, 2), {64, 32});
        QCOMPARE(m_mouse->stack().count(), 1);
        QCOMPARE(m_mouse->stack().text(0), text);
        const QSizeF after = group.rect().size();
        QCOMPARE(after, text == QLatin1String("Scale") ? before + QSizeF(64, 32) : before);
        if (text == QLatin1String("Scale"))
            QCOMPARE(m_mouse->cabinet(2, 1).cabinet().rect, QRect(160, 500, 160, 160));
    }

    void quickClicksCount()
    {
        m_mouse->click({64, 64});
        m_mouse->pressAgain({64, 64});
        m_mouse->moveTo({74, 70});
        m_mouse->release({74, 70});
        QCOMPARE(m_mouse->cabinet(0, 0).scenePos(), QPointF(10, 6));
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
        QCOMPARE(m_mouse->scene().portItem(0)->chain().order().size(), 2);
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

    void aBandAddsToWhatWasSelected_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("control") << int(Qt::ControlModifier);
        QTest::newRow("shift") << int(Qt::ShiftModifier);
    }
    void aBandAddsToWhatWasSelected()
    {
        QFETCH(int, key);
        CGraphicsItemBase *member = m_mouse->at(InPair);
        m_mouse->click({320, 64});
        m_mouse->doubleClick(InPair);
        m_mouse->cabinet(0, 2).setSelected(true);
        const Items before = m_mouse->selected();
        m_mouse->press(QPoint(-30, 480), Qt::KeyboardModifiers(key));
        QCOMPARE(m_mouse->selected(), before);
        m_mouse->moveTo({40, 210});
        QCOMPARE(m_mouse->selected(), (Items{&member->outermost(), &m_mouse->cabinet(0, 2)}));
        m_mouse->moveTo({-20, 470}); // the member that gave way to its group is selected again
        QCOMPARE(m_mouse->selected(), before);
        m_mouse->moveTo({400, 600});
        QVERIFY(m_mouse->selected() != before);
        m_mouse->scene().leaveOperation(); // Escape
        QCOMPARE(m_mouse->selected(), before);
        m_mouse->release({400, 600});
        QCOMPARE(m_mouse->selected(), before);
    }

    void escapePutsBack()
    {
        m_mouse->press({64, 64});
        m_mouse->moveTo({164, 164});
        QCOMPARE(m_mouse->cabinet(0, 0).scenePos(), QPointF(100, 100));
        QTest::keyClick(&m_mouse->view(), Qt::Key_Escape);
        QCOMPARE(m_mouse->cabinet(0, 0).scenePos(), QPointF(0, 0));
        m_mouse->moveTo({264, 264});
        m_mouse->release({264, 264});
        QVERIFY(m_mouse->layout() == m_mouse->original());

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
        QVERIFY(m_mouse->layout() == m_mouse->original());
        QCOMPARE(m_mouse->stack().count(), 0);
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
        QCOMPARE(m_mouse->cabinet(0, 0).cabinet().rect.topLeft(), QPoint(2, 1));
        key(Qt::Key_Left);
        key(Qt::Key_Up);
        QCOMPARE(m_mouse->cabinet(0, 0).cabinet().rect.topLeft(), QPoint(1, 0));
        while (m_mouse->stack().canUndo())
            key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(m_mouse->layout() == m_mouse->original());
        key(Qt::Key_Y, Qt::ControlModifier);
        QVERIFY(m_mouse->layout() != m_mouse->original());
        key(Qt::Key_Z, Qt::ControlModifier);

        m_mouse->click({192, 64}, Qt::ControlModifier);
        key(Qt::Key_G, Qt::ControlModifier);
        QCOMPARE(m_mouse->scene().portItem(0)->groups(true).size(), 1);
        key(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(m_mouse->scene().portItem(0)->groups(true).isEmpty());
        key(Qt::Key_Delete);
        QCOMPARE(m_mouse->scene().portItem(0)->cabinets(nullptr).size(), 1);
        key(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected().size(), 1 + 1 + 2 + 2);
    }
};

ORVO_TEST_MAIN(QApplication, CMouseRulesTest)
#include "tst_mouse_rules.moc"
