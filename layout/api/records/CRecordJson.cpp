// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/CRecordJson.h"

#include "layout/api/records/CLayoutJsonReader.h"
#include "layout/api/records/LayoutLimits.h"
#include "platform/json/CStrictObject.h"

namespace {

using Port = CRecordJson::Port;
using Group = CRecordJson::Group;
using Cabinet = CRecordJson::Cabinet;

template <typename T>
void insertUnless(const T &standard, QJsonObject &json, const char *key, const T &value)
{
    if (!(value == standard))
        json.insert(QLatin1String(key), value);
}

void insertUuid(QJsonObject &json, const char *key, const QUuid &uuid)
{
    if (!uuid.isNull())
        json.insert(QLatin1String(key), CStrictObject::fromUuid(uuid));
}

void insertRects(QJsonObject &json, const char *key, const QVector<QRect> &rects)
{
    if (!rects.isEmpty())
        json.insert(QLatin1String(key), CStrictObject::fromRects(rects));
}

QJsonObject originalJson(const Port::SOriginalAreas &original)
{
    QJsonObject json{{QStringLiteral("size"), QJsonArray{original.size.width(), original.size.height()}}};
    insertRects(json, "receivers", original.rects);
    insertRects(json, "blanks", original.blanks);
    return json;
}

QJsonObject cabinetJson(const Cabinet &cabinet, const CLayoutJsonReader::SHolder &holder)
{
    QJsonObject json{{QStringLiteral("uuid"), CStrictObject::fromUuid(cabinet.uuid)},
                     {QStringLiteral("rect"), CStrictObject::fromRect(cabinet.rect)}};
    insertUnless(-1, json, "rank", cabinet.rank);
    insertUnless(holder.port, json, "port", cabinet.port);
    if (cabinet.group != holder.group)
        json.insert(QStringLiteral("group"), cabinet.group.isNull()
                                                 ? QJsonValue()
                                                 : QJsonValue(CStrictObject::fromUuid(cabinet.group)));
    if (!cabinet.type.isNull())
        json.insert(QStringLiteral("type"),
                    QLatin1String(cabinet.type.bytes.data(), int(cabinet.type.bytes.size())));
    insertUnless(false, json, "directionFixed", cabinet.directionFixed);
    insertUnless(false, json, "custom", cabinet.custom);
    insertRects(json, "receivers", cabinet.rects);
    insertUnless(-1, json, "mapping", cabinet.mappingIndex);
    insertUnless(-1, json, "calibration", cabinet.calibrationIndex);
    if (!cabinet.receivers.isEmpty()) {
        QJsonArray cards;
        for (const int card : cabinet.receivers)
            cards.append(card);
        json.insert(QStringLiteral("cards"), cards);
    }
    insertRects(json, "blanks", cabinet.blanks);
    if (cabinet.original)
        json.insert(QStringLiteral("original"), originalJson(*cabinet.original));
    return json;
}

QJsonObject groupJson(const Group &group, int port)
{
    QJsonObject json;
    insertUuid(json, "uuid", group.uuid);
    insertUnless(QString(), json, "name", group.name);
    if (!group.cabinets.isEmpty()) {
        QJsonArray cabinets;
        for (const Cabinet &cabinet : group.cabinets)
            cabinets.append(cabinetJson(cabinet, {port, group.uuid}));
        json.insert(QStringLiteral("cabinets"), cabinets);
    }
    if (!group.groups.isEmpty()) {
        QJsonArray groups;
        for (const Group &child : group.groups)
            groups.append(groupJson(child, port));
        json.insert(QStringLiteral("groups"), groups);
    }
    return json;
}

SBackgroundInfo readBackground(const CJsonValue &json, const SJsonPlace &place, QString &error)
{
    CStrictObject object(json, place, error);
    SBackgroundInfo info;
    info.enabled = object.flagOr(info.enabled, "enabled");
    info.file = object.pathOr(info.file, "file", 4096);
    info.scale = object.smallIntegerOr(info.scale, "scale", 0, 10000);
    info.opacity = object.smallIntegerOr(info.opacity, "opacity", 0, 100);
    info.fit =
        SBackgroundInfo::FitType(object.smallIntegerOr(info.fit, "fit", 0, SBackgroundInfo::ZoomToFit));
    info.processor = object.uuidOr({}, "processor");
    object.finish();
    return info;
}

CRecordJson::RcvTypeInfo readTypeInfo(const CJsonValue &json, const SJsonPlace &place, QString &error)
{
    CStrictObject object(json, place, error);
    CRecordJson::RcvTypeInfo info;
    info.key = CLayoutJsonReader::typeKey(object, "key");
    info.name = object.text("name", CRecordJson::MaximumTextLength);
    info.kind = object.smallIntegerOr(info.kind, "kind", CRecordJson::RcvTypeInfo::SingleReceiver,
                                      CRecordJson::RcvTypeInfo::MultiReceiver);
    const QSize size = object.size("size", LayoutLimits::LargestSide);
    info.width = size.width();
    info.height = size.height();
    info.receivers = object.rectsOr("receivers", LayoutLimits::ReceiversPerCabinet);
    info.millimetres = object.sizeFOr({}, "millimetres", 100000);
    info.kilograms = object.numberOr(0, "kilograms", 0, 100000);
    info.wattsMaximum = object.smallIntegerOr(0, "wattsMaximum", 0, CRecordJson::MaximumNumber);
    info.wattsAverage = object.smallIntegerOr(0, "wattsAverage", 0, CRecordJson::MaximumNumber);
    info.voltsMinimum = object.smallIntegerOr(0, "voltsMinimum", 0, CRecordJson::MaximumNumber);
    info.voltsMaximum = object.smallIntegerOr(0, "voltsMaximum", 0, CRecordJson::MaximumNumber);
    info.customGamma = object.flagOr(false, "customGamma");
    info.damaged = object.flagOr(false, "damaged");
    object.finish();
    return info;
}

/// Runs one reading of a part of a layout.
template <typename Record, typename Read>
CResult<Record> readLayoutPart(const char *place, Read read)
{
    const SJsonPlace document;
    const SJsonPlace member{&document, place, -1};
    CLayoutJsonReader reader;
    Record record = read(reader, place ? member : document);
    if (reader.error().isEmpty())
        return record;
    return CResult<Record>::failure(reader.error());
}

/// Runs one reading of a settings record.
template <typename Record>
CResult<Record> readSettings(const CJsonValue &json, const char *place,
                             Record (*read)(const CJsonValue &, const SJsonPlace &, QString &))
{
    const SJsonPlace document;
    const SJsonPlace member{&document, place, -1};
    QString error;
    Record record = read(json, place ? member : document, error);
    if (error.isEmpty())
        return record;
    return CResult<Record>::failure(error);
}

} // namespace

