// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "tests/editor/CMouseTest.h"

#include <functional>

namespace {

using Interruption = std::function<void(CMouseTester &)>;

constexpr QPoint InEmpty(300, 170);

void showAgain(CMouseTester &mouse, bool otherProcessor, bool undoable)
{
    LayoutData data = SmallWorlds::data(mouse.original().ports);
    if (!otherProcessor)
        data.processor = data.layout.processor = mouse.original().processor;
    mouse.scene().setLayoutData(SmallWorlds::node(data), data, {}, {}, undoable);
}

} // namespace

Q_DECLARE_METATYPE(Interruption)

/// What happens to the scene while the user holds the mouse button down.
class CGesturesTest final : public CMouseTest
{
    Q_OBJECT

private Q_SLOTS:
    void readingInMidDragGivesItsStart_data()
    {
        QTest::addColumn<QPoint>("press");
        QTest::addColumn<bool>("resizes");
        QTest::newRow("a cabinet") << QPoint(64, 64) << false;
        QTest::newRow("a group") << QPoint(64, 264) << false;
        QTest::newRow("a handle") << QPoint(382, 126) << true;
    }
    void readingInMidDragGivesItsStart()
    {
        QFETCH(QPoint, press);
        QFETCH(bool, resizes);
        m_mouse->click(resizes ? QPoint(320, 64) : press);
        QSignalSpy sceneSpy(&m_mouse->scene(), &CCabinetGraphicsScene::notifySceneChanged);
        m_mouse->press(press);
        m_mouse->moveTo(press + QPoint(40, 40));
        QVERIFY(m_mouse->layout() == m_mouse->original());
        m_mouse->moveTo(press + QPoint(60, 50));
        m_mouse->scene().onNotifyProcessorStateChanged();
        m_mouse->states().colors[0] = Qt::red;
        m_mouse->scene().onNotifyCabinetColorChanged(0, Qt::red);
        CabinetLayout recoloured = m_mouse->original();
        recoloured.ports[0].color = Qt::red;
        QVERIFY(m_mouse->layout() == recoloured);
        QCOMPARE(sceneSpy.count(), 0);
        m_mouse->release(press + QPoint(60, 50));
        QCOMPARE(sceneSpy.count(), 1);
        QVERIFY(m_mouse->layout() != recoloured);
        const QRect moved = m_mouse->scene().selection().cabinets().first()->cabinet().rect;
        QVERIFY(m_mouse->layout().ports[press.y() > 200].getAllCabinets()[resizes ? 2 : 0].rect == moved);

        m_mouse->scene().undo(nullptr);
        QVERIFY(m_mouse->layout() == recoloured);
    }

    void interruptionsPutBack_data()
    {
        QTest::addColumn<Interruption>("interruption");
        const auto row = [](const char *name, const Interruption &interruption) {
            QTest::newRow(name) << interruption;
        };
        row("redo", [](CMouseTester &m) { m.scene().redo(nullptr); });
        row("lock", [](CMouseTester &m) { m.scene().setCabinetLocked(2, false); });
        row("pattern", [](CMouseTester &m) { m.scene().topologyWiring(8); });
        row("another tool", [](CMouseTester &m) { m.view().toolBar().chooseMode(CEditorToolBar::Pen); });
        row("redundancy", [](CMouseTester &m) { m.scene().backupPort(0, 0, false); });
        row("reload", [](CMouseTester &m) { showAgain(m, false, true); });
        row("reload for good", [](CMouseTester &m) { showAgain(m, false, false); });
        row("another processor", [](CMouseTester &m) { showAgain(m, true, false); });
    }
    void interruptionsPutBack()
    {
        QFETCH(Interruption, interruption);
        m_mouse->click({192, 64});
        m_mouse->click({64, 64}, Qt::ControlModifier);
        m_mouse->hover({64, 64});
        m_mouse->press({64, 64});
        m_mouse->moveTo({90, 80});
        QCOMPARE(m_mouse->cabinet(0, 1).scenePos(), QPointF(154, 16));
        interruption(*m_mouse);
        m_mouse->moveTo({190, 180});
        m_mouse->release({190, 180});
        QCOMPARE(m_mouse->cabinet(0, 1).scenePos(), QPointF(128, 0));
        QCOMPARE(m_mouse->stack().count(), 0);
        QVERIFY(m_mouse->scene().portItem(0)->zValue() < qreal(DraggedPortHeight));

        m_mouse->view().toolBar().chooseMode(CEditorToolBar::Arrow);
        m_mouse->drag({64, 64}, {7, 9}); // begins where it is pressed
        QCOMPARE(m_mouse->cabinet(0, 0).scenePos(), QPointF(7, 9));
    }

