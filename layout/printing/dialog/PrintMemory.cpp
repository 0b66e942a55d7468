// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/dialog/PrintMemory.h"

#include "layout/api/access/ModuleSettings.h"
#include "layout/api/records/CPrintConfigJson.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr int MostOwnSettings = 100; // processors

QString wholeKey()
{
    return QStringLiteral("client/print/job");
}

QString ownKey()
{
    return QStringLiteral("client/print/processors");
}

PrintConfig configOf(const QJsonValue &json)
{
    const CResult<PrintConfig> config = CPrintConfigJson::config(json, "print");
    return config ? config.value() : PrintConfig();
}

} // namespace

SPrintJob PrintMemory::load()
{
    const auto read = [](const QString &key) {
        return QJsonDocument::fromJson(ModuleSettings::open().value(key).toByteArray()).object();
    };
    SPrintJob job;
    job.whole = configOf(read(wholeKey()));
    const QJsonObject own = read(ownKey());
    for (auto it = own.begin(); it != own.end(); ++it) {
        PrintConfig config = configOf(it.value());
        config.processor = QUuid(it.key());
        if (!config.processor.isNull())
            job.take(config.processor, config);
    }
    return job;
}

SPrintJob PrintMemory::opened(const SPrintInput &input, const QList<QUuid> &chosen,
                              const QMap<QUuid, PrintConfig> &kept)
{
    SPrintJob job = load();
    bool first = true;
    for (const SPrintedProcessor &processor : input.processors) {
        const QUuid key = processor.node.uuid;
        if (kept.contains(key))
            job.take(key, kept.value(key));
        if (first && chosen.contains(key) && kept.contains(key) && job.own.contains(key))
            job.whole = job.own.value(key).kept();
        first = first && !chosen.contains(key);
    }
    for (auto own = job.own.begin(); own != job.own.end();)
        own = own->kept() == job.whole ? job.own.erase(own) : own + 1;
    return job;
}

void PrintMemory::save(const SPrintJob &job)
{
    QJsonObject own;
    const QList<QUuid> known = job.own.keys() + job.addresses.keys();
    for (int i = 0; i < known.size() && own.size() < MostOwnSettings; ++i) {
        PrintConfig config = job.own.value(known.at(i));
        config.address = job.addresses.value(known.at(i));
        own[known.at(i).toString()] = CPrintConfigJson::toJson(config);
    }
    const auto write = [](const QString &key, const QJsonObject &json) {
        ModuleSettings::open().setValue(key, QJsonDocument(json).toJson(QJsonDocument::Compact));
    };
    write(wholeKey(), CPrintConfigJson::toJson(job.whole));
    write(ownKey(), own);
}
