// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/dialog/PrintMemory.h"

#include "layout/api/records/CPrintConfigJson.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>

namespace {

constexpr int MostOwnSettings = 100; // processors

QSettings settings()
{
    return QSettings(QStringLiteral("Velmarinth"), QStringLiteral("Orvo"));
}

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
        return QJsonDocument::fromJson(settings().value(key).toByteArray()).object();
    };
    SPrintJob job;
    job.whole = configOf(read(wholeKey()));
    const QJsonObject own = read(ownKey());
    for (auto it = own.begin(); it != own.end(); ++it) {
        PrintConfig config = configOf(it.value());
        config.processor = QUuid(it.key());
        if (!config.processor.isNull())
            job.own.insert(config.processor, config);
    }
    return job;
}

void PrintMemory::save(const SPrintJob &job)
{
    QJsonObject own;
    for (auto it = job.own.begin(); it != job.own.end() && own.size() < MostOwnSettings; ++it)
        own[it.key().toString()] = CPrintConfigJson::toJson(it.value());
    const auto write = [](const QString &key, const QJsonObject &json) {
        settings().setValue(key, QJsonDocument(json).toJson(QJsonDocument::Compact));
    };
    write(wholeKey(), CPrintConfigJson::toJson(job.whole));
    write(ownKey(), own);
}
