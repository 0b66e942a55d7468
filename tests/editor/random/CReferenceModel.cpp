// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/editor/random/CReferenceModel.h"

#include "layout/api/records/LayoutLimits.h"
#include "layout/geometry/CAppendPlan.h"
#include "layout/geometry/CReceiverAreas.h"
#include "layout/geometry/CResizeHandles.h"
#include "layout/geometry/CSnakeOrder.h"
#include "tests/editor/random/CPlainStroke.h"

#include <algorithm>

namespace {

QVector<QUuid> inOrder(const CPlainStroke::Cells &cells, int pattern)
{
    QVector<CSnakeOrder::SCell> places;
    for (const auto &cell : cells)
        places << CSnakeOrder::SCell{QRectF(cell.second), cell.first};
    QVector<QUuid> order;
    for (const int index : CSnakeOrder::order(places, pattern))
        order << cells.at(index).first;
    return order;
}

} // namespace

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
    QSize least(1, 1);
    for (const QUuid &uuid : cabinetsBelow({item})) {
        const SCabinet &cabinet = m_cabinets[uuid];
        const QSize own = cabinet.rect.size();
        const QSize kept = CReceiverAreas::smallest(cabinet.areas, own);
        part = part.expandedTo(own);
        least = least.expandedTo(QSize((from.width() * kept.width() + own.width() - 1) / own.width(),
                                       (from.height() * kept.height() + own.height() - 1) / own.height()));
    }
    const QSize most(int(qint64(from.width()) * largest / part.width()),
                     int(qint64(from.height()) * largest / part.height()));
    const QSize to = (from.size() + QSize(step.x(), step.y())).boundedTo(most).expandedTo(least);
    for (const QUuid &cabinet : cabinetsBelow({item})) {
        SCabinet &changed = m_cabinets[cabinet];
        const QRect rect = CResizeHandles::mapped(changed.rect, from, QRectF(from.topLeft(), to)).toRect();
        giveSize(changed, rect.size());
        changed.rect.moveTopLeft(rect.topLeft());
    }
}

/// The receivers share the new size.
void CReferenceModel::giveSize(SCabinet &cabinet, const QSize &size)
{
    const QSize fitting = size.expandedTo(CReceiverAreas::smallest(cabinet.areas, cabinet.rect.size()));
    CReceiverAreas::resize(cabinet.areas, cabinet.rect.size(), fitting);
    cabinet.rect.setSize(fitting);
}

bool CReferenceModel::arrange(const QSet<QUuid> &items, const QSize &rank)
{
    const bool byRows =
        (rank.height() - 1) * rank.width() < items.size() && items.size() <= rank.height() * rank.width();
    QMap<QPair<int, int>, QUuid> byPlace;
    QSize pitch;
    QRect extent;
    for (const QUuid &item : items) {
        const QRect rect = rectOf(item);
        byPlace.insert(byRows ? qMakePair(rect.top(), rect.left()) : qMakePair(rect.left(), rect.top()),
                       item);
        pitch = pitch.expandedTo(rect.size());
        extent |= rect;
    }
    if (byPlace.size() != items.size())
        return false;
    int place = 0;
    for (const QUuid &item : qAsConst(byPlace)) {
        const QPoint cell = byRows ? QPoint(place % rank.width(), place / rank.width())
                                   : QPoint(place / rank.height(), place % rank.height());
        const QPoint corner = extent.topLeft() + QPoint(cell.x() * pitch.width(), cell.y() * pitch.height());
        translate({item}, corner - rectOf(item).topLeft());
        ++place;
    }
    return true;
}

void CReferenceModel::moveTo(const QSet<QUuid> &items, const QPoint &corner)
{
    QRect extent;
    for (const QUuid &item : items)
        extent |= rectOf(item);
    translate(items, corner - extent.topLeft());
}

void CReferenceModel::resizeTo(const QSet<QUuid> &items, const QSize &size)
{
    QRect extent;
    for (const QUuid &item : items)
        extent |= rectOf(item);
    QHash<QUuid, QRect> targets;
    for (const QUuid &cabinet : cabinetsBelow(items)) {
        const SCabinet &changed = m_cabinets[cabinet];
        const QRect target =
            CResizeHandles::mapped(changed.rect, extent, QRectF(extent.topLeft(), size)).toRect();
        const QSize least = CReceiverAreas::smallest(changed.areas, changed.rect.size());
        if (!LayoutLimits::isCabinetSize(target.size()) || target.size() != target.size().expandedTo(least))
            return;
        targets.insert(cabinet, target);
    }
    for (auto target = targets.begin(); target != targets.end(); ++target) {
        giveSize(m_cabinets[target.key()], target->size());
        m_cabinets[target.key()].rect.moveTopLeft(target->topLeft());
    }
}

