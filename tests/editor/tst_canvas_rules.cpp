// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/undo/CChangeCabinetTypeCommand.h"
#include "tests/editor/CMouseTest.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>

namespace {

using Record = CabinetLayout::CabinetPort::Cabinet;

} // namespace

/// The rarer rules of the mouse, and what the scene's signals tell.
class CCanvasRulesTest final : public CMouseTest
{
    Q_OBJECT

private Q_SLOTS:
    void handlesEndHighlightsOfCabinetsWithoutAType_data()
    {
        QTest::addColumn<bool>("option");
        QTest::addColumn<QPoint>("click");
        QTest::addColumn<QPoint>("corner");
        QTest::addColumn<bool>("ends");
        QTest::newRow("without a type") << true << QPoint(320, 64) << QPoint(384, 128) << true;
        QTest::newRow("option off") << false << QPoint(320, 64) << QPoint(384, 128) << false;
        QTest::newRow("group of a type") << true << QPoint(64, 564) << QPoint(256, 628) << false;
    }
    void handlesEndHighlightsOfCabinetsWithoutAType()
    {
        QFETCH(bool, option);
        QFETCH(QPoint, click);
        QFETCH(QPoint, corner);
        QFETCH(bool, ends);
        m_mouse->states().resetsHighlight = option;
        QVector<CGraphicsCabinetItem *> all;
        for (const CGraphicsPortItem *port : m_mouse->scene().portItems())
            all += port->cabinets(nullptr);
        for (CGraphicsCabinetItem *cabinet : qAsConst(all))
            cabinet->setHighlighted(true);
        m_mouse->drag(click, {13, 3}); // a move leaves highlights alone
        m_mouse->scene().undo(nullptr);
        m_mouse->click(click);
        m_mouse->drag(corner - QPoint(2, 2), {10, 0});
        QCOMPARE(m_mouse->stack().text(0), QStringLiteral("Scale"));
        const auto concerned = m_mouse->scene().selection().cabinets();
        for (CGraphicsCabinetItem *cabinet : qAsConst(all))
            QCOMPARE(cabinet->isHighlighted(), !(ends && concerned.contains(cabinet)));
    }

    void aTypeChangeEndsTheHighlight_data()
    {
        QTest::addColumn<bool>("option");
        QTest::newRow("on") << true;
        QTest::newRow("off") << false;
    }
    void aTypeChangeEndsTheHighlight()
    {
        QFETCH(bool, option);
        m_mouse->states().resetsHighlight = option;
        CGraphicsCabinetItem &cabinet = m_mouse->cabinet(0, 0);
        for (CGraphicsCabinetItem *each : {&cabinet, &m_mouse->cabinet(0, 1)})
            each->setHighlighted(true);
        auto *command = new CChangeCabinetTypeCommand(&cabinet);
        Record record = cabinet.cabinet();
        command->setStartValue(QVariant::fromValue(record));
        record.type = SMD5::ofContent("other");
        command->setEndValue(QVariant::fromValue(record));
        m_mouse->stack().push(command);
        QCOMPARE(cabinet.isHighlighted(), !option);
        QVERIFY(m_mouse->cabinet(0, 1).isHighlighted());
    }

    void directExchangeNeedsNoPick()
    {
        m_mouse->scene().setToolMode(ToolMode::DirectExchange, true);
        m_mouse->states().resetsHighlight = true;
        m_mouse->cabinet(3, 0).setHighlighted(true);
        QVector<QRect> reversed = m_mouse->cabinet(3, 0).cabinet().rects;
        std::reverse(reversed.begin(), reversed.end());
        QSignalSpy selectionSpy(&m_mouse->scene(), &CCabinetGraphicsScene::notifySelectedChanged);
        m_mouse->click({420, 64});
        QCOMPARE(selectionSpy.count(), 1);
        QCOMPARE(m_mouse->cabinet(3, 0).cabinet().rects, reversed);
        QCOMPARE(m_mouse->cabinet(3, 0).selectedCell(), -1);
        QVERIFY(m_mouse->cabinet(3, 0).isHighlighted()); // its type is the same
        m_mouse->cabinet(3, 0).setHighlighted(false);
        m_mouse->click({620, 64}); // its direction is fixed
        QCOMPARE(m_mouse->stack().count(), 1);
        m_mouse->scene().undo(nullptr);
        QVERIFY(m_mouse->layout() == m_mouse->original());
    }

    void theRightButtonSelectsOnly()
    {
        m_mouse->pressRight({64, 64});
        QCOMPARE(m_mouse->selected(), Items{&m_mouse->cabinet(0, 0)});
        m_mouse->click({192, 64}, Qt::ControlModifier);
        m_mouse->pressRight({192, 64}); // what is selected stays so
        QCOMPARE(m_mouse->selected().size(), 2);
        m_mouse->pressRight({320, 64}, false, Qt::ControlModifier);
        QCOMPARE(m_mouse->selected(), Items());
        m_mouse->pressRight({320, 64});
        m_mouse->moveTo({350, 90});
        QVERIFY(m_mouse->layout() == m_mouse->original());
        QCOMPARE(m_mouse->stack().count(), 0);
    }

    void signalsTellTheSelection()
    {
        CCabinetGraphicsScene &scene = m_mouse->scene();
        QList<int> ports;
        bool canGroup = false;
        bool canBreak = false;
        QList<Record> records;
        connect(&scene, &CCabinetGraphicsScene::notifySelectedChanged, this,
                [&](const QList<int> &p, bool group, bool ungroup) {
                    ports = p;
                    canGroup = group;
                    canBreak = ungroup;
                });
        connect(&scene, &CCabinetGraphicsScene::notifySelectedCabinetInfos, this,
                [&](const QList<Record> &r) { records = r; });
        QSignalSpy geometrySpy(&scene, &CCabinetGraphicsScene::notifySelectedItemGeometryChanged);
        QSignalSpy undoSpy(&scene, &CCabinetGraphicsScene::notifyCanUndoChanged);
        QSignalSpy redoSpy(&scene, &CCabinetGraphicsScene::notifyCanRedoChanged);

        m_mouse->click({64, 64});
        m_mouse->click({192, 64}, Qt::ControlModifier);
        QCOMPARE(ports, QList<int>{0});
        QVERIFY(canGroup && !canBreak);
        QCOMPARE(records.size(), 2);
        m_mouse->click({64, 264}, Qt::ControlModifier); // a group of another port
        QCOMPARE(ports, (QList<int>{0, 1}));
        QVERIFY(!canGroup && canBreak);
        QCOMPARE(records.size(), 2 + 3);
        QCOMPARE(geometrySpy.count(), 0);

        scene.selectedItemMoveDown();
        QCOMPARE(geometrySpy.count(), 1);
        QCOMPARE(records.first().rect, QRect(0, 1, 128, 128));
        QCOMPARE(undoSpy.takeLast().first().toBool(), true);
        scene.undo(nullptr);
        QCOMPARE(records.first().rect, QRect(0, 0, 128, 128));
        QCOMPARE(undoSpy.takeLast().first().toBool(), false);
        QCOMPARE(redoSpy.takeLast().first().toBool(), true);
        m_mouse->states().locked[1] = true;
        scene.onSelectionChanged();
        QVERIFY(!canBreak);
        disconnect(&scene, nullptr, this, nullptr);
    }
};

ORVO_TEST_MAIN(QApplication, CCanvasRulesTest)
#include "tst_canvas_rules.moc"
