// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/CLayoutJsonReader.h"

#include "layout/api/records/CRecordJson.h"
#include "layout/api/records/LayoutLimits.h"
#include "platform/json/CStrictObject.h"

#include <algorithm>
#include <limits>

namespace {

QColor readArgb(CStrictObject &object, const char *key)
{
    const QString text = object.text(key, 9);
    if (text.size() == 9 && text.startsWith(QLatin1Char('#')) && QColor::isValidColor(text))
        return QColor(text);
    object.fail(key, CLayoutJsonReader::tr("a colour (#AARRGGBB) is expected"));
    return {};
}

QRect readPlacement(CStrictObject &object, const char *key)
{
    const QRect rect = object.rect(key);
    if (!LayoutLimits::isCabinetSize(rect.size()))
        object.fail(key, CLayoutJsonReader::tr("the size is %1x%2 pixels, each side must be %3 to %4")
                             .arg(rect.width())
                             .arg(rect.height())
                             .arg(LayoutLimits::SmallestSide)
                             .arg(LayoutLimits::LargestSide));
    return rect;
}

} // namespace

CJsonValue CLayoutJsonReader::counted(CStrictObject &object, const char *key, int &count, int most)
{
    const CJsonValue items = object.arrayOr(key);
    count += items.elements();
    if (count <= most)
        return items;
    object.fail(key, tr("the output port has %1 or more, the most is %2").arg(count).arg(most));
    return {};
}

SMD5 CLayoutJsonReader::typeKey(CStrictObject &object, const char *key)
{
    if (!object.has(key))
        return {};
    const SMD5 type = SMD5::fromText(object.text(key, 32).toLatin1());
    if (type.isNull())
        object.fail(key, tr("32 hexadecimal digits are expected"));
    return type;
}

CLayoutJsonReader::Cabinet CLayoutJsonReader::cabinet(const CJsonValue &json, const SJsonPlace &place,
                                                      const SHolder &holder)
{
    CStrictObject object(json, place, m_error);
    Cabinet read;
    read.uuid = object.uuid("uuid");
    read.rect = readPlacement(object, "rect");
    read.rank = object.smallIntegerOr(-1, "rank", -1, CRecordJson::MaximumNumber);
    read.port = object.smallIntegerOr(holder.port, "port", -1, LayoutLimits::LargestPortIndex);
    read.group = object.uuidOr(holder.group, "group");
    read.type = typeKey(object, "type");
    read.directionFixed = object.flagOr(false, "directionFixed");
    read.custom = object.flagOr(false, "custom");
    read.rects = object.rectsOr("receivers", LayoutLimits::ReceiversPerCabinet);
    read.mappingIndex = object.smallIntegerOr(-1, "mapping", -1, CRecordJson::MaximumNumber);
    read.calibrationIndex = object.smallIntegerOr(-1, "calibration", -1, CRecordJson::MaximumNumber);
    read.receivers =
        object.integersOr<int>("cards", 0, CRecordJson::MaximumNumber, LayoutLimits::ReceiversPerCabinet);
    read.blanks = object.rectsOr("blanks", LayoutLimits::ReceiversPerCabinet);
    if (object.has("original"))
        read.original = originalAreas(read, object.value("original"), object.placeOf("original"));
    const int before = m_cabinets.size();
    m_cabinets.insert(read.uuid);
    if (m_cabinets.size() == before)
        object.fail("uuid", tr("the same cabinet occurs twice"));
    object.finish();
    return read;
}

std::shared_ptr<const CLayoutJsonReader::Port::SOriginalAreas>
CLayoutJsonReader::originalAreas(const Cabinet &cabinet, const CJsonValue &json, const SJsonPlace &place)
{
    CStrictObject object(json, place, m_error);
    Port::SOriginalAreas original;
    original.size = object.size("size", LayoutLimits::LargestSide);
    original.rects = object.rectsOr("receivers", LayoutLimits::ReceiversPerCabinet);
    original.blanks = object.rectsOr("blanks", LayoutLimits::ReceiversPerCabinet);
    if (original.rects.size() != cabinet.rects.size() || original.blanks.size() != cabinet.blanks.size())
        object.fail("receivers", tr("there are as many original areas as areas"));
    object.finish();
    return std::make_shared<const Port::SOriginalAreas>(std::move(original));
}

