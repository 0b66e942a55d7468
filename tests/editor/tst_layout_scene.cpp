// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/resources/LayoutResources.h"
#include "tests/editor/CSceneVerifier.h"
#include "tests/editor/SPortsScene.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>

#include <memory>

namespace {

using Port = CabinetLayout::CabinetPort;

} // namespace

class CLayoutSceneTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void readsBackWhatItBuilt()
    {
        Port special = SmallWorlds::wiredPort(4, 3);
        special.locked = true;
        special.color = Qt::darkRed;
        special.redundancy = Port::Redundant;
        special.redundancyPort = 1;
        special.load = 140;
        QVector<Port> large;
        for (int i = 0; i < 80; ++i)
            large << SmallWorlds::groupedPort(i, 1024, 16);
        const QVector<QVector<Port>> layouts = {{},
                                                {SmallWorlds::port(0, {}), SmallWorlds::port(3, {})},
                                                {SmallWorlds::wiredPort(0, 16), SmallWorlds::wiredPort(1, 1)},
                                                {SmallWorlds::partlyWiredPort(2)},
                                                {SmallWorlds::nestedPort(0), SmallWorlds::nestedPort(1)},
                                                {SmallWorlds::receiverPort(0)},
                                                {special},
                                                large};
        for (const QVector<Port> &ports : layouts) {
            const SPortsScene world(ports);
            QCOMPARE(CSceneVerifier::faultIn(world.scene), QString());
            QVERIFY(world.layout() == world.data.layout);
        }
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
        SPortsScene world({port});
        QCOMPARE(CSceneVerifier::faultIn(world.scene), QString());

        LayoutData read = world.data;
        read.layout = world.layout();
        QVector<int> ranks;
        QSet<QUuid> keys;
        for (const auto &cabinet : read.layout.ports.at(0).getAllCabinets()) {
            ranks << cabinet.rank;
            keys << cabinet.uuid;
        }
        QCOMPARE(ranks, (QVector<int>{3, 1, 2, 0}));
        QVERIFY(keys.size() == 4 && !keys.contains(QUuid()));
        world.scene.setLayoutData(SmallWorlds::node(read), read);
        QVERIFY(world.layout() == read.layout); // what has been read once is stable
    }

    void sizesOfNothingAreMended()
    {
        Port port = SmallWorlds::wiredPort(0, 2);
        port.groups[0].cabinets[1].rect.setSize(QSize(0, -7));
        auto &scaled = port.groups[0].cabinets[0];
        scaled.rects = {QRect(QPoint(), scaled.rect.size())};
        scaled.original = std::make_shared<const Port::SOriginalAreas>(
            Port::SOriginalAreas{QSize(0, 32), scaled.rects, {}});
        expectWarning(QRegularExpression(QStringLiteral("^2 cabinets have sizes of nothing")));
        SPortsScene world({port});
        const CabinetLayout before = world.layout();
        QVERIFY(!before.ports.at(0).getAllCabinets().at(0).original);
        QCOMPARE(before.ports.at(0).getAllCabinets().at(1).rect, QRect(SmallWorlds::Side, 0, 1, 1));
        const QUuid mended = port.groups[0].cabinets[1].uuid;
        world.scene.setLayoutData(SmallWorlds::node(world.data), world.data, {}, {mended});
        world.scene.backend().shape().resizeTo(QSize(64, 32));
        QCOMPARE(world.layout().ports.at(0).getAllCabinets().at(1).rect, QRect(SmallWorlds::Side, 0, 64, 32));
        world.stack().undo();
        QVERIFY(world.layout() == before);
    }

    void selectsTheGivenItemsAndNoMemberBesideItsGroup()
    {
        SPortsScene world({SmallWorlds::nestedPort(0), SmallWorlds::wiredPort(1, 8)});
        const auto &outer = world.data.layout.ports.at(0).groups.at(1);
        const QUuid loose = world.data.layout.ports.at(1).getAllCabinets().at(5).uuid;
        const QList<QUuid> chosen = {outer.uuid, outer.cabinets.at(0).uuid, outer.groups.at(0).uuid, loose,
                                     QUuid::createUuid()};
        world.scene.setLayoutData(SmallWorlds::node(world.data), world.data, {}, chosen);
        const QVector<QUuid> selected = world.scene.selection().uuids();
        QCOMPARE(selected.size(), 2);
        QVERIFY(selected.contains(outer.uuid) && selected.contains(loose));
    }

    void anotherProcessorsLayoutChangesNothing()
    {
        SPortsScene world({SmallWorlds::wiredPort(0, 4)});
        const LayoutData other = SmallWorlds::data({});
        world.scene.setLayoutData(SmallWorlds::node(world.data), other);
        QVERIFY(world.layout() == world.data.layout);
        CabinetLayout read;
        world.scene.getLayoutData(read, other.processor);
        QVERIFY(read == CabinetLayout());
    }

    void handsOverUnchangedPortsShared()
    {
        SPortsScene world({SmallWorlds::wiredPort(0, 4), SmallWorlds::wiredPort(1, 4)});
        const CabinetLayout first = world.layout();
        world.scene.setCabinetLocked(1, true);
        const CabinetLayout second = world.layout();
        QCOMPARE(second.ports.at(0).groups.constData(), first.ports.at(0).groups.constData());
        QVERIFY(second.ports.at(1).locked && !first.ports.at(1).locked);
    }
};

ORVO_TEST_MAIN(QApplication, CLayoutSceneTest)
#include "tst_layout_scene.moc"
