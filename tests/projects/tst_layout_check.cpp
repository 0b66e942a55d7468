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

LayoutData soundWall()
{
    SWallPlan plan;
    plan.cabinet = {100, 100};
    plan.columns = 6;
    plan.rows = 2;
    plan.ports = 2;
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

    void findsWhatIsTooMuch()
    {
        LayoutData data = soundWall();
        SLayoutLimits limits;
        limits.portLoad = [](const Port &) { return 100; };
        limits.portCount = 2;
        limits.processorPixels = 600 * 200;
        QVERIFY(tells(CLayoutCheck::findings(data, limits), {}));
        limits.portLoad = [](const Port &port) { return port.index == 0 ? 101 : 100; };
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
};

ORVO_TEST_MAIN(QCoreApplication, CLayoutCheckTest)
#include "tst_layout_check.moc"
