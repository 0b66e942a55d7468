// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/CProcessorStates.h"
#include "layout/data/CurrentPortRule.h"
#include "layout/data/PortLoads.h"
#include "layout/data/PortRedundancyNote.h"
#include "tests/harness/CTestBase.h"

#include <functional>

namespace {

using Port = PortPairs::Port;

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

const QUuid Own(1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
const QUuid Other(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);

/// A port with @p cabinets wired ones, in two groups and stored against the order of their wiring.
Port portWith(int index, int cabinets)
{
    Port port;
    port.index = index;
    port.groups.resize(2);
    port.groups[1].uuid = QUuid::createUuid();
    for (int rank = cabinets - 1; rank >= 0; --rank) {
        Port::Cabinet cabinet;
        cabinet.uuid = QUuid::createUuid();
        cabinet.rect = QRect(100 * rank, 0, 100, 100);
        cabinet.rank = rank;
        cabinet.mappingIndex = rank;
        port.groups[rank % 2].cabinets << cabinet;
    }
    return port;
}

/// Two processors with two ports each: the first of @c Own in a pair with the second, of @p redundancy.
struct SPairOfPorts
{
    explicit SPairOfPorts(const QUuid &redundancy)
        : backup{redundancy, 1}
    {
        for (const QUuid &key : {Own, Other})
            layouts.insert(key, {key, {portWith(0, 3), portWith(1, 0)}});
        PortPairs::setPair(primaryPort(), Own, Port::Primary, backup);
        PortPairs::setPair(backupPort(), backup.processor, Port::Redundant, {Own, 0});
        giveMirror();
    }

    Port &primaryPort() { return layouts[Own].ports[0]; }
    Port &backupPort() { return layouts[backup.processor].ports[1]; }
    void giveMirror() { backupPort().mirrored = PortPairs::mirrorOf(primaryPort()); }
    PortPairs::LayoutOf layoutOf() const
    {
        return [this](const QUuid &processor) { return layouts.value(processor); };
    }
    SPortRedundancyNote noteOf(const SPortKey &port) const
    {
        const auto nodeOf = [](const QUuid &) {
            ProcessorTree::ProcessorNode node;
            node.index = 2;
            node.name = QStringLiteral("Stage");
            return node;
        };
        return SPortRedundancyNote::of(layouts.value(port.processor), port.port, layoutOf(), nodeOf);
    }

    QHash<QUuid, CabinetLayout> layouts;
    SPortKey backup;
};

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
        CabinetLayout layout{Own, portsWithLoads({0, 0, 0})};
        PortPairs::setPair(layout.ports[0], Own, Port::Primary, {Own, 2});
        PortPairs::setPair(layout.ports[2], Own, Port::Redundant, {Own, 0});
        QCOMPARE(PortLoads::loadBearer(layout, 2)->index, 0);
        QVERIFY(!PortLoads::loadBearer(layout, 3));
        QCOMPARE(PortLoads::loadFollower(layout, 0), 2);
        QCOMPARE(PortLoads::loadFollower(layout, 2), -1);
        layout.ports[0].redundancyProcessor = layout.ports[2].redundancyProcessor = Other;
        QCOMPARE(PortLoads::loadBearer(layout, 2)->index, 2); // its own, the primary is elsewhere
        QCOMPARE(PortLoads::loadFollower(layout, 0), -1);
    }

