// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/editor/random/CReferenceModel.h"

#include <algorithm>
#include <tuple>

CReferenceModel::CReferenceModel(const CabinetLayout &layout)
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

void CReferenceModel::read(int port, const CabinetLayout::CabinetPort::CabinetGroup &group,
                           const QUuid &parent)
{
    if (!group.uuid.isNull())
        m_groups.insert(group.uuid, {port, parent});
    for (const auto &cabinet : group.cabinets)
        m_cabinets.insert(cabinet.uuid, {port, cabinet.rect, group.uuid});
    for (const auto &child : group.groups)
        read(port, child, group.uuid);
}

int CReferenceModel::portOf(const QUuid &item) const
{
    return isGroup(item) ? m_groups.value(item).port : m_cabinets.value(item).port;
}

QRect CReferenceModel::rectOf(const QUuid &item) const
{
    QRect rect;
    for (const QUuid &cabinet : cabinetsBelow({item}))
        rect |= m_cabinets.value(cabinet).rect;
    return rect;
}

QSet<QUuid> CReferenceModel::cabinetsBelow(const QSet<QUuid> &items) const
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

void CReferenceModel::translate(const QSet<QUuid> &items, const QPoint &step)
{
    for (const QUuid &cabinet : cabinetsBelow(items))
        m_cabinets[cabinet].rect.translate(step);
}

void CReferenceModel::nudge(const QSet<QUuid> &items, const QPoint &step)
{
    for (const QUuid &item : items) {
        const QPoint corner = rectOf(item).topLeft();
        QPoint target = corner + step;
        if (step.x() < 0)
            target.setX(std::max(target.x(), 0));
        if (step.y() < 0)
            target.setY(std::max(target.y(), 0));
        translate({item}, target - corner);
    }
}

void CReferenceModel::resize(const QUuid &item, const QPoint &step, int largest)
{
    const QRect from = rectOf(item);
    QSize part(1, 1);
    for (const QUuid &cabinet : cabinetsBelow({item}))
        part = part.expandedTo(m_cabinets.value(cabinet).rect.size());
    const QSize to(qBound(1, from.width() + step.x(), int(qint64(from.width()) * largest / part.width())),
                   qBound(1, from.height() + step.y(), int(qint64(from.height()) * largest / part.height())));
    // An edge keeps its share of the way, rounded to a pixel.
    const auto share = [](int distance, int newSide, int side) {
        return int((2 * qint64(distance) * newSide + side) / (2 * side));
    };
    for (const QUuid &cabinet : cabinetsBelow({item})) {
        QRect &rect = m_cabinets[cabinet].rect;
        const QPoint near = rect.topLeft() - from.topLeft();
        const QPoint far = near + QPoint(rect.width(), rect.height());
        const QPoint corner(share(near.x(), to.width(), from.width()),
                            share(near.y(), to.height(), from.height()));
        const QSize size(share(far.x(), to.width(), from.width()) - corner.x(),
                         share(far.y(), to.height(), from.height()) - corner.y());
        rect = QRect(from.topLeft() + corner, size.expandedTo(QSize(1, 1)));
    }
}

