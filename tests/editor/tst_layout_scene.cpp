// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CWallBuilder.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/view/CEditorToolBar.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/resources/LayoutResources.h"
#include "tests/editor/CFixedPortStates.h"
#include "tests/editor/CSceneVerifier.h"
#include "tests/editor/SmallWorlds.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QScrollBar>

using Port = CabinetLayout::CabinetPort;

Q_DECLARE_METATYPE(QVector<Port>)

class CLayoutSceneTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void readsBackWhatItBuilt_data()
    {
        QTest::addColumn<QVector<Port>>("ports");
        const auto row = [](const char *name, const QVector<Port> &ports) { QTest::newRow(name) << ports; };
        row("nothing", {});
        row("ports without cabinets", {SmallWorlds::port(0, {}), SmallWorlds::port(3, {})});
        row("wired", {SmallWorlds::wiredPort(0, 16), SmallWorlds::wiredPort(1, 1)});
        row("unwired", {SmallWorlds::port(0, {SmallWorlds::loose(0, 5)})});
        row("partly wired", {SmallWorlds::partlyWiredPort(2)});
        row("nested groups", {SmallWorlds::nestedPort(0), SmallWorlds::nestedPort(1)});
        row("typed receivers", {SmallWorlds::receiverPort(0)});
        Port special = SmallWorlds::wiredPort(4, 3);
        special.locked = true;
        special.color = Qt::darkRed;
        special.redundancy = Port::Redundant;
        special.redundancyPort = 1;
        special.load = 140;
        row("a port's own state", {special});
        using Builder = CWallBuilder;
        for (const Builder::Wall wall : {Builder::Small, Builder::Small4K, Builder::Medium, Builder::Ribbon,
                                         Builder::Stadium, Builder::Full}) {
            const SWallPlan plan = Builder::plan(wall);
            row(qPrintable(plan.name), Builder::build(plan).value().ports);
        }
        QVector<Port> nested;
        for (int i = 0; i < 80; ++i)
            nested << SmallWorlds::groupedPort(i, 1024, 16);
        row("80 ports of 1,024 in nested groups", nested);
    }
    void readsBackWhatItBuilt()
    {
        QFETCH(QVector<Port>, ports);
        const LayoutData data = SmallWorlds::data(ports);
        CFixedPortStates states;
        CCabinetGraphicsScene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data);
        QCOMPARE(CSceneVerifier::faultIn(scene), QString());

        CabinetLayout read;
        scene.getLayoutData(read, data.processor);
        QVERIFY(read == data.layout);
    }

    void closesGapsAndRepairsIdentities()
    {
        Port port = SmallWorlds::wiredPort(0, 4);
        auto &cabinets = port.groups[0].cabinets;
        cabinets[0].rank = 40;
        cabinets[1].rank = 7;
        cabinets[2].rank = 7;                // a rank that is given twice keeps the order of the records
        cabinets[3].uuid = cabinets[0].uuid; // a key that is given twice
        cabinets[2].uuid = QUuid();
        const LayoutData data = SmallWorlds::data({port});
        CFixedPortStates states;
        CCabinetGraphicsScene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data);
        QCOMPARE(CSceneVerifier::faultIn(scene), QString());

        CabinetLayout read;
        scene.getLayoutData(read, data.processor);
        const auto all = read.ports.at(0).getAllCabinets();
        QVector<int> ranks;
        QSet<QUuid> keys;
        for (const auto &cabinet : all) {
            ranks << cabinet.rank;
            keys << cabinet.uuid;
        }
        QCOMPARE(ranks, (QVector<int>{3, 1, 2, 0}));
        QCOMPARE(keys.size(), 4);
        QVERIFY(!keys.contains(QUuid()));

        // What has been read once is stable.
        LayoutData again = data;
        again.layout = read;
        scene.setLayoutData(SmallWorlds::node(again), again);
        CabinetLayout second;
        scene.getLayoutData(second, data.processor);
        QVERIFY(second == read);
    }

    void selectsExactlyTheGivenCabinets()
    {
        const LayoutData data = SmallWorlds::data({SmallWorlds::wiredPort(0, 8)});
        const auto all = data.layout.ports.at(0).getAllCabinets();
        CFixedPortStates states;
        CCabinetGraphicsScene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data, {},
                            {all.at(1).uuid, all.at(5).uuid, QUuid::createUuid()});
        const QList<QGraphicsItem *> selected = scene.selectedItems();
        QCOMPARE(selected.size(), 2);
        QVERIFY(selected.contains(scene.itemOf(all.at(1).uuid)));
        QVERIFY(selected.contains(scene.itemOf(all.at(5).uuid)));
    }

    void aGroupIsNeverSelectedWithItsMember()
    {
        const LayoutData data = SmallWorlds::data({SmallWorlds::nestedPort(0)});
        CFixedPortStates states;
        CCabinetGraphicsScene scene(states);
        const auto &outer = data.layout.ports.at(0).groups.at(1);
        const QList<QUuid> both = {outer.uuid, outer.cabinets.at(0).uuid, outer.groups.at(0).uuid};
        scene.setLayoutData(SmallWorlds::node(data), data, {}, both);
        QCOMPARE(scene.selectedItems(), QList<QGraphicsItem *>{scene.itemOf(outer.uuid)});
    }

    void anotherProcessorsLayoutChangesNothing()
    {
        const LayoutData data = SmallWorlds::data({SmallWorlds::wiredPort(0, 4)});
        CFixedPortStates states;
        CCabinetGraphicsScene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data);
        LayoutData other = SmallWorlds::data({});
        scene.setLayoutData(SmallWorlds::node(data), other);
        QCOMPARE(scene.portItems().size(), 1);
        CabinetLayout read;
        scene.getLayoutData(read, other.processor);
        QVERIFY(read == CabinetLayout());
    }

    void handsOverUnchangedPortsShared()
    {
        const LayoutData data =
            SmallWorlds::data({SmallWorlds::wiredPort(0, 4), SmallWorlds::wiredPort(1, 4)});
        CFixedPortStates states;
        CCabinetGraphicsScene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data);
        CabinetLayout first;
        CabinetLayout second;
        scene.getLayoutData(first, data.processor);
        scene.setCabinetLocked(1, true);
        scene.getLayoutData(second, data.processor);
        QCOMPARE(second.ports.at(0).groups.constData(), first.ports.at(0).groups.constData());
        QVERIFY(second.ports.at(1).locked && !first.ports.at(1).locked);
    }

    void zoomsAtTheCursorAndFits()
    {
        const LayoutData data = SmallWorlds::data({SmallWorlds::wiredPort(0, 64)});
        CFixedPortStates states;
        CLayoutGraphicsView view(states);
        view.resize(800, 600);
        view.show();
        view.showLayout(SmallWorlds::node(data), data);
        QVERIFY(QTest::qWaitForWindowExposed(&view, PatienceMilliseconds));
        const QRectF content = view.cabinetScene().contentRect();
        const QRectF shown = view.mapToScene(view.viewport()->rect()).boundingRect();
        QVERIFY(shown.contains(content));
        QVERIFY(view.isFitted());

        const QPoint cursor(230, 170);
        const QPointF below = view.mapToScene(cursor);
        QTest::mouseMove(view.viewport(), cursor);
        QWheelEvent wheel(cursor, view.viewport()->mapToGlobal(cursor), {}, {0, 240}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        const qreal before = view.scaleFactor();
        QCoreApplication::sendEvent(view.viewport(), &wheel);
        QVERIFY(qFuzzyCompare(view.scaleFactor(), before * 1.25 * 1.25));
        const QPointF moved = view.mapFromScene(below) - cursor;
        QVERIFY2(moved.manhattanLength() <= 3, qPrintable(QString::number(moved.manhattanLength())));
        QVERIFY(!view.isFitted());

        view.showActualSize();
        QCOMPARE(view.scaleFactor(), 1.0);
        view.setScaleFactor(1e9);
        QCOMPARE(view.scaleFactor(), CGraphicsView::LargestScale);
    }

    void pansWithLeftAndMiddleButton()
    {
        const LayoutData data = SmallWorlds::data({SmallWorlds::wiredPort(0, 64)});
        CFixedPortStates states;
        CLayoutGraphicsView view(states);
        view.resize(400, 300);
        view.show();
        view.showLayout(SmallWorlds::node(data), data);
        view.showActualSize();
        view.toolBar().chooseMode(CEditorToolBar::Hand);
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton}) {
            const int before = view.horizontalScrollBar()->value();
            QTest::mousePress(view.viewport(), button, Qt::NoModifier, QPoint(200, 150));
            QMouseEvent move(QEvent::MouseMove, QPointF(160, 150),
                             view.viewport()->mapToGlobal(QPoint(160, 150)), Qt::NoButton, button,
                             Qt::NoModifier);
            QCoreApplication::sendEvent(view.viewport(), &move);
            QTest::mouseRelease(view.viewport(), button, Qt::NoModifier, QPoint(160, 150));
            QCOMPARE(view.horizontalScrollBar()->value(), before + 40);
        }
        CabinetLayout read;
        view.cabinetScene().getLayoutData(read, data.processor);
        QVERIFY(read == data.layout); // nothing was dragged along
    }
};

ORVO_TEST_MAIN(QApplication, CLayoutSceneTest)
#include "tst_layout_scene.moc"
