// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/dialog/PrintMemory.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/api/access/ModuleSettings.h"
#include "layout/api/records/CPrintConfigJson.h"
#include "layout/printing/sheets/SSheetArea.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

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

PrintConfig configOf(const QJsonObject &json)
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
        const QUuid processor(it.key());
        if (!processor.isNull())
            job.take(processor, configOf(it.value().toObject()));
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
            job.whole = job.own.value(key);
        first = first && !chosen.contains(key);
    }
    for (auto own = job.own.begin(); own != job.own.end();)
        own = *own == job.whole ? job.own.erase(own) : own + 1;
    return job;
}

PrintConfig PrintMemory::changed(const PrintConfig &usual, const PrintConfig &opened,
                                 const PrintConfig &closed)
{
    const QJsonObject before = CPrintConfigJson::toJson(opened);
    const QJsonObject after = CPrintConfigJson::toJson(closed);
    QJsonObject made = CPrintConfigJson::toJson(usual);
    const QStringList keys = before.keys() + after.keys();
    for (const QString &key : keys) {
        if (before.value(key) == after.value(key))
            continue;
        made.remove(key); // to the default, which has no member
        if (after.contains(key))
            made.insert(key, after.value(key));
    }
    return configOf(made);
}

void PrintMemory::takePaper(SPrintJob &job, const SPrintJob &other, const QVector<QUuid> &unfit)
{
    const auto take = [](PrintConfig &config, const PrintConfig &from, bool isUnfit) {
        if (!isUnfit && SSheetArea::of(config).isUsable())
            return;
        config.paper = from.paper;
        config.customPaper = from.customPaper;
        config.landscape = from.landscape;
        config.binding = from.binding;
        config.bindingMargin = from.bindingMargin;
        config.margin = from.margin;
        config.scale = from.scale;
    };
    take(job.whole, other.whole,
         std::any_of(unfit.begin(), unfit.end(), [&](const QUuid &key) { return !job.own.contains(key); }));
    for (auto own = job.own.begin(); own != job.own.end(); ++own)
        take(*own, other.own.value(own.key(), other.whole), unfit.contains(own.key()));
}

void PrintMemory::keep(const SPrintInput &input, const QList<QUuid> &chosen, const SPrintJob &opened,
                       const SPrintJob &closed)
{
    SPrintJob remembered = load();
    remembered.whole = changed(remembered.whole, opened.whole, closed.whole);
    for (const SPrintedProcessor &processor : input.processors) {
        const QUuid key = processor.node.uuid;
        const bool concerned = chosen.contains(key) || closed.own.contains(key) || opened.own.contains(key);
        const PrintConfig now = closed.of(key).kept();
        if (!concerned || now == opened.of(key).kept())
            continue;
        remembered.own.remove(key);
        remembered.addresses.remove(key);
        if (CHostAccess::call<&ILayoutInterfaceHandler::setPrintSettings>(key, now))
            continue;
        if (closed.own.contains(key))
            remembered.own.insert(key, closed.own.value(key));
        if (!now.address.isEmpty())
            remembered.addresses.insert(key, now.address);
    }
    save(remembered);
}

void PrintMemory::save(const SPrintJob &job)
{
    QJsonObject own;
    const QList<QUuid> known = job.own.keys() + job.addresses.keys();
    for (int i = 0; i < known.size() && own.size() < MostOwnSettings; ++i) {
        PrintConfig config = job.own.value(known.at(i));
        config.address = job.addresses.value(known.at(i));
        if (job.own.contains(known.at(i)))
            config = config.kept();
        own[known.at(i).toString()] = CPrintConfigJson::toJson(config);
    }
    const auto write = [](const QString &key, const QJsonObject &json) {
        ModuleSettings::open().setValue(key, QJsonDocument(json).toJson(QJsonDocument::Compact));
    };
    write(wholeKey(), CPrintConfigJson::toJson(job.whole));
    write(ownKey(), own);
}
