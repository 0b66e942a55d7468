// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/CProcessorCodec.h"

#include "host/projects/CStrictFile.h"
#include "layout/api/records/CRecordJson.h"
#include "layout/api/records/LayoutLimits.h"
#include "platform/json/CStrictObject.h"

#include <algorithm>
#include <tuple>

namespace {

constexpr SFileFormat settingsFormat{"orvo-processor-settings",
                                     QT_TRANSLATE_NOOP("SFileFormat", "a processor's settings"), 2};
constexpr SFileFormat mappingFormat{"orvo-processor-mapping",
                                    QT_TRANSLATE_NOOP("SFileFormat", "a processor's mapping"), 2};
constexpr int LargestCoordinate = 0xFFFF;
constexpr qint64 LargestRevision = qint64(1) << 53; // JSON numbers are exact up to here

QJsonArray areasToJson(const QList<SPortArea> &areas)
{
    QJsonArray items;
    for (const SPortArea &area : areas)
        items.append(QJsonArray{area.port, area.x, area.y, area.width, area.height});
    return items;
}

QJsonArray gainRowsToJson(const QVector<SCurrentGainRow> &rows)
{
    QJsonArray items;
    for (const SCurrentGainRow &row : rows) {
        QJsonArray item{row.frameRateCode, row.gainLevel};
        for (const int value : row.values)
            item.append(value);
        items.append(item);
    }
    return items;
}

QJsonArray gainsToJson(const QList<SCurrentGain> &gains)
{
    QJsonArray items;
    for (const SCurrentGain &gain : gains)
        items.append(QJsonArray{gain.frameRateCode, gain.gainLevel, int(gain.imported), int(gain.on)});
    return items;
}

QJsonArray gammasToJson(const QMap<SMD5, double> &gammas)
{
    QJsonArray items;
    for (auto it = gammas.begin(); it != gammas.end(); ++it)
        items.append(QJsonObject{{QStringLiteral("type"), QString::fromLatin1(it.key().toText())},
                                 {QStringLiteral("gamma"), it.value()}});
    return items;
}

/// The rows of a table of whole numbers, each row of @p width numbers from 0 to @p largest; an error
/// otherwise.
QVector<QVector<int>> rowsOf(CStrictObject &object, const char *key, int width, int largest)
{
    QVector<QVector<int>> rows;
    const CJsonValue items = object.array(key);
    for (int i = 0; i < items.elements(); ++i) {
        QVector<int> row;
        for (int j = 0; j < items.at(i).elements(); ++j)
            row << items.at(i).at(j).toInt(-1);
        const bool inRange = std::all_of(row.begin(), row.end(),
                                         [largest](int value) { return value >= 0 && value <= largest; });
        if (row.size() != width || !inRange) {
            object.fail(
                key, CStrictFile::tr("rows of %1 numbers from 0 to %2 are expected").arg(width).arg(largest));
            return {};
        }
        rows << row;
    }
    return rows;
}

void readLists(CStrictObject &object, SProcessorSettings &settings)
{
    for (const QVector<int> &row : rowsOf(object, "portAreas", 5, LargestCoordinate))
        settings.portAreas << SPortArea{quint16(row[0]), quint16(row[1]), quint16(row[2]), quint16(row[3]),
                                        quint16(row[4])};
    for (const QVector<int> &row : rowsOf(object, "gainRows", 5, 255))
        settings.gainRows << SCurrentGainRow{row[0], row[1], row.mid(2)};
    for (const QVector<int> &row : rowsOf(object, "gains", 4, 2))
        settings.gains << SCurrentGain{row[0], row[1], row[2] != 0, row[3] != 0};
}

void readGammas(CStrictObject &object, QString &error, SProcessorSettings &settings)
{
    const SJsonPlace place = object.placeOf("gammas");
    const CJsonValue items = object.array("gammas");
    for (int i = 0; i < items.elements() && error.isEmpty(); ++i) {
        const SJsonPlace itemPlace{&place, nullptr, i};
        CStrictObject item(items.at(i), itemPlace, error);
        const SMD5 type = SMD5::fromText(item.text("type", 32).toLatin1());
        if (type.isNull())
            item.fail("type", CStrictFile::tr("32 hexadecimal digits are expected"));
        settings.gammas.insert(type, item.number("gamma", 1.0, 4.0));
        item.finish();
    }
}

SProcessorSettings readSettings(const CJsonValue &body, QString &error)
{
    const SJsonPlace place;
    CStrictObject object(body, place, error);
    SProcessorSettings settings;
    settings.portCount = object.smallInteger("portCount", 1, LayoutLimits::LargestPortIndex + 1);
    settings.canvas = object.size("canvas", LayoutLimits::LargestReadCanvasSide);
    const int furthest = LayoutLimits::LargestOffset;
    settings.offset.setX(object.smallInteger("offsetX", -furthest, furthest));
    settings.offset.setY(object.smallInteger("offsetY", -furthest, furthest));
    settings.frameRate = object.smallInteger("frameRate", 1, 1000);
    settings.colorDepth = object.smallInteger("colorDepth", 1, 64);
    settings.threeD = object.flagOr(false, "threeD");
    settings.lowLatency = object.flagOr(false, "lowLatency");
    settings.frozen = object.flagOr(false, "frozen");
    settings.polling = object.flagOr(false, "polling");
    settings.hdmiOutput = object.flagOr(false, "hdmiOutput");
    settings.statusLed = object.flagOr(false, "statusLed");
    settings.workMode = static_cast<ProcessorWorkMode>(object.smallInteger("workMode", 0, 2));
    settings.primary = object.uuidOr({}, "primary");
    const CResult<SBackgroundInfo> background =
        CRecordJson::background(object.value("background"), "background");
    if (background)
        settings.background = background.value();
    else if (error.isEmpty())
        error = background.error();
    readLists(object, settings);
    readGammas(object, error, settings);
    object.finish();
    return settings;
}

SProcessorMapping readMapping(const CJsonValue &body, QString &error)
{
    const SJsonPlace place;
    CStrictObject object(body, place, error);
    SProcessorMapping mapping;
    mapping.revision = static_cast<quint64>(object.integer("revision", 0, LargestRevision));
    const CResult<CabinetLayout> layout = CRecordJson::layout(object.value("layout"), "layout");
    if (layout)
        mapping.layout = layout.value();
    else if (error.isEmpty())
        error = layout.error();
    object.finish();
    return mapping;
}

} // namespace

