// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CCurrentGainFile.h"

#include "host/projects/CStrictFile.h"
#include "platform/json/CStrictObject.h"

#include <QSet>

namespace {

constexpr SFileFormat gainFormat{"orvo-current-gain",
                                 QT_TRANSLATE_NOOP("SFileFormat", "a file of current-gain parameters"), 1};
constexpr int LargestGainCode = 2;
constexpr int GainColors = 3;

SCurrentGainRow readRow(const CJsonValue &json, const SJsonPlace &place, QString &error)
{
    CStrictObject object(json, place, error);
    SCurrentGainRow row;
    row.frameRateCode = object.smallInteger("frameRate", 0, LargestGainCode);
    row.gainLevel = object.smallInteger("gainLevel", 0, LargestGainCode);
    row.values = object.integersOr<int>("values", 0, 255, GainColors);
    if (row.values.size() != GainColors)
        object.fail("values", CStrictFile::tr("the gains of red, green and blue are expected"));
    object.finish();
    return row;
}

QVector<SCurrentGainRow> readRows(const CJsonValue &body, QString &error)
{
    const SJsonPlace place;
    CStrictObject object(body, place, error);
    const CJsonValue items = object.array("rows");
    const SJsonPlace rowsPlace = object.placeOf("rows");
    QVector<SCurrentGainRow> rows;
    QSet<int> seen;
    for (int i = 0; i < items.elements() && error.isEmpty(); ++i) {
        const SJsonPlace rowPlace{&rowsPlace, nullptr, i};
        rows.append(readRow(items.at(i), rowPlace, error));
        const int code = rows.last().frameRateCode * (LargestGainCode + 1) + rows.last().gainLevel;
        if (seen.contains(code))
            CStrictObject(items.at(i), rowPlace, error)
                .fail("gainLevel", CStrictFile::tr("the row of this frame rate and level occurs twice"));
        seen.insert(code);
    }
    object.finish();
    return rows;
}

} // namespace

CResult<QVector<SCurrentGainRow>> CCurrentGainFile::read(const QString &file)
{
    return CStrictFile::readRecord<QVector<SCurrentGainRow>>(file, gainFormat, readRows);
}

CStatus CCurrentGainFile::write(const QString &file, const QVector<SCurrentGainRow> &rows)
{
    return CStrictFile::writeRecord(file, gainFormat, readRows, [&rows] {
        QJsonArray items;
        for (const SCurrentGainRow &row : rows) {
            QJsonArray values;
            for (const int value : row.values)
                values.append(value);
            items.append(QJsonObject{{QStringLiteral("frameRate"), row.frameRateCode},
                                     {QStringLiteral("gainLevel"), row.gainLevel},
                                     {QStringLiteral("values"), values}});
        }
        return QJsonObject{{QStringLiteral("rows"), items}};
    });
}
