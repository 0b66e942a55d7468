// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/CRecordJson.h"
#include "layout/api/records/LayoutData.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/SPrjPort.h"
#include "tests/harness/CTestBase.h"

using Port = CabinetLayout::CabinetPort;
using Cabinet = Port::Cabinet;
using Group = Port::CabinetGroup;
using TypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

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

Cabinet cabinetIn(int port)
{
    Cabinet cabinet = cabinetNamed(-1);
    cabinet.port = port;
    cabinet.rect = QRect(0, 0, 1, 1);
    return cabinet;
}

/// Each of @p changes makes a record that differs, and that comes back from its file as it was.
template <typename Record>
void checkFields(const Record &original, CResult<Record> (*read)(const QJsonValue &, const char *),
                 const QVector<std::function<void(Record &)>> &changes)
{
    for (int i = 0; i < changes.size(); ++i) {
        Record changed = original;
        changes[i](changed);
        const QByteArray which =
            QByteArray(QMetaType::typeName(qMetaTypeId<Record>())) + ", field " + QByteArray::number(i);
        QVERIFY2(!(changed == original), which);
        const CResult<Record> back = read(CRecordJson::toJson(changed), nullptr);
        QVERIFY2(back, back ? which : which + ": " + back.error().toUtf8());
        QVERIFY2(back.value() == changed, which);
    }
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

    void eachFieldCountsAndIsWritten()
    {
        const QUuid key = QUuid::createUuid();
        Cabinet cabinet = cabinetNamed(-1);
        cabinet.rect = QRect(-1, 2, 3, 4);
        checkFields<Cabinet>(
            cabinet, &CRecordJson::cabinet,
            {[](Cabinet &c) { c.uuid = QUuid::createUuid(); }, [](Cabinet &c) { c.port = 3; },
             [](Cabinet &c) { c.rect.setRight(9); }, [](Cabinet &c) { c.rank = 0; },
             [](Cabinet &c) { c.type = SMD5::ofContent("P2"); }, [](Cabinet &c) { c.directionFixed = true; },
             [](Cabinet &c) { c.custom = true; },
             [](Cabinet &c) { c.rects << QRect(0, 0, 1, 2) << QRect(1, 0, 2, 2); },
             [](Cabinet &c) { c.mappingIndex = 0; }, [](Cabinet &c) { c.calibrationIndex = 0; },
             [key](Cabinet &c) { c.group = key; }, [](Cabinet &c) { c.receivers << 0 << 7; },
             [](Cabinet &c) { c.blanks << QRect(0, 0, 1, 1); }});
        Port plain;
        plain.index = 0;
        checkFields<Port>(
            plain, &CRecordJson::port,
            {[](Port &p) { p.index = 1023; }, [](Port &p) { p.groups << group({cabinetIn(0)}); },
             [](Port &p) { p.groups << group({}, {group({})}); },
             [](Port &p) {
                 p.groups.resize(1);
                 p.groups[0].name = QStringLiteral("left");
             },
             [](Port &p) { p.color = QColor(1, 2, 3, 4); }, [](Port &p) { p.locked = true; },
             [](Port &p) { p.redundancy = Port::Primary; }, [](Port &p) { p.redundancyPort = 0; },
             [key](Port &p) { p.redundancyProcessor = key; }, [](Port &p) { p.load = 1; },
             [key](Port &p) {
                 p.mirrored.resize(1);
                 p.mirrored[0].uuid = key;
                 p.mirrored[0].rect = QRect(0, 0, 1, 1);
             }});
        SPrjPort project;
        project.port.index = 0;
        checkFields<SPrjPort>(project, &CRecordJson::projectPort,
                              {[key](SPrjPort &p) { p.processor = key; }, [](SPrjPort &p) { p.index = 0; },
                               [](SPrjPort &p) { p.cabinetCount = 1; }, [](SPrjPort &p) { p.load = 1; },
                               [](SPrjPort &p) {
                                   p.area = {1, 2, 3, 0xFFFFFFFFu};
                               },
                               [](SPrjPort &p) { p.redundancyPort = 0; }, [](SPrjPort &p) { p.version = 2; },
                               [](SPrjPort &p) { p.brightness = 0; }, [key](SPrjPort &p) { p.uuid = key; },
                               [](SPrjPort &p) { p.port.locked = true; }});
        TypeInfo type;
        type.width = 2;
        type.height = 1;
        checkFields<TypeInfo>(
            type, &CRecordJson::typeInfo,
            {[](TypeInfo &t) { t.key = SMD5::ofContent("P2"); },
             [](TypeInfo &t) { t.name = QStringLiteral("P2"); },
             [](TypeInfo &t) { t.kind = TypeInfo::MultiReceiver; }, [](TypeInfo &t) { t.width = 1; },
             [](TypeInfo &t) { t.height = 2; }, [](TypeInfo &t) { t.receivers << QRect(0, 0, 1, 1); },
             [](TypeInfo &t) {
                 t.millimetres = {0.5, 1};
             },
             [](TypeInfo &t) { t.kilograms = 0.5; }, [](TypeInfo &t) { t.wattsMaximum = 1; },
             [](TypeInfo &t) { t.wattsAverage = 1; }, [](TypeInfo &t) { t.voltsMinimum = 1; },
             [](TypeInfo &t) { t.voltsMaximum = 1; }, [](TypeInfo &t) { t.customGamma = true; },
             [](TypeInfo &t) { t.damaged = true; }});
        checkFields<SBackgroundInfo>({}, &CRecordJson::background,
                                     {[](SBackgroundInfo &i) { i.enabled = !i.enabled; },
                                      [](SBackgroundInfo &i) { i.file = QStringLiteral("a.png"); },
                                      [](SBackgroundInfo &i) { i.scale = 10000; },
                                      [](SBackgroundInfo &i) { i.opacity = 0; },
                                      [](SBackgroundInfo &i) { i.fit = SBackgroundInfo::ZoomToFit; },
                                      [key](SBackgroundInfo &i) { i.processor = key; }});
    }

    void aProcessorIsShownWithItsAddress()
    {
        ProcessorTree::ProcessorNode node;
        node.name = QStringLiteral("Stage");
        node.address = 0xC0A80102u;
        QCOMPARE(node.displayText(), QStringLiteral("Stage(192.168.1.2)"));
        node.address = 0;
        QCOMPARE(node.displayText(), QStringLiteral("Stage"));
    }

    void aHighlightIsNoDifferenceOfTheLayout()
    {
        Port a;
        a.groups << group({}, {group({cabinetNamed(0)})});
        Port b = a;
        b.groups[0].groups[0].cabinets[0].calibrationIndex = 1;
        QVERIFY(LayoutData::comparePortData(a, b, true));
        b.groups[0].groups[0].cabinets[0].mappingIndex = 1; // the processor's
        QVERIFY(LayoutData::comparePortData(a, b, true) && LayoutData::comparePortData(a, b, false));
        b.groups[0].groups[0].cabinets[0].rect = QRect(1, 1, 1, 1);
        QVERIFY(!LayoutData::comparePortData(a, b, false));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CRecordsTest)
#include "tst_records.moc"
