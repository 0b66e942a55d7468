// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/figures/CCabinetTable.h"

#include "layout/printing/figures/SPrintPlan.h"

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

/// The rows of one processor.
class CRows final
{
public:
    CRows(const SPrintPlan &plan, const SPlanProcessor &processor, QByteArray &csv)
        : m_plan(plan)
        , m_processor(processor)
        , m_name(csvField(processor.source.node.name))
        , m_csv(csv)
    {
        for (const SPlanCabinet &cabinet : processor.cabinets)
            m_planned.insert(cabinet.uuid, &cabinet);
    }

    void append()
    {
        for (const Port &port : m_processor.source.layout.ports) {
            QVector<STableRow> rows;
            for (const Group &group : port.groups)
                collectRows(group, {}, rows);
            std::sort(rows.begin(), rows.end(), rowBefore);
            for (const STableRow &row : qAsConst(rows))
                append(port.index, row);
        }
    }

private:
    void append(int port, const STableRow &row)
    {
        const Cabinet &cabinet = *row.cabinet;
        const SPlanCabinet &planned = *m_planned.value(cabinet.uuid);
        number(port + 1);
        optional(cabinet.rank >= 0, cabinet.rank);
        m_csv.append(cabinet.uuid.toByteArray(QUuid::WithoutBraces)).append(',');
        number(cabinet.rect.x());
        number(cabinet.rect.y());
        number(cabinet.rect.width());
        number(cabinet.rect.height());
        m_csv.append(typeName(cabinet.type)).append(',').append(row.group).append(',');
        optional(planned.number > 0, planned.number);
        number(planned.row);
        number(planned.column);
        number(qRound(planned.millimetres.x()));
        number(qRound(planned.millimetres.y()));
        m_csv.append(m_name).append("\r\n");
    }

    void number(int value) { m_csv.append(QByteArray::number(value)).append(','); }
    void optional(bool shown, int value)
    {
        if (shown)
            number(value);
        else
            m_csv.append(',');
    }

    QByteArray typeName(const SMD5 &type)
    {
        const QByteArray key = type.toText();
        auto found = m_typeNames.find(key);
        if (found == m_typeNames.end()) {
            const auto known = m_plan.typeNames.constFind(type);
            found = m_typeNames.insert(key, known == m_plan.typeNames.constEnd() ? key : csvField(*known));
        }
        return *found;
    }

    const SPrintPlan &m_plan;
    const SPlanProcessor &m_processor;
    const QByteArray m_name;
    QByteArray &m_csv;
    QHash<QUuid, const SPlanCabinet *> m_planned;
    QHash<QByteArray, QByteArray> m_typeNames; ///< each looked up once
};

} // namespace

QByteArray CCabinetTable::toCsv(const SPrintPlan &plan)
{
    QByteArray csv = "port,rank,uuid,x,y,width,height,type,group,number,row,column,x_mm,y_mm,processor\r\n";
    for (const SPlanProcessor &processor : plan.processors)
        CRows(plan, processor, csv).append();
    return csv;
}
