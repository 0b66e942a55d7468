// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CLayoutCheck.h"
#include "host/projects/COverlapSweep.h"
#include "host/projects/CWallBuilder.h"
#include "tests/harness/CTestBase.h"

#include <QRandomGenerator>
#include <QSet>

using Port = CabinetLayout::CabinetPort;
using Cabinet = Port::Cabinet;

namespace {

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

LayoutData soundWall()
{
    const SWallPlan plan = wallPlan({100, 100}, 6, 2, 2);
    LayoutData data;
    data.layout = CWallBuilder::build(plan).value();
    data.canvas = plan.canvas();
    return data;
}

Cabinet &cabinetOf(LayoutData &data, int port, int index)
{
    return data.layout.ports[port].groups[0].cabinets[index];
}

/// Whether the findings are these, each by the beginning of its text.
bool tells(const QVector<SLayoutFinding> &findings, std::initializer_list<const char *> beginnings)
{
    return std::equal(findings.begin(), findings.end(), beginnings.begin(), beginnings.end(),
                      [](const SLayoutFinding &finding, const char *beginning) {
                          return finding.text.startsWith(QLatin1String(beginning));
                      });
}

} // namespace

/// Walls: made without faults, and what is found where there are some.
class CLayoutCheckTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void findsWrongWiring()
    {
        LayoutData data = soundWall();
        cabinetOf(data, 0, 1).rank = -1;
        cabinetOf(data, 0, 2).rank = 3;
        cabinetOf(data, 1, 4).rank = 9;
        QVERIFY(tells(CLayoutCheck::findings(data),
                      {"Port 1: the cabinet at (100, 0) is not wired",
                       "Port 1: the wiring skips from place 1 to place 4, the cabinet at (200, 0)",
                       "Port 1: the cabinet at (200, 100) is not the only one at place 4",
                       "Port 2: the wiring skips from place 4 to place 6, the cabinet at (300, 100)",
                       "Port 2: the wiring skips from place 6 to place 10, the cabinet at (400, 100)"}));
    }

    void findsWrongPlacement()
    {
        LayoutData data = soundWall();
        cabinetOf(data, 0, 0).rect.translate(-1, 0);
        cabinetOf(data, 0, 1).rect.setRight(200);
        cabinetOf(data, 1, 0).rect = cabinetOf(data, 0, 5).rect;
        cabinetOf(data, 1, 1).rect = QRect(400, 0, 0, 100);
        const QVector<SLayoutFinding> findings = CLayoutCheck::findings(data);
        QVERIFY(
            tells(findings, {"Port 1: the cabinet at (200, 0) overlaps the cabinet at (100, 0) of port 1",
                             "Port 1: the cabinet at (-1, 0) lies outside the canvas",
                             "Port 2: the cabinet at (0, 100) has the same position as a cabinet of port 1",
                             "Port 2: the cabinet at (400, 0) is 0x100 pixels"}));
        QCOMPARE(findings.at(1).cabinet, cabinetOf(data, 0, 0).uuid);
    }

    void findsWrongReceivers()
    {
        LayoutData data = soundWall();
        cabinetOf(data, 0, 0).rects = {{0, 0, 50, 100}, {50, 0, 50, 90}}; // a gap is nothing wrong
        cabinetOf(data, 0, 1).rects = {{0, 0, 51, 100}, {50, 0, 50, 100}};
        cabinetOf(data, 0, 2).rects = {{0, 0, 100, 101}};
        cabinetOf(data, 1, 0).rects = {{0, 0, 100, 100}, {0, 0, 0, 100}};
        QVERIFY(tells(CLayoutCheck::findings(data),
                      {"Port 1: a receiver area of the cabinet at (100, 0) overlaps another one",
                       "Port 1: a receiver area of the cabinet at (200, 0) lies outside the cabinet",
                       "Port 2: a receiver area of the cabinet at (300, 0) is empty"}));
    }

    void findsReceiversThatDoNotFollowFromTheOriginalOnes()
    {
        LayoutData data = soundWall();
        const auto original = [](int width, const QVector<QRect> &rects) {
            return std::make_shared<const Port::SOriginalAreas>(
                Port::SOriginalAreas{{width, 100}, rects, QVector<QRect>()});
        };
        const QVector<QRect> halves{{0, 0, 50, 100}, {50, 0, 50, 100}};
        const QVector<QRect> wide{{0, 0, 64, 100}, {64, 0, 64, 100}};
        for (const auto &[index, rects, from] :
             {std::tuple(0, halves, original(128, wide)),
              {1, {{0, 0, 50, 100}, {60, 0, 40, 100}}, original(128, wide)},
              {2, halves, original(128, {{0, 0, 64, 100}, {64, 0, 65, 100}})}}) {
            cabinetOf(data, 0, index).rects = rects;
            cabinetOf(data, 0, index).original = from;
        }
        QVERIFY(tells(
            CLayoutCheck::findings(data),
            {"Port 1: a receiver area of the cabinet at (100, 0) is not the original one scaled to this size",
             "Port 1: a receiver area of the cabinet at (200, 0) lies outside the cabinet in the original"}));
    }

    void findsWhatIsTooMuch()
    {
        LayoutData data = soundWall();
        SLayoutLimits limits;
        SPortLoad load;
        load.pixels = 300 * 200;
        load.percent = 100;
        limits.portLoad = [&load](const Port &) { return load; };
        limits.portCount = 2;
        limits.processorPixels = 600 * 200;
        QVERIFY(tells(CLayoutCheck::findings(data, limits), {}));
        limits.portLoad = [&load](const Port &port) {
            load.percent = port.index == 0 ? 101 : 100;
            return load;
        };
        limits.portCount = 1;
        --limits.processorPixels;
        QVERIFY(tells(CLayoutCheck::findings(data, limits),
                      {"Processor: overloaded, 120000 pixels, the most is 119999",
                       "Port 1: overloaded, 101 %", "Port 2: the processor uses only 1"}));

        QVector<Cabinet> &cabinets = data.layout.ports[0].groups[0].cabinets;
        for (int i = cabinets.size(); i < 1025; ++i) {
            cabinets.append(cabinets.last());
            cabinets.last().rank = i;
            cabinets.last().rect.translate(0, 100);
        }
        data.canvas = {};
        QVERIFY(tells(CLayoutCheck::findings(data), {"Port 1: 1025 cabinets, the most is 1024"}));
    }

    void sweepFindsWhatComparingAllPairsFinds()
    {
        QRandomGenerator random(7);
        for (int round = 0; round < 200; ++round) {
            QVector<QRect> rects;
            for (int i = 0; i < 40; ++i)
                rects.append(
                    {random.bounded(300), random.bounded(300), random.bounded(1, 60), random.bounded(1, 60)});
            QSet<int> found;
            for (const COverlapSweep::SPair &pair : COverlapSweep::pairs(rects)) {
                QVERIFY(rects.at(pair.earlier).intersects(rects.at(pair.later)));
                found.insert(pair.later);
            }
            QSet<int> expected;
            for (int i = 0; i < rects.size(); ++i) {
                for (int j = 0; j < rects.size(); ++j) {
                    if (std::pair(rects.at(j).left(), j) < std::pair(rects.at(i).left(), i) &&
                        rects.at(i).intersects(rects.at(j)))
                        expected.insert(i);
                }
            }
            QCOMPARE(found, expected);
        }
    }

    void wallsAreBuiltWithoutFaults()
    {
        using B = CWallBuilder;
        for (const auto &[wall, cabinets, canvas] : {std::tuple(B::Small, 48, QSize(2560, 1440)),
                                                     {B::Ribbon, 877, QSize(28064, 48)},
                                                     {B::Stadium, 5600, QSize(10752, 4800)},
                                                     {B::Full, 80 * 1024, QSize(7680, 6144)}}) {
            const SWallPlan plan = B::plan(wall);
            LayoutData data;
            data.layout = B::build(plan).value();
            data.canvas = plan.canvas();
            QCOMPARE(data.layout.cabinetCount(), cabinets);
            QCOMPARE(data.canvas, canvas);
            QCOMPARE(data.layout.boundingRect(), QRect({0, 0}, canvas));
            QVERIFY(CLayoutCheck::findings(data).isEmpty());
            QVERIFY(B::build(plan).value() == data.layout);
            QSet<QUuid> identities;
            for (const Port &port : qAsConst(data.layout.ports)) {
                for (const Cabinet &cabinet : port.getAllCabinets()) {
                    identities.insert(cabinet.uuid);
                    QCOMPARE(cabinet.port, port.index);
                }
            }
            QCOMPARE(identities.size(), cabinets);
        }
    }

    void portsShareAWallInSquareBlocksOrInRuns()
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

    void eachPortIsWiredByThePattern()
    {
        QVector<QPoint> starts; // of the first port
        for (int pattern = 0; pattern < 8; ++pattern) {
            const auto layout = CWallBuilder::build(wallPlan({20, 10}, 6, 4, 2, pattern)).value();
            for (const Cabinet &cabinet : layout.ports.first().getAllCabinets()) {
                if (cabinet.rank == 0)
                    starts << cabinet.rect.topLeft();
            }
        }
        QCOMPARE(starts.size(), 8);
        std::sort(starts.begin(), starts.end(), [](const QPoint &a, const QPoint &b) {
            return std::make_pair(a.x(), a.y()) < std::make_pair(b.x(), b.y());
        });
        QCOMPARE(std::unique(starts.begin(), starts.end()) - starts.begin(), 4); // its corners
    }

    void impossiblePlansAreRefused()
    {
        SWallPlan uneven = wallPlan({8, 8}, 4, 4, 3);
        uneven.portGrid = {3, 1};
        for (const auto &[plan, reason] : {std::pair(wallPlan({8, 8}, 41, 25, 1), "up to 1024"),
                                           {wallPlan({0, 8}, 2, 2, 1), "0x8"},
                                           {wallPlan({2049, 8}, 2, 2, 1), "2049x8"},
                                           {wallPlan({2048, 8}, 17, 1, 1), "34816x8"},
                                           {wallPlan({8, 8}, 2, 0, 1), "0 rows"},
                                           {wallPlan({8, 8}, 999999999, 999999999, 80), "999999999"},
                                           {wallPlan({8, 8}, 2, 2, 0), "not 0"},
                                           {wallPlan({8, 8}, 20, 20, 81), "not 81"},
                                           {wallPlan({8, 8}, 2, 2, 5), "4 cabinets are too few"},
                                           {wallPlan({8, 8}, 1, 1, 2), "1 cabinet is too few"},
                                           {wallPlan({8, 8}, 2, 2, 1, 8), "not 8"},
                                           {uneven, "4x4"}}) {
            const auto layout = CWallBuilder::build(plan);
            QVERIFY(!layout);
            QVERIFY2(layout.error().contains(QLatin1String(reason)), qPrintable(layout.error()));
        }
    }
};

ORVO_TEST_MAIN(QCoreApplication, CLayoutCheckTest)
#include "tst_layout_check.moc"
