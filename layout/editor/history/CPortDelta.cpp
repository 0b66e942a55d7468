// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/history/CPortDelta.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <functional>
#include <utility>

namespace {

using Port = CabinetLayout::CabinetPort;
using Cabinet = Port::Cabinet;
using Groups = QVector<Port::CabinetGroup>;

template <typename GroupList, typename Visit>
void visitCabinets(GroupList &groups, const Visit &visit)
{
    for (auto &group : groups) {
        for (auto &cabinet : group.cabinets)
            visit(cabinet);
        visitCabinets(group.groups, visit);
    }
}

QVector<const Cabinet *> flat(const Groups &groups)
{
    QVector<const Cabinet *> cabinets;
    visitCabinets(groups, [&cabinets](const Cabinet &cabinet) { cabinets << &cabinet; });
    return cabinets;
}

/// Whether two versions of a port hold the same cabinets in the same groups, in the same order.
bool haveSameShape(const Groups &a, const Groups &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto &x, const auto &y) {
        return x.uuid == y.uuid && x.name == y.name &&
               std::equal(x.cabinets.begin(), x.cabinets.end(), y.cabinets.begin(), y.cabinets.end(),
                          [](const Cabinet &c, const Cabinet &d) { return c.uuid == d.uuid; }) &&
               haveSameShape(x.groups, y.groups);
    });
}

bool standTheSame(const Cabinet &a, const Cabinet &b)
{
    return a.rect == b.rect && a.rank == b.rank;
}

/// Of what is where, so that a step is not carried out on something else.
quint64 digestOf(const QVector<const Cabinet *> &cabinets)
{
    constexpr quint64 Factor = 1099511628211ULL;
    quint64 digest = quint64(cabinets.size());
    for (const Cabinet *cabinet : cabinets) {
        const QRect &rect = cabinet->rect;
        for (const uint part : {qHash(cabinet->uuid), uint(rect.x()), uint(rect.y()), uint(rect.width()),
                                uint(rect.height()), uint(cabinet->rank)})
            digest = (digest ^ part) * Factor;
    }
    return digest;
}

/// Whether nothing but places and ranks differs. Running highlights and places in the saved mapping are no
/// part of a step.
bool holdTheSame(const Cabinet &a, const Cabinet &b)
{
    Cabinet moved = b;
    moved.rect = a.rect;
    moved.rank = a.rank;
    moved.mappingIndex = a.mappingIndex;
    moved.calibrationIndex = a.calibrationIndex;
    return moved == a;
}

} // namespace

CPortDelta::CPortDelta(const SEditStep::SPort &port)
    : m_port(port.after.index)
    , m_whole(SWhole{{port.before.groups, port.after.groups}})
{
}

CPortDelta::CPortDelta(std::shared_ptr<const IPortChange> kept)
    : m_port(kept->port())
    , m_kept(std::move(kept))
{
}

std::optional<CPortDelta::Groups> CPortDelta::groups(ESide side, const Groups &other) const
{
    if (m_kept)
        return m_kept->groups(side, other);
    if (m_whole)
        return m_whole->groups[side];
    const Cabinets known = flat(other);
    const ESide from = IPortChange::otherOf(side);
    if (known.size() != m_size[from] || digestOf(known) != m_digest[from])
        return std::nullopt;
    if (m_shapes)
        return built(m_shapes->shape[side], m_shapes->own[side], known);
    Groups groups = other;
    QVector<Cabinet *> cabinets;
    visitCabinets(groups, [&cabinets](Cabinet &cabinet) { cabinets << &cabinet; });
    for (const SPlace &place : m_places) {
        cabinets[place.index]->rank = place.rank[side];
        cabinets[place.index]->rect = place.rect[side];
    }
    for (const SContent &content : m_contents)
        *cabinets[content.index] = content.record[side];
    return groups;
}

QVector<QUuid> CPortDelta::changed(const SEditStep::SPort &port)
{
    CPortDelta delta(port);
    delta.compact();
    const Cabinets cabinets = flat(port.after.groups);
    QVector<QUuid> changed;
    QVector<QUuid> rewired;
    for (const SPlace &place : qAsConst(delta.m_places))
        (place.rect[Before] == place.rect[After] ? rewired : changed) << cabinets.at(place.index)->uuid;
    for (const SContent &content : qAsConst(delta.m_contents))
        changed << content.record[After].uuid;
    if (delta.m_shapes) {
        for (const Cabinet &cabinet : qAsConst(delta.m_shapes->own[After]))
            changed << cabinet.uuid;
    }
    return changed.isEmpty() ? rewired : changed;
}

