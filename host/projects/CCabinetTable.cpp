// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CCabinetTable.h"

#include "host/library/CTypeLibrary.h"

#include <QHash>

#include <algorithm>
#include <limits>
#include <tuple>

namespace {

using Port = CabinetLayout::CabinetPort;
using Cabinet = Port::Cabinet;
using Group = Port::CabinetGroup;

/// One cabinet with what its row says beside it.
struct STableRow
{
    const Cabinet *cabinet;
    QByteArray group; ///< ready to be written
};

/// A field as written to the file; quoted only if necessary.
QByteArray csvField(const QString &text)
{
    QByteArray field = text.toUtf8();
    const auto needsQuotes = [](char c) { return c == ',' || c == '"' || c == '\n' || c == '\r'; };
    if (std::any_of(field.begin(), field.end(), needsQuotes))
        field = '"' + field.replace('"', "\"\"") + '"';
    return field;
}

/// The names of all types that occur, each looked up once.
class CTypeNames final
{
public:
    const QByteArray &nameOf(const SMD5 &type)
    {
        const QByteArray key = type.toText();
        auto found = m_names.find(key);
        if (found == m_names.end()) {
            const CTypeLibrary::RcvTypeInfo *info =
                type.isNull() ? nullptr : CTypeLibrary::builtIn().find(type);
            found = m_names.insert(key, info ? csvField(info->name) : key);
        }
        return *found;
    }

private:
    QHash<QByteArray, QByteArray> m_names;
};

/// @p outer is the path of names of the groups around it.
void collectRows(const Group &group, const QString &outer, QVector<STableRow> &rows)
{
    const QString own =
        group.name.isEmpty() && !group.isLoose() ? group.uuid.toString(QUuid::WithoutBraces) : group.name;
    const QString path = outer.isEmpty() ? own : outer + QLatin1Char('/') + own;
    const QByteArray field = csvField(path);
    for (const Cabinet &cabinet : group.cabinets)
        rows.append({&cabinet, field});
    for (const Group &child : group.groups)
        collectRows(child, path, rows);
}

bool rowBefore(const STableRow &a, const STableRow &b)
{
    const auto key = [](const Cabinet &c) {
        return std::make_tuple(c.rank < 0 ? std::numeric_limits<int>::max() : c.rank, c.rect.y(), c.rect.x(),
                               c.uuid);
    };
    return key(*a.cabinet) < key(*b.cabinet);
}

void appendRow(QByteArray &csv, int port, const STableRow &row, const QByteArray &type)
{
    const Cabinet &cabinet = *row.cabinet;
    const auto number = [&csv](int value) { csv.append(QByteArray::number(value)).append(','); };
    number(port + 1);
    if (cabinet.rank >= 0)
        csv.append(QByteArray::number(cabinet.rank));
    csv.append(',').append(cabinet.uuid.toByteArray(QUuid::WithoutBraces)).append(',');
    number(cabinet.rect.x());
    number(cabinet.rect.y());
    number(cabinet.rect.width());
    number(cabinet.rect.height());
    csv.append(type).append(',').append(row.group).append("\r\n");
}

} // namespace

QByteArray CCabinetTable::toCsv(const CabinetLayout &layout)
{
    QByteArray csv = "port,rank,uuid,x,y,width,height,type,group\r\n";
    CTypeNames types;
    for (const Port &port : layout.ports) {
        QVector<STableRow> rows;
        for (const Group &group : port.groups)
            collectRows(group, {}, rows);
        std::sort(rows.begin(), rows.end(), rowBefore);
        for (const STableRow &row : qAsConst(rows))
            appendRow(csv, port.index, row, types.nameOf(row.cabinet->type));
    }
    return csv;
}
