// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CSceneSelection.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/geometry/CCabinetRect.h"

#include <algorithm>

namespace {

/// By ordinal, which is read only once per item, because items are scattered in memory.
template <typename Item>
void sortByOrdinal(QVector<Item *> &items)
{
    QVector<QPair<qint64, Item *>> keyed;
    keyed.reserve(items.size());
    for (Item *item : qAsConst(items))
        keyed.append(qMakePair(item->ordinal(), item));
    std::sort(keyed.begin(), keyed.end());
    std::transform(keyed.cbegin(), keyed.cend(), items.begin(),
                   [](const auto &entry) { return entry.second; });
}

/// The cabinets among @p items and those of groups among them, each once, sorted.
QVector<CGraphicsCabinetItem *> cabinetsOf(const QVector<CGraphicsItemBase *> &items)
{
    QVector<CGraphicsCabinetItem *> cabinets;
    cabinets.reserve(items.size());
    bool anyGroup = false;
    for (CGraphicsItemBase *item : items) {
        if (item->type() == CabinetItemKind) {
            cabinets << static_cast<CGraphicsCabinetItem *>(item);
        } else {
            cabinets += item->concernedCabinets();
            anyGroup = true;
        }
    }
    sortByOrdinal(cabinets);
    if (anyGroup)
        cabinets.erase(std::unique(cabinets.begin(), cabinets.end()), cabinets.end());
    return cabinets;
}

} // namespace

void CSceneSelection::note(CGraphicsItemBase &item, bool selected)
{
    if (m_count <= 2) { // handles appear or disappear with a single selected item
        for (CGraphicsItemBase *other : items())
            other->update();
    }
    QVector<CGraphicsItemBase *> &ofPort = m_items[item.port()];
    const int place = item.selectionPlace();
    if (selected && place == CGraphicsItemBase::NotSelected) {
        item.setSelectionPlace(ofPort.size());
        ofPort << &item;
        count(item, 1);
    } else if (!selected && ofPort.value(place) == &item) {
        CGraphicsItemBase *last = ofPort.takeLast();
        if (last != &item) {
            ofPort[place] = last;
            last->setSelectionPlace(place);
        }
        item.setSelectionPlace(CGraphicsItemBase::NotSelected);
        count(item, -1);
    }
    if (ofPort.isEmpty())
        m_items.remove(item.port());
}

int CSceneSelection::count(int port) const
{
    const auto found = m_items.constFind(port);
    return found == m_items.constEnd() ? 0 : found->size();
}

void CSceneSelection::count(const CGraphicsItemBase &item, int change)
{
    m_uuids.clear();
    m_count += change;
    if (item.type() == GroupItemKind)
        m_groupCount += change;
}

QSet<CGraphicsItemBase *> CSceneSelection::items() const
{
    QSet<CGraphicsItemBase *> all;
    all.reserve(m_count);
    for (const QVector<CGraphicsItemBase *> &ofPort : m_items) {
        for (CGraphicsItemBase *item : ofPort)
            all.insert(item);
    }
    return all;
}

QVector<CGraphicsItemBase *> CSceneSelection::sorted() const
{
    QVector<CGraphicsItemBase *> all;
    all.reserve(m_count);
    for (const QVector<CGraphicsItemBase *> &ofPort : m_items) {
        QVector<CGraphicsItemBase *> items = ofPort;
        sortByOrdinal(items);
        all += items;
    }
    return all;
}

QVector<CGraphicsGroupItem *> CSceneSelection::groups() const
{
    QVector<CGraphicsGroupItem *> groups;
    for (CGraphicsItemBase *item : sorted()) {
        if (item->type() == GroupItemKind)
            groups << static_cast<CGraphicsGroupItem *>(item);
    }
    return groups;
}

QVector<CGraphicsCabinetItem *> CSceneSelection::cabinets() const
{
    QVector<CGraphicsCabinetItem *> all;
    all.reserve(m_count);
    for (const QVector<CGraphicsItemBase *> &ofPort : m_items)
        all += cabinetsOf(ofPort);
    return all;
}