bool operator==(const SProcessorSettings &a, const SProcessorSettings &b)
{
    const auto tied = [](const SProcessorSettings &s) {
        return std::tie(s.portCount, s.canvas, s.offset, s.background, s.frameRate, s.colorDepth, s.threeD,
                        s.lowLatency, s.frozen, s.polling, s.hdmiOutput, s.statusLed, s.workMode, s.primary,
                        s.portAreas, s.gainRows, s.gains, s.gammas);
    };
    return tied(a) == tied(b);
}

QByteArray CProcessorCodec::encode(const SProcessorSettings &settings)
{
    QJsonObject body{
        {QStringLiteral("portCount"), settings.portCount},
        {QStringLiteral("canvas"), QJsonArray{settings.canvas.width(), settings.canvas.height()}},
        {QStringLiteral("offsetX"), settings.offset.x()},
        {QStringLiteral("offsetY"), settings.offset.y()},
        {QStringLiteral("background"), CRecordJson::toJson(settings.background)},
        {QStringLiteral("frameRate"), settings.frameRate},
        {QStringLiteral("colorDepth"), settings.colorDepth},
        {QStringLiteral("threeD"), settings.threeD},
        {QStringLiteral("lowLatency"), settings.lowLatency},
        {QStringLiteral("frozen"), settings.frozen},
        {QStringLiteral("polling"), settings.polling},
        {QStringLiteral("hdmiOutput"), settings.hdmiOutput},
        {QStringLiteral("statusLed"), settings.statusLed},
        {QStringLiteral("workMode"), static_cast<int>(settings.workMode)},
        {QStringLiteral("portAreas"), areasToJson(settings.portAreas)},
        {QStringLiteral("gainRows"), gainRowsToJson(settings.gainRows)},
        {QStringLiteral("gains"), gainsToJson(settings.gains)},
        {QStringLiteral("gammas"), gammasToJson(settings.gammas)}};
    if (!settings.primary.isNull())
        body.insert(QStringLiteral("primary"), CStrictObject::fromUuid(settings.primary));
    return CStrictFile::encode(settingsFormat, body);
}

QByteArray CProcessorCodec::encode(const SProcessorMapping &mapping)
{
    return CStrictFile::encode(mappingFormat,
                               {{QStringLiteral("revision"), static_cast<qint64>(mapping.revision)},
                                {QStringLiteral("layout"), CRecordJson::toJson(mapping.layout)}});
}

CResult<SProcessorSettings> CProcessorCodec::settings(const QByteArray &bytes, const QString &source)
{
    using Result = CResult<SProcessorSettings>;
    const CResult<CJsonDocument> body = CStrictFile::decode(bytes, settingsFormat, source);
    if (!body)
        return Result::failure(body.error());
    QString error;
    SProcessorSettings settings = readSettings(body.value().root(), error);
    return error.isEmpty() ? Result(std::move(settings))
                           : Result::failure(CStrictFile::wrongContent(source, error));
}

CResult<SProcessorMapping> CProcessorCodec::mapping(const QByteArray &bytes, const QString &source)
{
    using Result = CResult<SProcessorMapping>;
    const CResult<CJsonDocument> body = CStrictFile::decode(bytes, mappingFormat, source);
    if (!body)
        return Result::failure(body.error());
    QString error;
    SProcessorMapping mapping = readMapping(body.value().root(), error);
    return error.isEmpty() ? Result(std::move(mapping))
                           : Result::failure(CStrictFile::wrongContent(source, error));
}

bool CProcessorCodec::isNewer(const QByteArray &bytes)
{
    return CStrictFile::isNewer(bytes, settingsFormat) || CStrictFile::isNewer(bytes, mappingFormat);
}