    void aLoadThatComesTooLateIsRefused()
    {
        CProcessorStates states;
        states.takeFromHost(Own, portsWithLoads({0, 0, 0}), false);
        states.takeFromHost(Other, portsWithLoads({0, 0}), false);
        states.setCurrent(Own);
        const auto question = states.loadQuestion(1);
        QVERIFY(question);
        states.setCurrent(Other); // while the host was asked
        QVERIFY(!states.setLoad(question->processor, 1, 70));
        QCOMPARE(states.port(1).load, qint64(0));
        QVERIFY(states.setLoad(Other, 1, 70));
        QVERIFY(!states.setLoad(Other, 2, 70)); // no such port
        QVERIFY(!states.loadQuestion(2));
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
            {E::Suspended, four, {2, 2, -1}, {-1, 2}},    {E::WallShown, four, {-1, 2, -1}, {2, 2}},
            {E::WallShown, two, {-1, 2, -1}, {0, 0}}, // it has lost its own
            {E::WallShown, two, {3, 1, -1}, {1, 1}},      {E::WallShown, {}, {-1, 2, -1}, {-1, -1}},
            {E::NewWall, {4, 5}, {5, 5, -1}, {4, 4}},     {E::PortsChanged, two, {2, 2, -1}, {0, 0}},
            {E::PortsChanged, two, {-1, 1, -1}, {-1, 1}}, // during a detection
            {E::Chosen, four, {0, 0, 3}, {3, 3}},         {E::Chosen, four, {-1, 0, 3}, {3, 3}},
            {E::Chosen, two, {1, 1, 3}, {1, 1}}, // it is not there
        };
        for (const SCase &one : cases) {
            const SCurrentPort result =
                CurrentPortRule::after({one.before[0], one.before[1]}, one.event, one.ports, one.before[2]);
            const QByteArray which = "case " + QByteArray::number(int(&one - cases));
            QVERIFY2(result.port == one.after[0] && result.ofWall == one.after[1], which);
        }
    }

    void tellsWhatIsToDoForAPairOfPorts()
    {
        using Pair = SPairOfPorts;
        const char *broken = "Please reset the mapping.";
        struct SCase
        {
            bool across;
            std::function<void(Pair &)> change;
            const char *text; // of the redundancy port
            bool needsReset;
            bool primaryNeedsReset;
        };
        const auto nothing = [](Pair &) {};
        const auto move = [](Pair &p) { p.primaryPort().groups[0].cabinets[0].rect.translate(1, 0); };
        const auto wireAnotherWay = [](Pair &p) {
            auto &groups = p.primaryPort().groups;
            std::swap(groups[0].cabinets[0].rank, groups[1].cabinets[0].rank);
        };
        const auto part = [](Pair &p) {
            PortPairs::setPair(p.primaryPort(), Own, Port::NoRedundancy, {});
            PortPairs::setPair(p.backupPort(), Own, Port::NoRedundancy, {});
        };
        const auto forgetPrimary = [](Pair &p) {
            PortPairs::setPair(p.primaryPort(), Own, Port::NoRedundancy, {});
        };
        const SCase cases[] = {
            {false, nothing, "Redundancy for output port1", false, false},
            {true, nothing, "Redundancy for processor3(Stage)", false, false},
            {false, move, "Redundancy for output port1, please reset the mapping.", true, false},
            {true, move, "Redundancy for processor3(Stage) output port1, please reset the mapping.", true,
             false},
            {false, wireAnotherWay, "Redundancy for output port1, please reset the mapping.", true, false},
            {true, [](Pair &p) { p.layouts.remove(Own); }, broken, true, false},
            {true, [](Pair &p) { p.layouts.remove(Other); }, "", false, true},
            {false, forgetPrimary, broken, true, false},
            {false, [](Pair &p) { p.primaryPort().redundancyPort = 7; }, broken, true, true},
            {false, [](Pair &p) { p.backupPort().redundancy = Port::Primary; }, broken, true, true},
            {false, part, "", false, false}};
        for (const SCase &one : cases) {
            Pair pair(one.across ? Other : Own);
            one.change(pair);
            const SPortRedundancyNote note = pair.noteOf(pair.backup);
            QCOMPARE(note.text, QLatin1String(one.text));
            QCOMPARE(note.needsReset, one.needsReset);
            const SPortRedundancyNote primary = pair.noteOf({Own, 0});
            QCOMPARE(primary.text, QLatin1String(one.primaryNeedsReset ? broken : ""));
            QCOMPARE(primary.needsReset, one.primaryNeedsReset);
        }
    }

    void givesMirrorsWhereTheyDiffer()
    {
        SPairOfPorts pair(Own);
        CabinetLayout &layout = pair.layouts[Own];
        QCOMPARE(PortPairs::giveMirrors(layout, pair.layoutOf()), QVector<int>());
        pair.primaryPort().groups.clear();
        QCOMPARE(PortPairs::giveMirrors(layout, pair.layoutOf()), QVector<int>{1});
        QVERIFY(pair.backupPort().mirrored.isEmpty());
    }

    void dissolvingKeepsCabinetsWithoutOrder()
    {
        Port port = portWith(0, 3);
        PortPairs::dissolve(port);
        QCOMPARE(port.groups.size(), 1);
        QVERIFY(port.groups.first().isLoose());
        QCOMPARE(port.cabinetCount(), 3);
        QVERIFY(PortPairs::mirrorOf(port).isEmpty()); // which takes wired ones only
    }
};

ORVO_TEST_MAIN(QCoreApplication, CStoreRulesTest)
#include "tst_store_rules.moc"
