// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CCabinetConfig.h"

#include "host/projects/CStrictFile.h"
#include "layout/api/records/CRecordJson.h"
#include "layout/api/records/LayoutLimits.h"
#include "platform/json/CStrictObject.h"

namespace {

constexpr SFileFormat cabinetFormat{"orvo-cabinet-configuration",
                                    QT_TRANSLATE_NOOP("SFileFormat", "a cabinet configuration"), 2};

SCabinetConfig readConfig(const CJsonValue &body, QString &error)
{
    const SJsonPlace place;
    CStrictObject object(body, place, error);
    SCabinetConfig config;
    const auto type = CRecordJson::typeInfo(object.value("type"), "type");
    if (type)
        config.type = type.value();
    else if (error.isEmpty())
        error = type.error();
    config.rects = object.rectsOr("receivers", LayoutLimits::ReceiversPerCabinet);
    config.gamma = object.number("gamma", 1.0, 4.0);
    object.finish();
    return config;
}

} // namespace

CResult<SCabinetConfig> CCabinetConfig::read(const QString &file)
{
    return CStrictFile::readRecord<SCabinetConfig>(file, cabinetFormat, readConfig);
}

CStatus CCabinetConfig::write(const QString &file, const SCabinetConfig &config)
{
    return CStrictFile::writeRecord(file, cabinetFormat, readConfig, [&config] {
        QJsonObject body{{QStringLiteral("type"), CRecordJson::toJson(config.type)},
                         {QStringLiteral("gamma"), config.gamma}};
        if (!config.rects.isEmpty())
            body.insert(QStringLiteral("receivers"), CStrictObject::fromRects(config.rects));
        return body;
    });
}
