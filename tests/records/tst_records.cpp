// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/CRecordJson.h"
#include "layout/api/records/LayoutData.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/SPrjPort.h"
#include "platform/json/CJsonDocument.h"
#include "tests//harness/CTestBase.h"

#include <functional>
#include <type_traits>

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

template <typename Record, typename Field>
std::function<void(Record &)> set(Field Record::*field, const std::common_type_t<Field> &value)
{
    return [field, value](Record &record) { record.*field = value; };
}

/// Each of @p changes makes a record that differs, and that comes back from its file as it was.
template <typename Record>
void checkFields(const Record &original, CResult<Record> (*read)(const CJsonValue &, const char *),
                 const QVector<std::function<void(Record &)>> &changes)
{
    for (int i = 0; i < changes.size(); ++i) {
        Record changed = original;
        changes[i](changed);
        const QByteArray which =
            QByteArray(QMetaType::typeName(qMetaTypeId<Record>())) + ", field " + QByteArray::number(i);
        QVERIFY2(!(changed == original), which);
        const CResult<Record> back = read(CJsonDocument::of(CRecordJson::toJson(changed)).root(), nullptr);
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
        b.groups[1].name = QStringLiteral("side");
        QVERIFY(!LayoutData::comparePortData(a, b, false));
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
        const SMD5 type = SMD5::ofContent("P2");
        Cabinet cabinet = cabinetNamed(-1);
        cabinet.rect = QRect(-1, 2, 3, 4);
        checkFields<Cabinet>(
            cabinet, &CRecordJson::cabinet,
            {set(&Cabinet::uuid, key), set(&Cabinet::port, 3), set(&Cabinet::rect, QRect(-1, 2, 11, 4)),
             set(&Cabinet::rank, 0), set(&Cabinet::type, type), set(&Cabinet::directionFixed, true),
             set(&Cabinet::custom, true), set(&Cabinet::rects, {QRect(0, 0, 1, 2), QRect(1, 0, 2, 2)}),
             set(&Cabinet::mappingIndex, 0), set(&Cabinet::calibrationIndex, 0), set(&Cabinet::group, key),
             set(&Cabinet::receivers, {0, 7}), set(&Cabinet::blanks, {QRect(0, 0, 1, 1)})});
        Port plain;
        plain.index = 0;
        Cabinet mirrored;
        mirrored.uuid = key;
        mirrored.rect = QRect(0, 0, 1, 1);
        Group loose;
        loose.name = QStringLiteral("left");
        checkFields<Port>(plain, &CRecordJson::port,
                          {set(&Port::index, 1023), set(&Port::groups, {group({cabinetIn(0)})}),
                           set(&Port::groups, {group({}, {group({})})}), set(&Port::groups, {loose}),
                           set(&Port::color, QColor(1, 2, 3, 4)), set(&Port::locked, true),
                           set(&Port::redundancy, Port::Primary), set(&Port::redundancyPort, 0),
                           set(&Port::redundancyProcessor, key), set(&Port::load, 1),
                           set(&Port::mirrored, {mirrored})});
        SPrjPort project;
        project.port.index = 0;
        Port locked = project.port;
        locked.locked = true;
        checkFields<SPrjPort>(
            project, &CRecordJson::projectPort,
            {set(&SPrjPort::processor, key), set(&SPrjPort::index, 0), set(&SPrjPort::cabinetCount, 1),
             set(&SPrjPort::load, 1), set(&SPrjPort::area, {1, 2, 3, 0xFFFFFFFFu}),
             set(&SPrjPort::redundancyPort, 0), set(&SPrjPort::version, 2), set(&SPrjPort::brightness, 0),
             set(&SPrjPort::uuid, key), set(&SPrjPort::port, locked)});
        TypeInfo info;
        info.width = 2;
        info.height = 1;
        checkFields<TypeInfo>(info, &CRecordJson::typeInfo,
                              {set(&TypeInfo::key, type), set(&TypeInfo::name, QStringLiteral("P2")),
                               set(&TypeInfo::kind, TypeInfo::MultiReceiver), set(&TypeInfo::width, 1),
                               set(&TypeInfo::height, 2), set(&TypeInfo::receivers, {QRect(0, 0, 1, 1)}),
                               set(&TypeInfo::millimetres, {0.5, 1}), set(&TypeInfo::kilograms, 0.5),
                               set(&TypeInfo::wattsMaximum, 1), set(&TypeInfo::wattsAverage, 1),
                               set(&TypeInfo::voltsMinimum, 1), set(&TypeInfo::voltsMaximum, 1),
                               set(&TypeInfo::customGamma, true), set(&TypeInfo::damaged, true)});
        using Info = SBackgroundInfo;
        checkFields<Info>({}, &CRecordJson::background,
                          {set(&Info::enabled, !Info().enabled), set(&Info::file, QStringLiteral("a.png")),
                           set(&Info::scale, 10000), set(&Info::opacity, 0), set(&Info::fit, Info::ZoomToFit),
                           set(&Info::processor, key)});
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