    void whatIsUnderTheMouseMayGo_data()
    {
        QTest::addColumn<Interruption>("removal");
        const auto row = [](const char *name, const Interruption &removal) {
            QTest::newRow(name) << removal;
        };
        row("deleted", [](CMouseTester &m) { m.scene().backend().operations().remove(); });
        row("undone", [](CMouseTester &m) { m.scene().undo(nullptr); });
        row("cleared", [](CMouseTester &m) { m.scene().clearLayout(); });
    }
    void whatIsUnderTheMouseMayGo()
    {
        QFETCH(Interruption, removal);
        // A group that was made by the last step, pressed and hovered at a member's handle.
        m_mouse->click({64, 64});
        m_mouse->click({192, 64}, Qt::ControlModifier);
        m_mouse->scene().backend().operations().group();
        m_mouse->hover({2, 64});
        m_mouse->press({2, 64});
        m_mouse->moveTo({-20, 64});
        removal(*m_mouse);
        m_mouse->moveTo({-40, 64});
        m_mouse->release({-40, 64});
        m_mouse->hover({64, 64});
        m_mouse->hover(InEmpty);
        QCoreApplication::processEvents();
        if (m_mouse->scene().portItems().isEmpty())
            return;
        QCOMPARE(m_mouse->scene().portItem(0)->groups(false).size(), 0);
        m_mouse->drag({320, 64}, {5, 6});
        QCOMPARE(m_mouse->layout().ports[0].getAllCabinets().last().rect, QRect(261, 6, 128, 128));
    }

    void aCancelledDragIsNoClick_data()
    {
        QTest::addColumn<Interruption>("end");
        QTest::newRow("escape") << Interruption(
            [](CMouseTester &m) { QTest::keyClick(&m.view(), Qt::Key_Escape); });
        QTest::newRow("right button") << Interruption([](CMouseTester &m) { m.pressRight({90, 80}, true); });
        QTest::newRow("brought back") << Interruption([](CMouseTester &m) { m.moveTo({64, 64}); });
    }
    void aCancelledDragIsNoClick()
    {
        QFETCH(Interruption, end);
        m_mouse->click({192, 64});
        m_mouse->click({64, 64}, Qt::ControlModifier);
        const Items both = m_mouse->selected();
        for (const Qt::KeyboardModifiers keys : {Qt::NoModifier, Qt::ControlModifier}) {
            m_mouse->press({64, 64}, keys);
            m_mouse->moveTo({90, 80});
            end(*m_mouse);
            m_mouse->release({64, 64}, keys);
            QCOMPARE(m_mouse->selected(), both);
            QVERIFY(m_mouse->layout() == m_mouse->original());
            QCOMPARE(m_mouse->stack().count(), 0);
        }
        m_mouse->click({64, 64}, Qt::ControlModifier); // a click counts again
        QCOMPARE(m_mouse->selected(), Items{&m_mouse->cabinet(0, 1)});
    }

    void draggedAndSelectedPortsRise()
    {
        const auto topmost = [this] {
            for (QGraphicsItem *item : m_mouse->scene().items(QPointF(64, 264))) {
                if (item->type() == CabinetItemKind)
                    return static_cast<CGraphicsItemBase *>(item)->port();
            }
            return -1;
        };
        m_mouse->press({64, 64});
        m_mouse->moveTo({64, 264}); // onto a cabinet of the next port
        QCOMPARE(topmost(), 0);
        m_mouse->release({64, 264});
        QCOMPARE(topmost(), 0); // selected
        m_mouse->scene().clearSelection();
        QCOMPARE(topmost(), 1);
    }

    void anInterruptedBandPutsTheSelectionBack()
    {
        m_mouse->doubleClick(QPoint(64, 264)); // a member alone
        const Items before = m_mouse->selected();
        m_mouse->press({-30, 480});
        QCOMPARE(m_mouse->selected(), Items());
        m_mouse->moveTo({40, 210});
        m_mouse->pressRight({40, 210}, true);
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(m_mouse->selected(), before);
        m_mouse->release({40, 210});
        QCOMPARE(m_mouse->selected(), before);
    }

    void whoIsToldMayEdit()
    {
        CCabinetGraphicsScene &scene = m_mouse->scene();
        QStringList told;
        connect(&scene, &CCabinetGraphicsScene::notifySceneChanged, this, [&] {
            told << QStringLiteral("scene");
            if (scene.selection().count() != 1)
                return;
            scene.clearSelection();
            m_mouse->cabinet(2, 0).outermost().setSelected(true);
            m_mouse->cabinet(0, 1).setSelected(true);
            scene.selectedItemMoveDown();
        });
        connect(&scene, &CCabinetGraphicsScene::notifySelectedChanged, this,
                [&](const QList<int> &ports) { told << QString::number(ports.size()); });
        m_mouse->click({64, 64});
        told.clear();
        scene.selectedItemMoveRight();
        QCOMPARE(told.last(), QStringLiteral("scene"));
        QVERIFY(told.contains(QStringLiteral("2")));
        QCOMPARE(m_mouse->layout().ports[0].getAllCabinets()[1].rect, QRect(128, 1, 128, 128));
        QCOMPARE(m_mouse->stack().count(), 2);
        disconnect(&scene, nullptr, this, nullptr);
    }
};

ORVO_TEST_MAIN(QApplication, CGesturesTest)
#include "tst_gestures.moc"
