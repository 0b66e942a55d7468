// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/CProcessorKinds.h"

#include "host/devices/simulated/DevicesLog.h"

#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

using GenerationMap = QHash<QString, SReceiverGeneration>;

qint64 wholeNumber(const QJsonObject &object, const char *key)
{
    return static_cast<qint64>(object.value(QLatin1String(key)).toDouble());
}

SReceiverGeneration readGeneration(const QJsonObject &entry)
{
    SReceiverGeneration generation;
    generation.id = entry.value(QLatin1String("id")).toString();
    generation.netBitsPerSecond = wholeNumber(entry, "netBitsPerSecond");
    generation.chargesBoundingRect = entry.value(QLatin1String("chargesBoundingRect")).toBool();
    const QJsonObject bits = entry.value(QLatin1String("wireBits")).toObject();
    for (auto it = bits.begin(); it != bits.end(); ++it)
        generation.wireBits.insert(it.key().toInt(), it.value().toInt());
    return generation;
}

bool isUsable(const SReceiverGeneration &generation)
{
    const auto positive = [](int bits) { return bits > 0; };
    return !generation.id.isEmpty() && generation.netBitsPerSecond > 0 && !generation.wireBits.isEmpty() &&
           std::all_of(generation.wireBits.begin(), generation.wireBits.end(), positive) &&
           generation.wireBits.firstKey() > 0;
}

SProcessorKind readKind(const QJsonObject &entry, const GenerationMap &generations)
{
    SProcessorKind kind;
    kind.id = entry.value(QLatin1String("id")).toString();
    kind.name = entry.value(QLatin1String("name")).toString();
    kind.ports = entry.value(QLatin1String("ports")).toInt();
    kind.pixelLimit = wholeNumber(entry, "pixelLimit");
    const QJsonObject canvas = entry.value(QLatin1String("canvas")).toObject();
    kind.canvas.maximumWidth = canvas.value(QLatin1String("width")).toInt();
    kind.canvas.maximumHeight = canvas.value(QLatin1String("height")).toInt();
    kind.canvas.maximumArea = wholeNumber(canvas, "area");
    kind.lowLatencyWidth = entry.value(QLatin1String("lowLatencyWidth")).toInt();
    kind.portRedundancy = entry.value(QLatin1String("portRedundancy")).toBool();
    for (const QJsonValue &rate : entry.value(QLatin1String("frameRates")).toArray())
        kind.frameRates << rate.toInt();
    kind.generation = generations.value(entry.value(QLatin1String("generation")).toString());
    return kind;
}

bool isUsable(const SProcessorKind &kind)
{
    return !kind.id.isEmpty() && !kind.name.isEmpty() && kind.ports > 0 && kind.pixelLimit > 0 &&
           kind.canvas.maximumWidth > 0 && kind.canvas.maximumHeight > 0 && kind.canvas.maximumArea > 0 &&
           !kind.frameRates.isEmpty() && isUsable(kind.generation);
}

} // namespace

const CProcessorKinds &CProcessorKinds::builtIn()
{
    static const CProcessorKinds kinds = [] {
        Q_INIT_RESOURCE(devices);
        QFile file(QStringLiteral(":/devices/kinds.json"));
        const bool opened = file.open(QIODevice::ReadOnly);
        Q_ASSERT(opened);
        CResult<CProcessorKinds> result = fromJson(file.readAll());
        if (!result)
            qCCritical(devicesLog, "%s", qPrintable(result.error()));
        return result ? result.value() : CProcessorKinds();
    }();
    return kinds;
}

CResult<CProcessorKinds> CProcessorKinds::fromJson(const QByteArray &content)
{
    using Result = CResult<CProcessorKinds>;
    QJsonParseError error{};
    const QJsonObject root = QJsonDocument::fromJson(content, &error).object();
    if (error.error != QJsonParseError::NoError)
        return Result::failure(
            tr("Processor kinds: %1 at byte %2.").arg(error.errorString()).arg(error.offset));
    GenerationMap generations;
    for (const QJsonValue &entry : root.value(QLatin1String("generations")).toArray()) {
        const SReceiverGeneration generation = readGeneration(entry.toObject());
        generations.insert(generation.id, generation);
    }
    CProcessorKinds kinds;
    for (const QJsonValue &entry : root.value(QLatin1String("kinds")).toArray()) {
        const SProcessorKind kind = readKind(entry.toObject(), generations);
        if (!isUsable(kind) || kinds.find(kind.id))
            return Result::failure(tr("Processor kinds: entry %1 (\"%2\") is incomplete or stands twice.")
                                       .arg(kinds.m_kinds.size() + 1)
                                       .arg(kind.id));
        kinds.m_kinds << kind;
    }
    if (kinds.m_kinds.isEmpty())
        return Result::failure(tr("Processor kinds: there are none."));
    return kinds;
}

const SProcessorKind *CProcessorKinds::find(const QString &id) const
{
    const auto found = std::find_if(m_kinds.begin(), m_kinds.end(),
                                    [&id](const SProcessorKind &kind) { return kind.id == id; });
    return found == m_kinds.end() ? nullptr : &*found;
}

const SProcessorKind *CProcessorKinds::withPorts(int ports, bool portRedundancy) const
{
    const SProcessorKind *best = nullptr;
    for (const SProcessorKind &kind : m_kinds) {
        if (kind.ports >= ports && (kind.portRedundancy || !portRedundancy) &&
            (!best || kind.ports < best->ports))
            best = &kind;
    }
    return best;
}
