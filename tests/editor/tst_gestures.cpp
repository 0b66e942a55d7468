// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/undo/CChangeCabinetTypeCommand.h"
#include "tests/editor/CMouseTest.h"

#include <functional>

namespace {

using Record = CabinetLayout::CabinetPort::Cabinet;
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

/// What happens to the scene while the user holds the mouse button down, and what its signals tell.
class CGesturesTest final : public CMouseTest
{
    Q_OBJECT

private Q_SLOTS:
    void readingInMidDragGivesItsStart()
    {
        struct SCase
        {
            QPoint press; // on a cabinet, a group, a handle
            int port;
            int cabinet;
        };
        QSignalSpy sceneSpy(&m_mouse->scene(), &CCabinetGraphicsScene::notifySceneChanged);
        for (const SCase &one : {SCase{{64, 64}, 0, 0}, SCase{{64, 264}, 1, 0}, SCase{{382, 126}, 0, 2}}) {
            m_mouse->click(one.press);
            CabinetLayout before = m_mouse->layout();
            sceneSpy.clear();
            m_mouse->press(one.press);
            m_mouse->moveTo(one.press + QPoint(60, 50));
            QVERIFY(m_mouse->layout() == before);
            m_mouse->scene().onNotifyProcessorStateChanged();
            const QColor color = before.ports[0].color == Qt::red ? Qt::blue : Qt::red;
            before.ports[0].color = m_mouse->states().colors[0] = color;
            m_mouse->scene().onNotifyCabinetColorChanged(0, color);
            QVERIFY(m_mouse->layout() == before);
            QCOMPARE(sceneSpy.count(), 0);
            m_mouse->release(one.press + QPoint(60, 50));
            QCOMPARE(sceneSpy.count(), 1);
            QVERIFY(m_mouse->layout() != before);
            const QRect moved = m_mouse->scene().selection().cabinets().first()->cabinet().rect;
            QCOMPARE(m_mouse->layout().ports[one.port].getAllCabinets()[one.cabinet].rect, moved);
            m_mouse->scene().undo(nullptr);
            QVERIFY(m_mouse->layout() == before);
        }
    }

    void interruptionsPutBack()
    {
        using Mouse = CMouseTester;
        const Interruption interruptions[] = {
            [](Mouse &m) { m.scene().redo(nullptr); },
            [](Mouse &m) { m.scene().setCabinetLocked(2, false); },
            [](Mouse &m) { m.scene().topologyWiring(8); },
            [](Mouse &m) { m.view().toolBar().chooseMode(CEditorToolBar::Pen); },
            [](Mouse &m) { m.scene().backupPort(0, 0, false); },
            [](Mouse &m) { showAgain(m, false, true); },
            [](Mouse &m) { showAgain(m, false, false); },
            [](Mouse &m) { showAgain(m, true, false); }};
        for (const Interruption &interrupt : interruptions) {
            beginAnew();
            m_mouse->click({192, 64});
            m_mouse->click({64, 64}, Qt::ControlModifier);
            m_mouse->press({64, 64});
            m_mouse->moveTo({90, 80});
            QCOMPARE(m_mouse->cabinet(0, 1).scenePos(), QPointF(154, 16));
            interrupt(*m_mouse);
            m_mouse->moveTo({190, 180});
            m_mouse->release({190, 180});
            QCOMPARE(m_mouse->cabinet(0, 1).scenePos(), QPointF(128, 0));
            QCOMPARE(m_mouse->stack().count(), 0);
            QVERIFY(m_mouse->scene().backend().content().portItem(0)->zValue() < qreal(DraggedPortHeight));

            m_mouse->view().toolBar().chooseMode(CEditorToolBar::Arrow);
            m_mouse->drag({64, 64}, {7, 9}); // begins where it is pressed
            QCOMPARE(m_mouse->cabinet(0, 0).scenePos(), QPointF(7, 9));
            QCOMPARE(CSceneVerifier::faultIn(m_mouse->scene()), QString());
        }
    }

    void whatIsUnderTheMouseMayGo()
    {
        const Interruption removals[] = {
            [](CMouseTester &m) { m.scene().backend().operations().remove(); },
            [](CMouseTester &m) { m.scene().undo(nullptr); }, // there is no group then
            [](CMouseTester &m) { m.scene().clearLayout(); }};
        for (const Interruption &removal : removals) {
            beginAnew();
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
            QCOMPARE(CSceneVerifier::faultIn(m_mouse->scene()), QString());
            if (m_mouse->scene().backend().content().portItems().isEmpty())
                continue;
            QCOMPARE(m_mouse->scene().backend().content().portItem(0)->groups(false).size(), 0);
            m_mouse->drag({320, 64}, {5, 6});
            QCOMPARE(m_mouse->layout().ports[0].getAllCabinets().last().rect, QRect(261, 6, 128, 128));
        }
    }

