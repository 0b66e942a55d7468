// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/editor/random/CReferenceLayout.h"

#include <QDebug>

CReferenceLayout::CReferenceLayout(const CabinetLayout &layout)
{
    for (const auto &port : layout.ports) {
        m_chains[port.index] = {};
        for (const auto &group : port.groups)
            read(port.index, group, QUuid());
        QMap<int, QUuid> byRank;
        for (const auto &cabinet : port.getAllCabinets()) {
            if (cabinet.rank >= 0)
                byRank.insert(cabinet.rank, cabinet.uuid);
        }
        m_chains[port.index] = byRank.values().toVector();
    }
}

/// Nothing but the areas of a cabinet.
static CabinetLayout::CabinetPort::Cabinet areasOf(const CabinetLayout::CabinetPort::Cabinet &cabinet)
{
    CabinetLayout::CabinetPort::Cabinet areas;
    areas.rects = cabinet.rects;
    areas.blanks = cabinet.blanks;
    areas.original = cabinet.original;
    return areas;
}

void CReferenceLayout::read(int port, const CabinetLayout::CabinetPort::CabinetGroup &group,
                            const QUuid &parent)
{
    if (!group.uuid.isNull())
        m_groups.insert(group.uuid, {port, parent});
    for (const auto &cabinet : group.cabinets)
        m_cabinets.insert(cabinet.uuid, {port, cabinet.rect, group.uuid, cabinet.type, areasOf(cabinet),
                                         cabinet.directionFixed});
    for (const auto &child : group.groups)
        read(port, child, group.uuid);
}

int CReferenceLayout::portOf(const QUuid &item) const
{
    return isGroup(item) ? m_groups.value(item).port : m_cabinets.value(item).port;
}

QRect CReferenceLayout::rectOf(const QUuid &item) const
{
    QRect rect;
    for (const QUuid &cabinet : cabinetsBelow({item}))
        rect |= m_cabinets.value(cabinet).rect;
    return rect;
}

QVector<QUuid> CReferenceLayout::cabinetsIn(int port) const
{
    QVector<QUuid> cabinets;
    for (auto cabinet = m_cabinets.begin(); cabinet != m_cabinets.end(); ++cabinet) {
        if (cabinet->port == port)
            cabinets << cabinet.key();
    }
    return cabinets;
}

CPlainStroke::Cells CReferenceLayout::cellsOf(const QVector<QUuid> &cabinets) const
{
    CPlainStroke::Cells cells;
    for (const QUuid &cabinet : cabinets)
        cells << qMakePair(cabinet, m_cabinets.value(cabinet).rect);
    return cells;
}

QSet<QUuid> CReferenceLayout::topItems() const
{
    QSet<QUuid> items;
    for (auto cabinet = m_cabinets.begin(); cabinet != m_cabinets.end(); ++cabinet) {
        if (cabinet->group.isNull())
            items.insert(cabinet.key());
    }
    for (auto group = m_groups.begin(); group != m_groups.end(); ++group) {
        if (group->parent.isNull())
            items.insert(group.key());
    }
    return items;
}

QSet<QUuid> CReferenceLayout::sameType(const QUuid &cabinet) const
{
    const SCabinet model = m_cabinets.value(cabinet);
    QSet<QUuid> same;
    for (const QUuid &other : cabinetsIn(model.port)) {
        const SCabinet candidate = m_cabinets.value(other);
        if (candidate.type == model.type &&
            (!model.type.isNull() || candidate.rect.size() == model.rect.size()))
            same.insert(other);
    }
    return same;
}

QSet<QUuid> CReferenceLayout::cabinetsBelow(const QSet<QUuid> &items) const
{
    QSet<QUuid> below;
    for (auto cabinet = m_cabinets.begin(); cabinet != m_cabinets.end(); ++cabinet) {
        if (items.contains(cabinet.key()))
            below.insert(cabinet.key());
        for (QUuid group = cabinet->group; !group.isNull(); group = m_groups.value(group).parent) {
            if (items.contains(group))
                below.insert(cabinet.key());
        }
    }
    return below;
}

bool CReferenceLayout::matches(const CReferenceLayout &actual) const
{
    if (m_cabinets == actual.m_cabinets && m_groups == actual.m_groups && m_chains == actual.m_chains)
        return true;
    return !m_invented.isEmpty() && described(*this) == actual.described(*this);
}

/// All items, nested as they are; those that @p model has not invented with their identities.
QStringList CReferenceLayout::described(const CReferenceLayout &model, const QUuid &parent) const
{
    const auto name = [&model](const QUuid &uuid) {
        const bool known =
            (model.m_cabinets.contains(uuid) || model.isGroup(uuid)) && !model.m_invented.contains(uuid);
        return known ? uuid.toString() : QString();
    };
    QStringList lines;
    for (auto group = m_groups.begin(); group != m_groups.end(); ++group) {
        if (group->parent == parent)
            lines << QStringLiteral("%1 %2 {%3}")
                         .arg(group->port)
                         .arg(name(group.key()), described(model, group.key()).join(QLatin1Char(',')));
    }
    for (auto cabinet = m_cabinets.begin(); cabinet != m_cabinets.end(); ++cabinet) {
        if (cabinet->group != parent)
            continue;
        QString line;
        QDebug(&line) << cabinet->port << cabinet->rect << cabinet->type.toText() << cabinet->areas.rects
                      << cabinet->fixed << m_chains.value(cabinet->port).indexOf(cabinet.key())
                      << name(cabinet.key());
        lines << line;
    }
    lines.sort();
    return lines;
}