QVector<QVector<CGraphicsCabinetItem *>> CSceneSelection::cabinetsByPort() const
{
    QVector<QVector<CGraphicsCabinetItem *>> byPort;
    for (const QVector<CGraphicsItemBase *> &ofPort : m_items) {
        const QVector<CGraphicsCabinetItem *> cabinets = cabinetsOf(ofPort);
        if (!cabinets.isEmpty())
            byPort << cabinets;
    }
    return byPort;
}

QVector<QUuid> CSceneSelection::uuids() const
{
    if (m_uuids.size() == m_count)
        return m_uuids;
    m_uuids.reserve(m_count);
    for (const QVector<CGraphicsItemBase *> &ofPort : m_items) {
        for (const CGraphicsItemBase *item : ofPort)
            m_uuids << item->uuid();
    }
    return m_uuids;
}

QList<CabinetLayout::CabinetPort::Cabinet> CSceneSelection::records() const
{
    QList<CabinetLayout::CabinetPort::Cabinet> records;
    const QVector<CGraphicsCabinetItem *> all = cabinets();
    records.reserve(all.size());
    for (const CGraphicsCabinetItem *cabinet : all)
        records << cabinet->cabinet();
    return records;
}

/// The port of @p items, which are all that are selected there, if they are cabinets, and all that it has;
/// null otherwise. Its compact list is quicker to read than items that are scattered in memory.
const CGraphicsPortItem *CSceneSelection::wholePort(const QVector<CGraphicsItemBase *> &items) const
{
    const CGraphicsPortItem *port = m_groupCount == 0 ? items.first()->portItem() : nullptr;
    const bool maybe = port && 2 * items.size() > port->childItems().size(); // as many wires at most
    return maybe && port->overview().places().size() == items.size() ? port : nullptr;
}

SSelectionFigures CSceneSelection::figures() const
{
    SSelectionFigures figures;
    figures.arranged.reserve(m_count);
    figures.resizable = std::any_of(m_items.begin(), m_items.end(), [](const auto &items) {
        return std::any_of(items.begin(), items.end(),
                           [](const CGraphicsItemBase *item) { return item->canResize(); });
    });
    for (const QVector<CGraphicsItemBase *> &items : m_items) {
        if (const CGraphicsPortItem *port = wholePort(items)) {
            for (const CPortOverview::SPlace &place : port->overview().places()) {
                const QRect area = CCabinetRect::toRecord(place.rect);
                figures.add(area);
                figures.arranged << area;
            }
            continue;
        }
        for (const CGraphicsItemBase *item : items)
            figures.arranged << CCabinetRect::toRecord(item->placement());
        for (const CGraphicsCabinetItem *cabinet : cabinetsOf(items))
            figures.add(CCabinetRect::toRecord(cabinet->placement()));
    }
    return figures;
}

QRect CSceneSelection::extent() const
{
    QRectF extent;
    for (const QVector<CGraphicsItemBase *> &items : m_items) {
        if (const CGraphicsPortItem *port = wholePort(items)) {
            extent |= port->wall();
            continue;
        }
        for (const CGraphicsItemBase *item : items)
            extent |= item->placement();
    }
    return CCabinetRect::toRecord(extent);
}

void CSceneSelection::raise(const QVector<CGraphicsPortItem *> &ports) const
{
    for (CGraphicsPortItem *port : ports) {
        const bool selected = m_items.contains(port->port());
        port->setZValue(selected ? SelectedPortHeight : PortHeight);
    }
}

bool CSceneSelection::canGroup() const
{
    if (m_count < 2 || m_items.size() != 1 || touchesClosedPort())
        return false;
    const QVector<CGraphicsItemBase *> &items = m_items.first();
    return std::all_of(items.begin(), items.end(), [](const CGraphicsItemBase *item) {
        return item->parentItem() && item->parentItem()->type() == PortItemKind;
    });
}

bool CSceneSelection::canBreakGroup() const
{
    return m_groupCount > 0 && !touchesClosedPort();
}

const CGraphicsPortItem *CSceneSelection::closedPort() const
{
    for (const QVector<CGraphicsItemBase *> &ofPort : m_items) {
        const CGraphicsPortItem *port = ofPort.first()->portItem();
        if (port && port->isClosed())
            return port;
    }
    return nullptr;
}