QVector<QUuid> CReferenceModel::snake(const QVector<QUuid> &cabinets, int pattern) const
{
    // The scan lines as they are told: a strip for each line, and whatever it touches first belongs to it.
    const bool rows = pattern < 4;
    const bool firstForward = pattern == 0 || pattern == 3 || pattern == 4 || pattern == 5;
    const bool advanceForward = pattern == 0 || pattern == 1 || pattern == 4 || pattern == 7;
    QRect bounds;
    QSize cell(INT_MAX, INT_MAX);
    for (const QUuid &cabinet : cabinets) {
        const QRect rect = m_cabinets.value(cabinet).rect;
        bounds |= rect;
        if (qint64(rect.width()) * rect.height() < qint64(cell.width()) * cell.height())
            cell = rect.size();
    }
    const int pitch = rows ? cell.height() : cell.width();
    const int extent = rows ? bounds.height() : bounds.width();
    const int begin = rows ? bounds.top() : bounds.left();
    QVector<QUuid> left = cabinets;
    QVector<QUuid> order;
    for (int i = 0; i * pitch < extent; ++i) {
        const int place =
            advanceForward ? begin + pitch / 2 + i * pitch : begin + extent - pitch / 2 - i * pitch;
        const QRectF strip = rows ? QRectF(bounds.left(), place, bounds.width(), 1)
                                  : QRectF(place, bounds.top(), 1, bounds.height());
        QVector<QUuid> line;
        for (const QUuid &cabinet : qAsConst(left)) {
            if (QRectF(m_cabinets.value(cabinet).rect).intersects(strip))
                line << cabinet;
        }
        const bool ascending = (i % 2 == 0) == firstForward;
        std::sort(line.begin(), line.end(), [&](const QUuid &a, const QUuid &b) {
            const QPointF ca = QRectF(m_cabinets.value(a).rect).center();
            const QPointF cb = QRectF(m_cabinets.value(b).rect).center();
            const qreal alongA = rows ? ca.x() : ca.y();
            const qreal alongB = rows ? cb.x() : cb.y();
            if (alongA != alongB)
                return ascending ? alongA < alongB : alongA > alongB;
            const qreal acrossA = rows ? ca.y() : ca.x();
            const qreal acrossB = rows ? cb.y() : cb.x();
            return acrossA != acrossB ? acrossA < acrossB : a < b;
        });
        for (const QUuid &cabinet : qAsConst(line))
            left.removeOne(cabinet);
        order += line;
    }
    return order;
}

void CReferenceModel::wireByPattern(const QSet<QUuid> &cabinets, int pattern)
{
    for (auto chain = m_chains.begin(); chain != m_chains.end(); ++chain) {
        // Of equally small cells the topmost, then leftmost one sets the pitch.
        QVector<QUuid> selected;
        for (auto cabinet = m_cabinets.begin(); cabinet != m_cabinets.end(); ++cabinet) {
            if (cabinet->port == chain.key() && cabinets.contains(cabinet.key()))
                selected << cabinet.key();
        }
        if (selected.isEmpty())
            continue;
        if (selected.size() == 1) {
            if (chain->isEmpty())
                *chain = selected;
            continue;
        }
        std::sort(selected.begin(), selected.end(), [this](const QUuid &a, const QUuid &b) {
            const QPoint first = m_cabinets.value(a).rect.topLeft();
            const QPoint second = m_cabinets.value(b).rect.topLeft();
            if (first.y() != second.y())
                return first.y() < second.y();
            return first.x() != second.x() ? first.x() < second.x() : a < b;
        });
        const QVector<QUuid> stretch = snake(selected, pattern);
        QVector<QUuid> result;
        bool placed = false;
        for (const QUuid &cabinet : qAsConst(*chain)) {
            if (!cabinets.contains(cabinet))
                result << cabinet;
            else if (!placed)
                result += stretch;
            placed = placed || cabinets.contains(cabinet);
        }
        *chain = placed ? result : result + stretch;
    }
}

void CReferenceModel::unwire(const QSet<QUuid> &cabinets)
{
    for (QVector<QUuid> &chain : m_chains) {
        chain.erase(std::remove_if(chain.begin(), chain.end(),
                                   [&](const QUuid &cabinet) { return cabinets.contains(cabinet); }),
                    chain.end());
    }
}

