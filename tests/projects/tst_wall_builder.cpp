// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CLayoutCheck.h"
#include "host/projects/CWallBuilder.h"
#include "layout/geometry/CSnakeOrder.h"
#include "tests/harness/CTestBase.h"

#include <QSet>

Q_DECLARE_METATYPE(SWallPlan)

using Port = CabinetLayout::CabinetPort;
using Cabinet = Port::Cabinet;

namespace {

QVector<SLayoutFinding> problemsOf(const CabinetLayout &layout, const QSize &canvas)
{
    LayoutData data;
    data.layout = layout;
    data.canvas = canvas;
    return CLayoutCheck::findings(data);
}

SWallPlan wallPlan(const QSize &cabinet, int columns, int rows, int ports, int pattern = 0)
{
    SWallPlan plan;
    plan.name = QStringLiteral("wall");
    plan.cabinet = cabinet;
    plan.columns = columns;
    plan.rows = rows;
    plan.ports = ports;
    plan.pattern = pattern;
    return plan;
}

QRect areaOf(const Port &port)
{
    QRect area;
    for (const Cabinet &cabinet : port.getAllCabinets())
        area |= cabinet.rect;
    return area;
}

} // namespace

class CWallBuilderTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void buildsSoundWalls_data()
    {
        QTest::addColumn<int>("wall");
        QTest::addColumn<int>("cabinets");
        QTest::addColumn<QSize>("canvas");
        QTest::newRow("small") << int(CWallBuilder::Small) << 48 << QSize(2560, 1440);
        QTest::newRow("ribbon") << int(CWallBuilder::Ribbon) << 877 << QSize(28064, 48);
        QTest::newRow("stadium") << int(CWallBuilder::Stadium) << 5600 << QSize(10752, 4800);
        QTest::newRow("full") << int(CWallBuilder::Full) << 80 * 1024 << QSize(7680, 6144);
    }
    void buildsSoundWalls()
    {
        QFETCH(int, wall);
        QFETCH(int, cabinets);
        QFETCH(QSize, canvas);
        const SWallPlan plan = CWallBuilder::plan(CWallBuilder::Wall(wall));
        const auto layout = CWallBuilder::build(plan);
        QVERIFY2(layout, qPrintable(layout.error()));
        QCOMPARE(layout.value().cabinetCount(), cabinets);
        QCOMPARE(plan.canvas(), canvas);
        QCOMPARE(layout.value().boundingRect(), QRect({0, 0}, canvas));
        QVERIFY(problemsOf(layout.value(), canvas).isEmpty());
        QVERIFY(CWallBuilder::build(plan).value() == layout.value());
        QSet<QUuid> identities;
        for (const Port &port : layout.value().ports) {
            for (const Cabinet &cabinet : port.getAllCabinets()) {
                identities.insert(cabinet.uuid);
                QCOMPARE(cabinet.port, port.index);
            }
        }
        QCOMPARE(identities.size(), cabinets);
    }

    void sharesOutInSquareBlocksOrInRuns()
    {
        // 12 ports cut the wall into blocks of 1x8, 2x4 or 4x2 cabinets; these are twice as wide as high.
        const CabinetLayout blocks = CWallBuilder::build(wallPlan({64, 32}, 12, 8, 12)).value();
        for (const Port &port : blocks.ports)
            QCOMPARE(areaOf(port).size(), QSize(128, 128));
        QCOMPARE(areaOf(blocks.ports.at(1)).topLeft(), QPoint(128, 0));
        QVector<QRect> runs;
        const CabinetLayout row = CWallBuilder::build(wallPlan({10, 10}, 7, 1, 3)).value();
        for (const Port &port : row.ports)
            runs << areaOf(port);
        QCOMPARE(runs, (QVector<QRect>{{0, 0, 30, 10}, {30, 0, 20, 10}, {50, 0, 20, 10}}));
    }

    void wiresEachPortByThePattern()
    {
        constexpr int Pattern = 5;
        const auto layout = CWallBuilder::build(wallPlan({20, 10}, 6, 4, 2, Pattern));
        for (const Port &port : layout.value().ports) {
            QVector<CSnakeOrder::SCell> cells;
            const QVector<Cabinet> cabinets = port.getAllCabinets();
            for (const Cabinet &cabinet : cabinets)
                cells.append({QRectF(cabinet.rect), cabinet.uuid});
            const QVector<int> order = CSnakeOrder::order(cells, Pattern);
            for (int place = 0; place < order.size(); ++place)
                QCOMPARE(cabinets.at(order.at(place)).rank, place);
        }
    }

    void refusesImpossiblePlans_data()
    {
        QTest::addColumn<SWallPlan>("plan");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char *name, const SWallPlan &plan, const char *reason) {
            QTest::newRow(name) << plan << QString::fromLatin1(reason);
        };
        row("too many a port", wallPlan({8, 8}, 41, 25, 1), "up to 1024");
        row("no size", wallPlan({0, 8}, 2, 2, 1), "0x8");
        row("too large", wallPlan({2049, 8}, 2, 2, 1), "2049x8");
        row("canvas", wallPlan({2048, 8}, 17, 1, 1), "34816x8");
        row("no rows", wallPlan({8, 8}, 2, 0, 1), "0 rows");
        row("endless", wallPlan({8, 8}, 999999999, 999999999, 80), "999999999");
        row("no ports", wallPlan({8, 8}, 2, 2, 0), "not 0");
        row("too many ports", wallPlan({8, 8}, 20, 20, 81), "not 81");
        row("empty ports", wallPlan({8, 8}, 2, 2, 5), "too few");
        row("pattern", wallPlan({8, 8}, 2, 2, 1, 8), "not 8");
        SWallPlan uneven = wallPlan({8, 8}, 4, 4, 3);
        uneven.portGrid = {3, 1};
        row("uneven blocks", uneven, "4x4");
    }
    void refusesImpossiblePlans()
    {
        QFETCH(SWallPlan, plan);
        QFETCH(QString, reason);
        const auto layout = CWallBuilder::build(plan);
        QVERIFY(!layout);
        QVERIFY2(layout.error().contains(reason), qPrintable(layout.error()));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CWallBuilderTest)
#include "tst_wall_builder.moc"