QJsonObject CRecordJson::toJson(const CabinetLayout &layout)
{
    QJsonArray ports;
    for (const Port &port : layout.ports)
        ports.append(toJson(port));
    QJsonObject json{{QStringLiteral("ports"), ports}};
    insertUuid(json, "processor", layout.processor);
    return json;
}

QJsonObject CRecordJson::toJson(const Port &port)
{
    QJsonObject json{{QStringLiteral("index"), port.index}};
    if (!port.groups.isEmpty()) {
        QJsonArray groups;
        for (const Group &group : port.groups)
            groups.append(groupJson(group, port.index));
        json.insert(QStringLiteral("groups"), groups);
    }
    if (port.color.isValid())
        json.insert(QStringLiteral("color"), port.color.name(QColor::HexArgb));
    insertUnless(false, json, "locked", port.locked);
    insertUnless(0, json, "redundancy", int(port.redundancy));
    insertUnless(-1, json, "redundancyPort", port.redundancyPort);
    insertUuid(json, "redundancyProcessor", port.redundancyProcessor);
    if (!port.mirrored.isEmpty()) {
        Group mirror;
        mirror.cabinets = port.mirrored;
        json.insert(QStringLiteral("mirrored"), groupJson(mirror, port.redundancyPort));
    }
    insertUnless(qint64(0), json, "load", port.load);
    return json;
}

QJsonObject CRecordJson::toJson(const Group &group)
{
    return groupJson(group, -1);
}

QJsonObject CRecordJson::toJson(const Cabinet &cabinet)
{
    return cabinetJson(cabinet, {});
}

