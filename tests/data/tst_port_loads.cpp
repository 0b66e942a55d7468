// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/PortLoads.h"
#include "layout/data/TypeLibrarySearch.h"
#include "tests/harness/CTestBase.h"

namespace {

using Port = CabinetLayout::CabinetPort;
using Node = SSettings::TypeLibrary::STreeNode;

QVector<Port> portsWithLoads(const QVector<qint64> &loads)
{
    QVector<Port> ports;
    for (const qint64 load : loads) {
        Port port;
        port.index = ports.size();
        port.load = load;
        ports << port;
    }
    return ports;
}

SMD5 keyOf(const char *text)
{
    return SMD5::ofContent(text);
}

Node type(const char *name, const char *key)
{
    Node node;
    node.name = node.info.name = QString::fromLatin1(name);
    node.key = node.info.key = keyOf(key);
    return node;
}

Node folder(const QVector<Node> &children)
{
    Node node;
    node.kind = Node::Folder;
    node.children = children;
    return node;
}

} // namespace

class CPortLoadsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void roundsTheMeanUpButForAThousandth_data()
    {
        QTest::addColumn<QVector<qint64>>("loads");
        QTest::addColumn<int>("load");
        QTest::newRow("no ports") << QVector<qint64>{} << 0;
        QTest::newRow("idle") << QVector<qint64>{0, 0} << 0;
        QTest::newRow("whole") << QVector<qint64>{100, 50} << 75;
        QTest::newRow("a third") << QVector<qint64>{100, 100, 101} << 101;
        QTest::newRow("half") << QVector<qint64>{100, 101} << 101;
        QVector<qint64> fortyAndAHalfThousandth(2000, 40);
        fortyAndAHalfThousandth[0] = 41;
        QTest::newRow("40.0005") << fortyAndAHalfThousandth << 40;
        QVector<qint64> fortyAndTwoThousandths(500, 40);
        fortyAndTwoThousandths[7] = 41;
        QTest::newRow("40.002") << fortyAndTwoThousandths << 41;
        QTest::newRow("overloaded") << QVector<qint64>{250, 250} << 250;
    }
    void roundsTheMeanUpButForAThousandth()
    {
        QFETCH(QVector<qint64>, loads);
        QFETCH(int, load);
        QCOMPARE(PortLoads::processorLoad(portsWithLoads(loads)), load);
    }

    void aRedundancyPortShowsThePrimarysLoad()
    {
        CabinetLayout layout;
        layout.processor = QUuid::createUuid();
        layout.ports = portsWithLoads({0, 0, 0});
        layout.ports[0].redundancy = Port::Primary;
        layout.ports[0].redundancyPort = 2;
        layout.ports[2].redundancy = Port::Redundant;
        layout.ports[2].redundancyPort = 0;
        QCOMPARE(PortLoads::loadBearer(layout, 2)->index, 0);
        QCOMPARE(PortLoads::loadBearer(layout, 0)->index, 0);
        QCOMPARE(PortLoads::loadFollower(layout, 0), 2);
        QCOMPARE(PortLoads::loadFollower(layout, 2), -1);
        QCOMPARE(PortLoads::loadFollower(layout, 1), -1);
        QVERIFY(!PortLoads::loadBearer(layout, 3));

        layout.ports[0].redundancyProcessor = layout.ports[2].redundancyProcessor = QUuid::createUuid();
        QCOMPARE(PortLoads::loadBearer(layout, 2)->index, 2); // the primary is on another processor
        QCOMPARE(PortLoads::loadFollower(layout, 0), -1);
    }

    void findsTypesInTheLibrary_data()
    {
        QTest::addColumn<QVector<Node>>("library");
        QTest::addColumn<QString>("name");
        const Node a = type("a", "x");
        const Node b = type("b", "x");
        const Node other = type("other", "y");
        QTest::newRow("empty") << QVector<Node>{} << QString();
        QTest::newRow("unknown") << QVector<Node>{other, folder({other})} << QString();
        QTest::newRow("the first of a sequence") << QVector<Node>{other, a, b} << QStringLiteral("a");
        QTest::newRow("a folder does not stop its siblings")
            << QVector<Node>{folder({a}), other, b} << QStringLiteral("b");
        QTest::newRow("nor one below it")
            << QVector<Node>{folder({folder({a}), b}), other} << QStringLiteral("b");
        QTest::newRow("a type stops before later folders")
            << QVector<Node>{a, folder({b})} << QStringLiteral("a");
        QTest::newRow("a folder's own key counts for nothing") << QVector<Node>{[] {
            Node named = folder({});
            named.key = keyOf("x");
            named.info.name = QStringLiteral("folder");
            return named;
        }()} << QString();
    }
    void findsTypesInTheLibrary()
    {
        QFETCH(QVector<Node>, library);
        QFETCH(QString, name);
        Node::RcvTypeInfo info;
        TypeLibrarySearch::find(library, keyOf("x"), info);
        QCOMPARE(info.name, name);
        QCOMPARE(info.isValid(), !name.isEmpty());
    }
};

ORVO_TEST_MAIN(QCoreApplication, CPortLoadsTest)
#include "tst_port_loads.moc"
