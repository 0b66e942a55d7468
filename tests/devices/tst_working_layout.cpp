// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CWorkingLayout.h"
#include "host/devices/simulated/CProcessorKinds.h"
#include "host/projects/CWallBuilder.h"
#include "tests/harness/CTestBase.h"

namespace {

const SReceiverGeneration &anyGeneration()
{
    return CProcessorKinds::builtIn().all().first().generation;
}

/// What the module hands over after it has edited one port: nothing else is detached.
CabinetLayout withMovedCabinet(CabinetLayout layout, int port)
{
    layout.ports[port].groups[0].cabinets[0].rect.translate(10, 0);
    return layout;
}

} // namespace

class CWorkingLayoutTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        CTestBase::init();
        m_wall = CWallBuilder::build(CWallBuilder::plan(CWallBuilder::Small)).value();
    }

    void numbersTheMappingByPortAndRank()
    {
        CabinetLayout wall = m_wall;
        wall.ports[0].groups[0].cabinets[0].rank = -1;
        QMap<QPair<int, int>, int> numbers; // by port and rank
        for (const auto &port : CWorkingLayout::numbered(wall).ports) {
            for (const auto &cabinet : port.getAllCabinets())
                numbers.insert({port.index, cabinet.rank}, cabinet.mappingIndex);
        }
        QCOMPARE(numbers.take({0, -1}), -1);
        int expected = 0;
        for (const int number : qAsConst(numbers))
            QCOMPARE(number, expected++);
        QCOMPARE(expected, m_wall.cabinetCount() - 1);
    }

    void knowsWhatDiffersFromTheSavedMapping()
    {
        CWorkingLayout working;
        working.setSaved(CWorkingLayout::numbered(m_wall));
        CabinetLayout locked = m_wall;
        locked.ports[1].locked = true;
        CabinetLayout loaded = m_wall;
        loaded.ports[1].load = 77; // a figure, no edit
        const auto modifies = [&working](const CabinetLayout &layout) {
            working.take(layout, anyGeneration());
            return working.isModified();
        };
        QVERIFY(!modifies(m_wall));
        QVERIFY(modifies(withMovedCabinet(m_wall, 3)));
        QVERIFY(!modifies(loaded));
        QVERIFY(modifies(locked));
        working.setSaved(CWorkingLayout::numbered(locked));
        QVERIFY(!working.isModified());
    }

    void keepsPlacesInTheMappingWhenTheModuleDoesNotKnowThem()
    {
        CWorkingLayout working;
        working.setSaved(CWorkingLayout::numbered(m_wall));
        CabinetLayout edited = withMovedCabinet(m_wall, 2);
        auto added = edited.ports[2].groups[0].cabinets[0];
        added.uuid = QUuid::createUuid();
        edited.ports[2].groups[0].cabinets << added;
        working.take(edited, anyGeneration());
        for (const auto &cabinet : working.layout().ports.at(2).getAllCabinets())
            QCOMPARE(cabinet.mappingIndex >= 0, cabinet.uuid != added.uuid);
        QVERIFY(!working.isMapped(added.uuid));
    }

    void sharesThePortsThatDidNotChange()
    {
        CWorkingLayout working;
        working.take(m_wall, anyGeneration());
        const CabinetLayout before = working.layout();
        const quint64 edition = working.edition();
        working.take(withMovedCabinet(m_wall, 4), anyGeneration());
        for (int port = 0; port < before.ports.size(); ++port) {
            const bool shared = before.ports.at(port).groups.constData() ==
                                working.layout().ports.at(port).groups.constData();
            QCOMPARE(shared, port != 4);
        }
        QVERIFY(working.edition() != edition);
        QCOMPARE(working.chargedPixels(4), working.chargedPixels(3));
        QCOMPARE(working.chargedPixels(), qint64(m_wall.cabinetCount()) * 320 * 240);
    }

private:
    CabinetLayout m_wall;
};

ORVO_TEST_MAIN(QCoreApplication, CWorkingLayoutTest)
#include "tst_working_layout.moc"