CLayoutJsonReader::Group CLayoutJsonReader::group(const CJsonValue &json, const SJsonPlace &place, int port,
                                                  int depth)
{
    CStrictObject object(json, place, m_error);
    Group read;
    read.uuid = object.uuidOr({}, "uuid");
    if (!read.uuid.isNull()) {
        if (m_groups.contains(read.uuid))
            object.fail("uuid", tr("the same group occurs twice"));
        m_groups.insert(read.uuid);
    }
    read.name = object.textOr({}, "name", CRecordJson::MaximumTextLength);

    const CJsonValue cabinets = counted(object, "cabinets", m_portCabinets, LayoutLimits::CabinetsPerPort);
    const SJsonPlace cabinetsPlace = object.placeOf("cabinets");
    const SHolder holder{port, read.uuid};
    read.cabinets.reserve(cabinets.elements());
    for (int i = 0; i < cabinets.elements() && m_error.isEmpty(); ++i)
        read.cabinets.append(cabinet(cabinets.at(i), {&cabinetsPlace, nullptr, i}, holder));

    const CJsonValue groups = counted(object, "groups", m_portGroups, LayoutLimits::GroupsPerPort);
    const SJsonPlace groupsPlace = object.placeOf("groups");
    if (groups.elements() > 0 && depth >= LayoutLimits::GroupLevels)
        object.fail("groups", tr("groups are nested deeper than %1").arg(LayoutLimits::GroupLevels));
    read.groups.reserve(groups.elements());
    for (int i = 0; i < groups.elements() && m_error.isEmpty(); ++i)
        read.groups.append(group(groups.at(i), {&groupsPlace, nullptr, i}, port, depth + 1));
    object.finish();
    return read;
}

CLayoutJsonReader::Port CLayoutJsonReader::port(const CJsonValue &json, const SJsonPlace &place)
{
    m_portCabinets = m_portGroups = 0;
    CStrictObject object(json, place, m_error);
    Port read;
    read.index = object.smallInteger("index", 0, LayoutLimits::LargestPortIndex);
    if (object.has("color"))
        read.color = readArgb(object, "color");
    read.locked = object.flagOr(false, "locked");
    read.redundancy = Port::Redundancy(object.smallIntegerOr(0, "redundancy", 0, Port::Redundant));
    read.redundancyPort = object.smallIntegerOr(-1, "redundancyPort", -1, LayoutLimits::LargestPortIndex);
    read.redundancyProcessor = object.uuidOr({}, "redundancyProcessor");
    read.load = object.integerOr(0, "load", 0, CRecordJson::MaximumNumber);
    if (object.has("mirrored"))
        read.mirrored = mirrored(object.value("mirrored"), object.placeOf("mirrored"), read.redundancyPort);

    const CJsonValue groups = counted(object, "groups", m_portGroups, LayoutLimits::GroupsPerPort);
    const SJsonPlace groupsPlace = object.placeOf("groups");
    read.groups.reserve(groups.elements());
    for (int i = 0; i < groups.elements() && m_error.isEmpty(); ++i)
        read.groups.append(group(groups.at(i), {&groupsPlace, nullptr, i}, read.index, 1));
    object.finish();
    return read;
}

/// They are copies of the primary's cabinets, whose identities may occur elsewhere in the file.
QVector<CLayoutJsonReader::Cabinet> CLayoutJsonReader::mirrored(const CJsonValue &json,
                                                                const SJsonPlace &place, int primary)
{
    CLayoutJsonReader reader;
    const Group read = reader.group(json, place, primary, 1);
    if (m_error.isEmpty())
        m_error = reader.error();
    return read.cabinets;
}

CabinetLayout CLayoutJsonReader::layout(const CJsonValue &json, const SJsonPlace &place)
{
    CStrictObject object(json, place, m_error);
    CabinetLayout read;
    read.processor = object.uuidOr({}, "processor");
    const CJsonValue ports = object.array("ports");
    const SJsonPlace portsPlace = object.placeOf("ports");
    read.ports.reserve(ports.elements());
    for (int i = 0; i < ports.elements() && m_error.isEmpty(); ++i) {
        const SJsonPlace portPlace{&portsPlace, nullptr, i};
        read.ports.append(port(ports.at(i), portPlace));
        if (i > 0 && read.ports.at(i).index <= read.ports.at(i - 1).index)
            CStrictObject(ports.at(i), portPlace, m_error)
                .fail("index", tr("the ports are not in ascending order or occur twice"));
    }
    object.finish();
    return read;
}

SPrjPort CLayoutJsonReader::projectPort(const CJsonValue &json, const SJsonPlace &place)
{
    CStrictObject object(json, place, m_error);
    SPrjPort read;
    read.processor = object.uuidOr({}, "processor");
    read.index = object.smallIntegerOr(-1, "index", -1, LayoutLimits::LargestPortIndex);
    read.cabinetCount = object.smallIntegerOr(0, "cabinetCount", 0, CRecordJson::MaximumNumber);
    read.load = object.smallIntegerOr(0, "load", 0, CRecordJson::MaximumNumber);
    const QVector<qint64> area =
        object.integersOr<qint64>("area", 0, std::numeric_limits<quint32>::max(), int(read.area.size()));
    if (object.has("area") && area.size() != int(read.area.size()))
        object.fail("area", tr("[x, y, width, height] is expected"));
    else
        std::copy(area.begin(), area.end(), read.area.begin());
    read.redundancyPort = object.smallIntegerOr(-1, "redundancyPort", -1, LayoutLimits::LargestPortIndex);
    read.version = object.smallIntegerOr(1, "version", 1, CRecordJson::MaximumNumber);
    read.brightness = object.smallIntegerOr(0xFFFF, "brightness", 0, 0xFFFF);
    read.uuid = object.uuid("uuid");
    const SJsonPlace portPlace = object.placeOf("port");
    read.port = port(object.value("port"), portPlace);
    object.finish();
    return read;
}