QVector<QUuid> CReferenceModel::crossedBy(int port, const QPointF &from, const QPointF &to) const
{
    // The lines on which edges lie cut the way into pieces; each piece is in a cabinet or it is not.
    const QPointF step = to - from;
    QVector<QUuid> byPlace;
    QVector<qreal> cuts = {0, 1};
    const auto cut = [&cuts](qreal distance, qreal length) {
        if (length != 0 && distance / length > 0 && distance / length < 1)
            cuts << distance / length;
    };
    for (auto cabinet = m_cabinets.begin(); cabinet != m_cabinets.end(); ++cabinet) {
        if (cabinet->port != port)
            continue;
        byPlace << cabinet.key();
        const QRectF rect(cabinet->rect);
        cut(rect.left() - from.x(), step.x());
        cut(rect.right() - from.x(), step.x());
        cut(rect.top() - from.y(), step.y());
        cut(rect.bottom() - from.y(), step.y());
    }
    std::sort(cuts.begin(), cuts.end());
    cuts.erase(std::unique(cuts.begin(), cuts.end()), cuts.end());
    std::sort(byPlace.begin(), byPlace.end(), [this](const QUuid &a, const QUuid &b) {
        const QPoint first = m_cabinets.value(a).rect.topLeft();
        const QPoint second = m_cabinets.value(b).rect.topLeft();
        return std::make_tuple(first.y(), first.x(), a) < std::make_tuple(second.y(), second.x(), b);
    });
    QVector<QPointF> places;
    for (int i = 0; i + 1 < cuts.size(); ++i)
        places << from + step * ((cuts.at(i) + cuts.at(i + 1)) / 2);
    if (step.isNull())
        return {};
    places << to;
    QVector<QUuid> crossed;
    for (const QPointF &middle : qAsConst(places)) {
        for (const QUuid &cabinet : qAsConst(byPlace)) {
            const QRectF rect(m_cabinets.value(cabinet).rect);
            if (middle.x() >= rect.left() && middle.x() < rect.right() && middle.y() >= rect.top() &&
                middle.y() < rect.bottom())
                crossed << cabinet;
        }
    }
    return crossed;
}

void CReferenceModel::drawStroke(int port, const QUuid &first, const QVector<QPointF> &way)
{
    QVector<QUuid> once = {first};
    for (int i = 0; i + 1 < way.size(); ++i) {
        for (const QUuid &cabinet : crossedBy(port, way.at(i), way.at(i + 1))) {
            if (!once.contains(cabinet))
                once << cabinet;
        }
    }
    QVector<QUuid> &chain = m_chains[port];
    const bool goesOn = chain.contains(once.first());
    for (int i = goesOn ? 1 : 0; i < once.size(); ++i)
        chain.removeOne(once.at(i));
    int place = goesOn ? chain.indexOf(once.first()) + 1 : chain.size();
    for (int i = goesOn ? 1 : 0; i < once.size(); ++i)
        chain.insert(place++, once.at(i));
}

void CReferenceModel::group(const QSet<QUuid> &items, const QUuid &newGroup)
{
    m_groups.insert(newGroup, {portOf(*items.begin()), QUuid()});
    for (const QUuid &item : items) {
        if (isGroup(item))
            m_groups[item].parent = newGroup;
        else
            m_cabinets[item].group = newGroup;
    }
}

void CReferenceModel::ungroup(const QUuid &group)
{
    for (SCabinet &cabinet : m_cabinets) {
        if (cabinet.group == group)
            cabinet.group = QUuid();
    }
    for (SGroup &inner : m_groups) {
        if (inner.parent == group)
            inner.parent = QUuid();
    }
    m_groups.remove(group);
}

void CReferenceModel::remove(const QSet<QUuid> &cabinets)
{
    unwire(cabinets);
    QSet<QUuid> around;
    for (const QUuid &cabinet : cabinets) {
        for (QUuid group = groupOf(cabinet); !group.isNull(); group = m_groups.value(group).parent)
            around.insert(group);
    }
    for (const QUuid &cabinet : cabinets)
        m_cabinets.remove(cabinet);
    dropEmptyGroups(around);
}

void CReferenceModel::dropEmptyGroups(const QSet<QUuid> &candidates)
{
    QSet<QUuid> empty;
    for (const QUuid &group : candidates) {
        if (cabinetsBelow({group}).isEmpty())
            empty.insert(group);
    }
    for (const QUuid &group : qAsConst(empty))
        ungroup(group);
}

void CReferenceModel::prepareBackup(int port)
{
    m_chains[port].clear();
    for (SCabinet &cabinet : m_cabinets) {
        if (cabinet.port == port)
            cabinet.group = QUuid();
    }
    for (auto group = m_groups.begin(); group != m_groups.end();)
        group = group->port == port ? m_groups.erase(group) : std::next(group);
}
