// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/screen/LitWall.h"
#include "tests/harness/CTestBase.h"

/// Port 1 with two wired cabinets and one that is not, port 2 its redundancy, port 3 with one wired cabinet.
class CLitWallTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void showsWhatASignalReaches_data()
    {
        QTest::addColumn<QVector<int>>("unplugged");
        QTest::addColumn<bool>("stale"); // the mirror lacks the second cabinet
        QTest::addColumn<bool>("paired");
        QTest::addColumn<QVector<int>>("lit"); // cabinets by port
        QTest::newRow("all plugged in") << QVector<int>{} << false << true << QVector<int>{3, 0, 1};
        QTest::newRow("a port alone") << QVector<int>{2} << false << true << QVector<int>{3, 0, 0};
        QTest::newRow("a primary") << QVector<int>{0} << false << true << QVector<int>{3, 0, 1};
        QTest::newRow("edited since") << QVector<int>{0} << true << true << QVector<int>{2, 0, 1};
        QTest::newRow("both") << QVector<int>{0, 1} << false << true << QVector<int>{1, 0, 1};
        QTest::newRow("the redundancy") << QVector<int>{1} << true << true << QVector<int>{3, 0, 1};
        QTest::newRow("broken pair") << QVector<int>{0} << false << false << QVector<int>{1, 0, 1};
    }
    void showsWhatASignalReaches()
    {
        QFETCH(QVector<int>, unplugged);
        QFETCH(bool, stale);
        QFETCH(bool, paired);
        const QUuid own = QUuid::createUuid();
        CabinetLayout wall{own, {port(0, {0, 1, -1}), port(1, {}), port(2, {0})}};
        PortPairs::setPair(wall.ports[0], own, PortPairs::Port::Primary, {own, 1});
        if (paired)
            PortPairs::setPair(wall.ports[1], own, PortPairs::Port::Redundant, {own, 0});
        wall.ports[1].mirrored = PortPairs::mirrorOf(wall.ports.at(0));
        if (stale)
            wall.ports[1].mirrored.removeLast();
        QSet<SPortKey> pulled;
        for (const int index : unplugged)
            pulled.insert({own, index});
        const auto elsewhere = [](const QUuid &) { return CabinetLayout(); };
        QVector<int> lit;
        for (const PortPairs::Port &shown : LitWall::of(wall, pulled, elsewhere).ports)
            lit << shown.cabinetCount();
        QTEST(lit, "lit");
    }

private:
    static PortPairs::Port port(int index, const QVector<int> &ranks)
    {
        PortPairs::Port port;
        port.index = index;
        port.groups.resize(1);
        for (const int rank : ranks) {
            PortPairs::Port::Cabinet cabinet;
            cabinet.uuid = QUuid::createUuid();
            cabinet.rect = QRect(100 * rank, 100 * index, 100, 100);
            cabinet.rank = rank;
            port.groups[0].cabinets << cabinet;
        }
        return port;
    }
};

ORVO_TEST_MAIN(QCoreApplication, CLitWallTest)
#include "tst_lit_wall.moc"