QJsonObject CRecordJson::toJson(const SPrjPort &port)
{
    QJsonObject json{{QStringLiteral("uuid"), CStrictObject::fromUuid(port.uuid)},
                     {QStringLiteral("port"), toJson(port.port)}};
    insertUuid(json, "processor", port.processor);
    insertUnless(-1, json, "index", port.index);
    insertUnless(0, json, "cabinetCount", port.cabinetCount);
    insertUnless(0, json, "load", port.load);
    if (port.area != decltype(port.area){}) {
        QJsonArray area;
        for (const quint32 number : port.area)
            area.append(qint64(number));
        json.insert(QStringLiteral("area"), area);
    }
    insertUnless(-1, json, "redundancyPort", port.redundancyPort);
    insertUnless(1, json, "version", port.version);
    insertUnless(0xFFFF, json, "brightness", port.brightness);
    return json;
}

QJsonObject CRecordJson::toJson(const SBackgroundInfo &info)
{
    const SBackgroundInfo standard;
    QJsonObject json;
    insertUnless(standard.enabled, json, "enabled", info.enabled);
    insertUnless(standard.file, json, "file", info.file);
    insertUnless(standard.scale, json, "scale", info.scale);
    insertUnless(standard.opacity, json, "opacity", info.opacity);
    insertUnless(int(standard.fit), json, "fit", int(info.fit));
    insertUuid(json, "processor", info.processor);
    return json;
}

QJsonObject CRecordJson::toJson(const RcvTypeInfo &info)
{
    QJsonObject json{{QStringLiteral("name"), info.name},
                     {QStringLiteral("size"), QJsonArray{info.width, info.height}}};
    if (!info.key.isNull())
        json.insert(QStringLiteral("key"), QString::fromLatin1(info.key.toText()));
    insertUnless(int(RcvTypeInfo::SingleReceiver), json, "kind", info.kind);
    insertRects(json, "receivers", info.receivers);
    if (info.millimetres.isValid())
        json.insert(QStringLiteral("millimetres"),
                    QJsonArray{info.millimetres.width(), info.millimetres.height()});
    if (info.kilograms > 0)
        json.insert(QStringLiteral("kilograms"), info.kilograms);
    insertUnless(0, json, "wattsMaximum", info.wattsMaximum);
    insertUnless(0, json, "wattsAverage", info.wattsAverage);
    insertUnless(0, json, "voltsMinimum", info.voltsMinimum);
    insertUnless(0, json, "voltsMaximum", info.voltsMaximum);
    insertUnless(false, json, "customGamma", info.customGamma);
    insertUnless(false, json, "damaged", info.damaged);
    return json;
}

CResult<CabinetLayout> CRecordJson::layout(const CJsonValue &json, const char *place)
{
    return readLayoutPart<CabinetLayout>(place, [&json](CLayoutJsonReader &reader, const SJsonPlace &where) {
        return reader.layout(json, where);
    });
}

CResult<CRecordJson::Port> CRecordJson::port(const CJsonValue &json, const char *place)
{
    return readLayoutPart<Port>(place, [&json](CLayoutJsonReader &reader, const SJsonPlace &where) {
        return reader.port(json, where);
    });
}

CResult<CRecordJson::Group> CRecordJson::group(const CJsonValue &json, const char *place)
{
    return readLayoutPart<Group>(place, [&json](CLayoutJsonReader &reader, const SJsonPlace &where) {
        return reader.group(json, where, -1, 1);
    });
}

CResult<CRecordJson::Cabinet> CRecordJson::cabinet(const CJsonValue &json, const char *place)
{
    return readLayoutPart<Cabinet>(place, [&json](CLayoutJsonReader &reader, const SJsonPlace &where) {
        return reader.cabinet(json, where, {});
    });
}

CResult<SPrjPort> CRecordJson::projectPort(const CJsonValue &json, const char *place)
{
    return readLayoutPart<SPrjPort>(place, [&json](CLayoutJsonReader &reader, const SJsonPlace &where) {
        return reader.projectPort(json, where);
    });
}

CResult<SBackgroundInfo> CRecordJson::background(const CJsonValue &json, const char *place)
{
    return readSettings(json, place, readBackground);
}

CResult<CRecordJson::RcvTypeInfo> CRecordJson::typeInfo(const CJsonValue &json, const char *place)
{
    return readSettings(json, place, readTypeInfo);
}
