// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/CurrentPortRule.h"
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

class CStoreRulesTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void roundsTheMeanUpButForAThousandth()
    {
        const auto load = [](const QVector<qint64> &loads) {
            return PortLoads::processorLoad(portsWithLoads(loads));
        };
        QCOMPARE(load({}), 0);
        QCOMPARE(load({100, 50}), 75);
        QCOMPARE(load({100, 100, 101}), 101);
        QCOMPARE(load({250, 250}), 250);
        QVector<qint64> loads(2000, 40);
        loads[0] = 41;
        QCOMPARE(load(loads), 40); // 40.0005
        QCOMPARE(load(loads.mid(0, 500)), 41);
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

    void findsTypesInTheLibrary()
    {
        const Node a = type("a", "x");
        const Node b = type("b", "x");
        const Node other = type("other", "y");
        Node named = folder({});
        named.key = keyOf("x");
        named.info.name = QStringLiteral("folder");
        const QVector<QPair<QVector<Node>, const char *>> libraries{
            {{other, folder({other})}, ""},
            {{other, a, b}, "a"},
            {{folder({a}), other, b}, "b"}, // a folder does not stop its siblings
            {{folder({folder({a}), b}), other}, "b"},
            {{a, folder({b})}, "a"},
            {{named}, ""}};
        for (const auto &[library, name] : libraries) {
            Node::RcvTypeInfo info;
            TypeLibrarySearch::find(library, keyOf("x"), info);
            QCOMPARE(info.name, QLatin1String(name));
            QCOMPARE(info.isValid(), *name != 0);
        }
    }

    void whatIsCurrentAfterwards()
    {
        using E = PortEvent;
        using Ports = QVector<int>;
        struct SCase
        {
            E event;
            Ports ports;
            int before[3]; // current, of the wall, chosen
            int after[2];  // current, of the wall
        };
        const Ports four{0, 1, 2, 3};
        const Ports two{0, 1};
        const SCase cases[] = {
            {E::Suspended, four, {2, 2, -1}, {-1, 2}},
            {E::WallShown, four, {-1, 2, -1}, {2, 2}},
            {E::WallShown, four, {1, 2, -1}, {1, 1}},
            {E::WallShown, two, {-1, 2, -1}, {0, 0}}, // it has lost its own
            {E::WallShown, two, {3, 1, -1}, {1, 1}},
            {E::WallShown, {}, {-1, 2, -1}, {-1, -1}},
            {E::NewWall, {4, 5}, {5, 5, -1}, {4, 4}},
            {E::NewWall, {}, {2, 2, -1}, {-1, -1}},
            {E::PortsChanged, two, {1, 1, -1}, {1, 1}},
            {E::PortsChanged, two, {2, 2, -1}, {0, 0}},
            {E::PortsChanged, {}, {2, 2, -1}, {-1, -1}},
            {E::PortsChanged, two, {-1, 1, -1}, {-1, 1}}, // during a detection
            {E::Chosen, four, {0, 0, 3}, {3, 3}},
            {E::Chosen, four, {-1, 0, 3}, {3, 3}},
            {E::Chosen, two, {1, 1, 3}, {1, 1}}, // it is not there
            {E::Chosen, two, {1, 1, -1}, {1, 1}},
        };
        for (const SCase &one : cases) {
            const SCurrentPort result =
                CurrentPortRule::after({one.before[0], one.before[1]}, one.event, one.ports, one.before[2]);
            const QByteArray which = "case " + QByteArray::number(int(&one - cases));
            QVERIFY2(result.port == one.after[0] && result.ofWall == one.after[1], which);
        }
    }
};

ORVO_TEST_MAIN(QCoreApplication, CStoreRulesTest)
#include "tst_store_rules.moc"
