// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/records/LayoutData.h"
#include "layout/data/records/ProcessorTree.h"
#include "layout/data/records/RecordMetaTypes.h"
#include "layout/data/records/SPrjPort.h"
#include "tests/harness/CTestBase.h"

using Port = CabinetLayout::CabinetPort;
using Cabinet = Port::Cabinet;
using Group = Port::CabinetGroup;

namespace {

Cabinet cabinetNamed(int rank)
{
    Cabinet cabinet;
    cabinet.uuid = QUuid::createUuid();
    cabinet.rank = rank;
    return cabinet;
}

QVector<int> ranks(const QVector<Cabinet> &cabinets)
{
    QVector<int> result;
    for (const Cabinet &cabinet : cabinets)
        result << cabinet.rank;
    return result;
}

Group group(const QVector<Cabinet> &cabinets, const QVector<Group> &groups = {})
{
    Group result;
    result.uuid = QUuid::createUuid();
    result.cabinets = cabinets;
    result.groups = groups;
    return result;
}

} // namespace

class CRecordsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void flattensGroupsDepthFirst()
    {
        Port port;
        port.groups << group({cabinetNamed(0)}, {group({cabinetNamed(1)}, {group({cabinetNamed(2)})})})
                    << group({cabinetNamed(3)});
        QCOMPARE(ranks(port.getAllCabinets()), (QVector<int>{0, 1, 2, 3}));
        QCOMPARE(port.cabinetCount(), 4);
    }

    void comparesPortsPairByPair()
    {
        Port a;
        a.groups << group({cabinetNamed(0)}) << group({cabinetNamed(1)});
        Port b = a;
        QVERIFY(LayoutData::comparePortData(a, b, true));
        b.groups[0].cabinets[0].rank = 5;
        QVERIFY(!LayoutData::comparePortData(a, b, true));
        QVERIFY(LayoutData::comparePortData(a, b, false));
        b = a;
        b.groups.swapItemsAt(0, 1);
        QVERIFY(!LayoutData::comparePortData(a, b, false));
        b = a;
        b.groups.removeLast();
        QVERIFY(!LayoutData::comparePortData(a, b, false));
    }

    void editsCostTheirOwnPortOnly()
    {
        CabinetLayout layout;
        layout.ports.resize(80);
        for (Port &port : layout.ports)
            port.groups << group(QVector<Cabinet>(1024));
        CabinetLayout copy = layout;
        copy.ports[3].groups[0].cabinets[7].rank = 7;
        const auto data = [](const CabinetLayout &l, int i) {
            return l.ports.at(i).groups.at(0).cabinets.constData();
        };
        QVERIFY(data(copy, 3) != data(layout, 3));
        QCOMPARE(data(copy, 4), data(layout, 4));
    }

    void startsWithTheStatedDefaults()
    {
        const ProcessorTree::ProcessorNode node;
        QCOMPARE(node.displayText(), QStringLiteral("(127.0.0.1)"));
        QCOMPARE(node.index, -1);
        QCOMPARE(node.colorDepth, 8);
        QCOMPARE(node.brightness, 100);
        const SPrjPort port;
        QCOMPARE(port.brightness, 65535);
        QVERIFY(port.uuid != SPrjPort().uuid);
        QVERIFY(Cabinet().type.isNull());
    }

    void registersMetaTypesUnderTheirFullNames()
    {
        registerRecordMetaTypes();
        for (const char *name :
             {"ProcessorTree::ProcessorNode", "PrcTreeNodeType", "CabinetLayout::CabinetPort::Cabinet",
              "CabinetLayout::CabinetPort::CabinetGroup", "QList<CabinetLayout::CabinetPort::Cabinet>",
              "QList<QPair<ProcessorTree::ProcessorNode,CabinetLayout> >",
              "SSettings::TypeLibrary::STreeNode::RcvTypeInfo", "SBackgroundInfo", "SBackgroundInfo::FitType",
              "SPrjPort", "PrintConfig", "QUuid", "ProcessorBoundingRects", "ReadSaveMappingRole",
              "UiOrvo::EnModule"})
            QVERIFY2(QMetaType::type(name) != QMetaType::UnknownType, name);
    }
};

ORVO_TEST_MAIN(QCoreApplication, CRecordsTest)
#include "tst_records.moc"
