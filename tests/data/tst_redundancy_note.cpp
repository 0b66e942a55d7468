// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/PortRedundancyNote.h"
#include "tests/harness/CTestBase.h"

namespace {

using Port = PortPairs::Port;

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

using Change = std::function<void(SPairOfPorts &)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class CRedundancyNoteTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatIsToDo_data()
    {
        QTest::addColumn<bool>("across");
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("text"); // of the redundancy port
        QTest::addColumn<bool>("needsReset");
        QTest::addColumn<bool>("primaryNeedsReset");
        const QString same = QStringLiteral("Redundancy for output port1");
        const QString across = QStringLiteral("Redundancy for processor3(Stage)");
        const QString reset = QStringLiteral(", please reset the mapping.");
        const QString broken = QStringLiteral("Please reset the mapping.");
        const auto row = [](const char *name, bool isAcross, const Change &change, const QString &text,
                            bool needsReset, bool primaryNeedsReset) {
            QTest::newRow(name) << isAcross << change << text << needsReset << primaryNeedsReset;
        };
        const Change nothing = [](SPairOfPorts &) {};
        const Change moved = [](SPairOfPorts &p) {
            p.primaryPort().groups[0].cabinets[0].rect.translate(1, 0);
        };
        row("same processor", false, nothing, same, false, false);
        row("another processor", true, nothing, across, false, false);
        row("moved", false, moved, same + reset, true, false);
        row("moved, another processor", true, moved, across + QStringLiteral(" output port1") + reset, true,
            false);
        row(
            "removed", false, [](SPairOfPorts &p) { p.primaryPort().groups[1].cabinets.clear(); },
            same + reset, true, false);
        row(
            "wired another way", false,
            [](SPairOfPorts &p) {
                std::swap(p.primaryPort().groups[0].cabinets[0].rank,
                          p.primaryPort().groups[1].cabinets[0].rank);
            },
            same + reset, true, false);
        row(
            "grouped another way", false,
            [](SPairOfPorts &p) {
                PortPairs::Port &port = p.primaryPort();
                port.groups[0].cabinets << port.groups[1].cabinets;
                port.groups.removeLast();
            },
            same, false, false);
        row(
            "given again", false,
            [moved](SPairOfPorts &p) {
                moved(p);
                p.giveMirror();
            },
            same, false, false);
        row(
            "no cabinets", false,
            [](SPairOfPorts &p) {
                p.primaryPort().groups.clear();
                p.giveMirror();
            },
            same, false, false);
        row(
            "processor gone", true, [](SPairOfPorts &p) { p.layouts.remove(Own); }, broken, true, false);
        row(
            "processor of the redundancy gone", true, [](SPairOfPorts &p) { p.layouts.remove(Other); },
            QString(), false, true);
        row(
            "the primary knows nothing", false,
            [](SPairOfPorts &p) { PortPairs::setPair(p.primaryPort(), Own, Port::NoRedundancy, {}); }, broken,
            true, false);
        row(
            "the primary has another", false, [](SPairOfPorts &p) { p.primaryPort().redundancyPort = 7; },
            broken, true, true);
        row(
            "both primaries", false, [](SPairOfPorts &p) { p.backupPort().redundancy = Port::Primary; },
            broken, true, true);
        row(
            "no pair", false,
            [](SPairOfPorts &p) {
                PortPairs::setPair(p.primaryPort(), Own, Port::NoRedundancy, {});
                PortPairs::setPair(p.backupPort(), Own, Port::NoRedundancy, {});
            },
            QString(), false, false);
    }
    void tellsWhatIsToDo()
    {
        QFETCH(bool, across);
        QFETCH(Change, change);
        QFETCH(QString, text);
        QFETCH(bool, needsReset);
        QFETCH(bool, primaryNeedsReset);
        SPairOfPorts pair(across ? Other : Own);
        change(pair);
        QCOMPARE(pair.noteOf(pair.backup), (SPortRedundancyNote{text, needsReset}));
        const QString broken = primaryNeedsReset ? QStringLiteral("Please reset the mapping.") : QString();
        QCOMPARE(pair.noteOf({Own, 0}), (SPortRedundancyNote{broken, primaryNeedsReset}));
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
        QVERIFY(PortPairs::mirrorOf(port).isEmpty());
    }
};

ORVO_TEST_MAIN(QCoreApplication, CRedundancyNoteTest)
#include "tst_redundancy_note.moc"