    void aCancelledDragIsNoClick()
    {
        const Interruption ends[] = {[](CMouseTester &m) { QTest::keyClick(&m.view(), Qt::Key_Escape); },
                                     [](CMouseTester &m) {
                                         m.pressRight({90, 80}, true);
                                     },
                                     [](CMouseTester &m) {
                                         m.moveTo({64, 64});
                                     }}; // brings it back
        m_mouse->click({192, 64});
        m_mouse->click({64, 64}, Qt::ControlModifier);
        const Items both = m_mouse->selected();
        for (const Interruption &end : ends) {
            for (const Qt::KeyboardModifiers keys : {Qt::NoModifier, Qt::ControlModifier}) {
                m_mouse->press({64, 64}, keys);
                m_mouse->moveTo({90, 80});
                end(*m_mouse);
                m_mouse->release({64, 64}, keys);
                QCOMPARE(m_mouse->selected(), both);
                QVERIFY(m_mouse->isUntouched());
            }
        }
        m_mouse->press({64, 64});
        QTest::keyClick(&m_mouse->view(), Qt::Key_Escape); // before it has moved
        m_mouse->release({64, 64});
        QCOMPARE(m_mouse->selected(), both);
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

    void directExchangeNeedsNoPick()
    {
        m_mouse->scene().backend().setToolMode(ToolMode::DirectExchange, true);
        m_mouse->states().resetsHighlight = true;
        CGraphicsCabinetItem &cabinet = m_mouse->cabinet(3, 0);
        cabinet.setHighlighted(true);
        QVector<QRect> reversed = cabinet.cabinet().rects;
        std::reverse(reversed.begin(), reversed.end());
        QSignalSpy selectionSpy(&m_mouse->scene(), &CCabinetGraphicsScene::notifySelectedChanged);
        m_mouse->click({420, 64});
        QCOMPARE(selectionSpy.count(), 1);
        QCOMPARE(cabinet.cabinet().rects, reversed);
        QCOMPARE(cabinet.selectedCell(), -1);
        QVERIFY(cabinet.isHighlighted()); // its type is the same
        cabinet.setHighlighted(false);
        m_mouse->click({620, 64}); // its direction is fixed
        m_mouse->scene().undo(nullptr);
        QVERIFY(m_mouse->layout() == m_mouse->original());
    }

    void aTypeChangeEndsTheHighlight()
    {
        CGraphicsCabinetItem &cabinet = m_mouse->cabinet(0, 0);
        for (CGraphicsCabinetItem *each : {&cabinet, &m_mouse->cabinet(0, 1)})
            each->setHighlighted(true);
        for (const bool option : {false, true}) {
            m_mouse->states().resetsHighlight = option;
            auto *command = new CChangeCabinetTypeCommand(&cabinet);
            Record record = cabinet.cabinet();
            command->setStartValue(QVariant::fromValue(record));
            record.type = SMD5::ofContent(option ? "on" : "off");
            command->setEndValue(QVariant::fromValue(record));
            m_mouse->stack().push(command);
            QCOMPARE(cabinet.isHighlighted(), !option);
        }
        QVERIFY(m_mouse->cabinet(0, 1).isHighlighted());
    }

    void signalsTellTheSelection()
    {
        CCabinetGraphicsScene &scene = m_mouse->scene();
        QSignalSpy selection(&scene, &CCabinetGraphicsScene::notifySelectedChanged);
        QSignalSpy records(&scene, &CCabinetGraphicsScene::notifySelectedCabinetInfos);
        QSignalSpy geometry(&scene, &CCabinetGraphicsScene::notifySelectedItemGeometryChanged);
        QSignalSpy undo(&scene, &CCabinetGraphicsScene::notifyCanUndoChanged);
        QSignalSpy redo(&scene, &CCabinetGraphicsScene::notifyCanRedoChanged);
        const auto told = [&selection] { // ports, whether they can be grouped, or broken up
            const QVariantList last = selection.last();
            return std::make_tuple(last[0].value<QList<int>>(), last[1].toBool(), last[2].toBool());
        };
        const auto toldRecords = [&records] { return records.last().first().value<QList<Record>>(); };
        m_mouse->click({64, 64});
        m_mouse->click({192, 64}, Qt::ControlModifier);
        QVERIFY(told() == std::make_tuple(QList<int>{0}, true, false));
        m_mouse->click({64, 264}, Qt::ControlModifier); // a group of another port
        QVERIFY(told() == std::make_tuple(QList<int>{0, 1}, false, true));
        QCOMPARE(toldRecords().size(), 2 + 3);
        QCOMPARE(geometry.count(), 0);

        scene.selectedItemMoveDown();
        QCOMPARE(geometry.count(), 1);
        QCOMPARE(toldRecords().first().rect, QRect(0, 1, 128, 128));
        QVERIFY(undo.takeLast().first().toBool());
        scene.undo(nullptr);
        QCOMPARE(toldRecords().first().rect, QRect(0, 0, 128, 128));
        QVERIFY(!undo.takeLast().first().toBool() && redo.takeLast().first().toBool());
        m_mouse->states().locked[1] = true;
        scene.onSelectionChanged();
        QVERIFY(!std::get<2>(told()));
    }
};

ORVO_TEST_MAIN(QApplication, CGesturesTest)
#include "tst_gestures.moc"
