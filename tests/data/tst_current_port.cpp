// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/CurrentPortRule.h"
#include "tests/harness/CTestBase.h"

class CCurrentPortTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsCurrentAfterwards_data()
    {
        QTest::addColumn<int>("event");
        QTest::addColumn<QVector<int>>("ports");
        QTest::addColumn<QVector<int>>("before"); // current, of the wall, chosen
        QTest::addColumn<QVector<int>>("after");  // current, of the wall
        using E = PortEvent;
        using Ports = QVector<int>;
        const Ports four{0, 1, 2, 3};
        const Ports two{0, 1};
        const auto row = [](const char *name, E event, const Ports &ports, const Ports &before,
                            const Ports &after) {
            QTest::newRow(name) << static_cast<int>(event) << ports << before << after;
        };
        row("a detection leaves none", E::Suspended, four, {2, 2, -1}, {-1, 2});
        row("the wall brings its own back", E::WallShown, four, {-1, 2, -1}, {2, 2});
        row("the wall keeps what is current", E::WallShown, four, {1, 2, -1}, {1, 1});
        row("the wall has lost its own", E::WallShown, two, {-1, 2, -1}, {0, 0});
        row("the wall has lost what is current", E::WallShown, two, {3, 1, -1}, {1, 1});
        row("the wall has no ports", E::WallShown, {}, {-1, 2, -1}, {-1, -1});
        row("another wall begins with its first", E::NewWall, {4, 5}, {5, 5, -1}, {4, 4});
        row("another wall without ports", E::NewWall, {}, {2, 2, -1}, {-1, -1});
        row("fewer ports, still there", E::PortsChanged, two, {1, 1, -1}, {1, 1});
        row("fewer ports, gone", E::PortsChanged, two, {2, 2, -1}, {0, 0});
        row("no ports", E::PortsChanged, {}, {2, 2, -1}, {-1, -1});
        row("other ports during a detection", E::PortsChanged, two, {-1, 1, -1}, {-1, 1});
        row("chosen", E::Chosen, four, {0, 0, 3}, {3, 3});
        row("chosen after a detection", E::Chosen, four, {-1, 0, 3}, {3, 3});
        row("chosen, but not there", E::Chosen, two, {1, 1, 3}, {1, 1});
        row("none chosen", E::Chosen, two, {1, 1, -1}, {1, 1});
    }
    void whatIsCurrentAfterwards()
    {
        QFETCH(int, event);
        QFETCH(QVector<int>, ports);
        QFETCH(QVector<int>, before);
        QFETCH(QVector<int>, after);
        const SCurrentPort result =
            CurrentPortRule::after({before[0], before[1]}, static_cast<PortEvent>(event), ports, before[2]);
        QCOMPARE((QVector<int>{result.port, result.ofWall}), after);
    }
};

ORVO_TEST_MAIN(QCoreApplication, CCurrentPortTest)
#include "tst_current_port.moc"
