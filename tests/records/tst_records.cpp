// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/LayoutData.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/RecordMetaTypes.h"
#include "layout/api/records/SPrjPort.h"
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

    void startsWithTheStatedDefaults_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QVariant>("wanted");
        const auto row = [](const char *name, const QVariant &value, const QVariant &wanted) {
            QTest::newRow(name) << value << wanted;
        };
        const ProcessorTree::ProcessorNode node;
        row("processor: key", node.uuid, QUuid());
        row("processor: name", node.name, QString());
        row("processor: index", node.index, -1);
        row("processor: index in group", node.groupIndex, -1);
        row("processor: color depth", node.colorDepth, 8);
        row("processor: brightness", node.brightness, 100);
        row("processor: model", node.model, QString());
        row("processor: serial number", node.serialNumber, QString());
        row("processor: address", node.address, 0x7F000001u);
        row("processor: flags", node.online || node.fiberTransceiver, false);
        row("processor: text", node.displayText(), QStringLiteral("(127.0.0.1)"));
        const Cabinet cabinet;
        row("cabinet: port", cabinet.port, -1);
        row("cabinet: rank", cabinet.rank, -1);
        row("cabinet: type", cabinet.type.isNull(), true);
        row("cabinet: mapping index", cabinet.mappingIndex, -1);
        row("cabinet: highlight number", cabinet.calibrationIndex, -1);
        row("cabinet: group", cabinet.group, QUuid());
        row("cabinet: lists", cabinet.rects.size() + cabinet.receivers.size() + cabinet.blanks.size(), 0);
        row("cabinet: flags", cabinet.directionFixed || cabinet.custom, false);
        const Port port;
        row("port: index", port.index, -1);
        row("port: groups", port.groups.size(), 0);
        const SPrjPort project;
        row("port file: processor", project.processor, QUuid());
        row("port file: index", project.index, -1);
        row("port file: numbers", project.cabinetCount + project.load, 0);
        row("port file: area", project.area == std::array<quint32, 4>{}, true);
        row("port file: redundancy", project.redundancyPort, -1);
        row("port file: version", project.version, 1);
        row("port file: brightness", project.brightness, 65535);
        row("port file: key", project.uuid.isNull() || project.uuid == SPrjPort().uuid, false);
        row("type: key length", int(SMD5().bytes.size()), 32);
    }
    void startsWithTheStatedDefaults()
    {
        QFETCH(QVariant, value);
        QFETCH(QVariant, wanted);
        QCOMPARE(value, wanted);
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