void CPortDelta::compact()
{
    if (!m_whole)
        return;
    const Cabinets before = flat(m_whole->groups[Before]);
    const Cabinets after = flat(m_whole->groups[After]);
    m_size[Before] = before.size();
    m_size[After] = after.size();
    m_digest[Before] = digestOf(before);
    m_digest[After] = digestOf(after);
    if (haveSameShape(m_whole->groups[Before], m_whole->groups[After]))
        compactInPlace(before, after);
    else
        compactShapes(before, after);
    m_whole.reset();
}

void CPortDelta::compactInPlace(const Cabinets &before, const Cabinets &after)
{
    for (int i = 0; i < before.size(); ++i) {
        const Cabinet &a = *before.at(i);
        const Cabinet &b = *after.at(i);
        if (!holdTheSame(a, b))
            m_contents << SContent{i, {a, b}};
        else if (!standTheSame(a, b))
            m_places << SPlace{i, {a.rank, b.rank}, {a.rect, b.rect}};
    }
    m_places.squeeze();
    m_contents.squeeze();
}

void CPortDelta::compactShapes(const Cabinets &before, const Cabinets &after)
{
    const auto placesOf = [](const Cabinets &cabinets) {
        Places places;
        for (int i = 0; i < cabinets.size(); ++i)
            places.insert(cabinets.at(i)->uuid, i);
        return places;
    };
    m_shapes.emplace();
    m_shapes->shape[Before] = shapeOf(m_whole->groups[Before], after, placesOf(after), m_shapes->own[Before]);
    m_shapes->shape[After] = shapeOf(m_whole->groups[After], before, placesOf(before), m_shapes->own[After]);
}

QVector<CPortDelta::SShape> CPortDelta::shapeOf(const Groups &groups, const Cabinets &other,
                                                const Places &places, QVector<Cabinet> &own)
{
    QVector<SShape> shapes;
    for (const auto &group : groups) {
        SShape shape{group.uuid, group.name, {}, {}};
        shape.cabinets.reserve(group.cabinets.size());
        for (const Cabinet &cabinet : group.cabinets) {
            int reference = places.value(cabinet.uuid, -1);
            if (reference < 0 || !holdTheSame(cabinet, *other.at(reference))) {
                own << cabinet;
                reference = -own.size();
            }
            shape.cabinets << SReference{reference, cabinet.rank, cabinet.rect};
        }
        shape.groups = shapeOf(group.groups, other, places, own);
        shapes << shape;
    }
    return shapes;
}

CPortDelta::Groups CPortDelta::built(const QVector<SShape> &shapes, const QVector<Cabinet> &own,
                                     const Cabinets &other)
{
    Groups groups;
    for (const SShape &shape : shapes) {
        Port::CabinetGroup group;
        group.uuid = shape.uuid;
        group.name = shape.name;
        group.cabinets.reserve(shape.cabinets.size());
        for (const SReference &reference : shape.cabinets) {
            group.cabinets << (reference.other < 0 ? own.at(-1 - reference.other)
                                                   : *other.at(reference.other));
            group.cabinets.last().rank = reference.rank;
            group.cabinets.last().rect = reference.rect;
        }
        group.groups = built(shape.groups, own, other);
        groups << group;
    }
    return groups;
}

qint64 CPortDelta::bytes() const
{
    const auto sizeOf = [](const auto &list) {
        return qint64(list.capacity()) * qint64(sizeof(*list.constData()));
    };
    const auto recordsOf = [](const Groups &groups) {
        int count = 0;
        visitCabinets(groups, [&count](const Cabinet &) { ++count; });
        return qint64(count) * qint64(sizeof(Cabinet));
    };
    qint64 bytes = qint64(sizeof(*this)) + sizeOf(m_places) + sizeOf(m_contents);
    if (m_kept)
        bytes += m_kept->bytes();
    if (m_whole)
        bytes += recordsOf(m_whole->groups[Before]) + recordsOf(m_whole->groups[After]);
    if (m_shapes) {
        bytes += sizeOf(m_shapes->own[Before]) + sizeOf(m_shapes->own[After]);
        bytes += qint64(m_size[Before] + m_size[After]) * qint64(sizeof(SReference));
    }
    return bytes;
}