void CReferenceModel::setType(const QSet<QUuid> &cabinets, const TypeInfo &type)
{
    for (const QUuid &cabinet : cabinets) {
        m_cabinets[cabinet].type = type.key;
        m_cabinets[cabinet].areas = {};
        m_cabinets[cabinet].areas.rects = type.receivers;
        m_cabinets[cabinet].rect.setSize(QSize(type.width, type.height));
    }
}

bool CReferenceModel::exchangeReceivers(const QUuid &cabinet)
{
    SCabinet &changed = m_cabinets[cabinet];
    if (changed.fixed || changed.areas.rects.size() < 2)
        return false;
    CReceiverAreas::reverse(changed.areas);
    return true;
}

void CReferenceModel::wireByPattern(const QSet<QUuid> &cabinets, int pattern)
{
    for (auto chain = m_chains.begin(); chain != m_chains.end(); ++chain) {
        // Of equally small cells the topmost, then leftmost one sets the pitch.
        QVector<QUuid> selected;
        for (const QUuid &cabinet : cabinetsIn(chain.key())) {
            if (cabinets.contains(cabinet))
                selected << cabinet;
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
        const QVector<QUuid> stretch = inOrder(cellsOf(selected), pattern);
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

void CReferenceModel::drawStroke(int port, const QUuid &first, const QVector<QPointF> &way)
{
    const CPlainStroke::Cells cells = cellsOf(cabinetsIn(port));
    QVector<QUuid> once = {first};
    for (int i = 0; i + 1 < way.size(); ++i) {
        for (const QUuid &cabinet : CPlainStroke::crossed(cells, way.at(i), way.at(i + 1))) {
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

CReferenceModel CReferenceModel::part(const QSet<QUuid> &items) const
{
    CReferenceModel part;
    const QSet<QUuid> cabinets = cabinetsBelow(items);
    for (auto group = m_groups.begin(); group != m_groups.end(); ++group) {
        for (QUuid around = group.key(); !around.isNull(); around = m_groups.value(around).parent) {
            if (items.contains(around))
                part.m_groups.insert(group.key(), *group);
        }
    }
    for (SGroup &group : part.m_groups) {
        if (!part.m_groups.contains(group.parent))
            group.parent = QUuid();
    }
    for (const QUuid &cabinet : cabinets) {
        part.m_cabinets.insert(cabinet, m_cabinets.value(cabinet));
        if (!part.m_groups.contains(groupOf(cabinet)))
            part.m_cabinets[cabinet].group = QUuid();
    }
    for (auto chain = m_chains.begin(); chain != m_chains.end(); ++chain) {
        for (const QUuid &cabinet : *chain) {
            if (cabinets.contains(cabinet))
                part.m_chains[chain.key()] << cabinet;
        }
    }
    return part;
}

QUuid CReferenceModel::invent()
{
    const QUuid uuid = QUuid::createUuid();
    m_invented.insert(uuid);
    return uuid;
}

void CReferenceModel::paste(const CReferenceModel &copy, int port, const QPoint &corner)
{
    QRect extent;
    QMap<QUuid, QUuid> names = {{QUuid(), QUuid()}};
    for (auto cabinet = copy.m_cabinets.begin(); cabinet != copy.m_cabinets.end(); ++cabinet) {
        extent |= cabinet->rect;
        names.insert(cabinet.key(), invent());
    }
    for (const QUuid &group : copy.m_groups.keys())
        names.insert(group, invent());
    for (auto group = copy.m_groups.begin(); group != copy.m_groups.end(); ++group)
        m_groups.insert(names.value(group.key()), {port, names.value(group->parent)});
    for (auto cabinet = copy.m_cabinets.begin(); cabinet != copy.m_cabinets.end(); ++cabinet) {
        SCabinet pasted = *cabinet;
        pasted.port = port;
        pasted.rect.translate(corner - extent.topLeft());
        pasted.group = names.value(cabinet->group);
        m_cabinets.insert(names.value(cabinet.key()), pasted);
    }
    for (const QVector<QUuid> &chain : copy.m_chains) { // in ascending source port
        for (const QUuid &cabinet : chain)
            m_chains[port] << names.value(cabinet);
    }
}

void CReferenceModel::append(int port, const QVector<QRect> &cells, const TypeInfo &type)
{
    CPlainStroke::Cells placed;
    for (const QRect &cell : cells) {
        const bool fits = cell.size() == QSize(type.width, type.height);
        const QUuid cabinet = invent();
        CabinetLayout::CabinetPort::Cabinet areas;
        areas.rects = fits ? type.receivers : QVector<QRect>();
        m_cabinets.insert(cabinet, {port, cell, QUuid(), type.key, areas, false});
        placed << qMakePair(cabinet, cell);
    }
    QVector<QUuid> &chain = m_chains[port];
    const QRect tail = chain.isEmpty() ? QRect() : m_cabinets.value(chain.last()).rect;
    chain += inOrder(placed, CAppendPlan::patternAfter(tail, cells));
}
