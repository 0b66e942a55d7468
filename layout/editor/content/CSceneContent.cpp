// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CSceneContent.h"

#include "layout/editor/content/CDirectEntry.h"
#include "layout/editor/content/CLayoutBuilder.h"
#include "layout/editor/content/CLayoutReader.h"
#include "layout/editor/content/CRecordedEntry.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/recording/CGroupEditing.h"
#include "layout/geometry/CCabinetRect.h"
#include "platform/graphics/CGraphicsScene.h"

#include <algorithm>

void CSceneContent::build(const LayoutData &data)
{
    m_processor = data.processor;
    m_canvas = data.canvas;
    m_scene.reserveItems(data.layout.cabinetCount());
    CDirectEntry entry;
    CLayoutBuilder builder(*this, entry, m_nextOrdinal);
    for (const Port &record : data.layout.ports) {
        auto *item = new CGraphicsPortItem(record, m_states, m_editor);
        builder.fill(*item, CLayoutBuilder::withoutEmptyGroups(record));
        item->updateBounds();
        m_ports << item;
        m_scene.addItem(item);
    }
    std::stable_sort(
        m_ports.begin(), m_ports.end(),
        [](const CGraphicsPortItem *a, const CGraphicsPortItem *b) { return a->port() < b->port(); });
    m_nextOrdinal = builder.nextOrdinal();
    m_order.restore(m_processor, m_ports);
    for (CGraphicsPortItem *item : qAsConst(m_ports))
        item->takeNote(); // building items is not an edit
}

bool CSceneContent::canRebuild(const LayoutData &data) const
{
    return m_processor == data.processor &&
           std::equal(m_ports.begin(), m_ports.end(), data.layout.ports.begin(), data.layout.ports.end(),
                      [](const CGraphicsPortItem *item, const CabinetLayout::CabinetPort &record) {
                          return item->port() == record.index;
                      });
}

void CSceneContent::rebuild(const LayoutData &data, CUndoRecorder &recorder)
{
    m_canvas = data.canvas;
    QVector<QPair<CGraphicsPortItem *, Port>> changed;
    for (int i = 0; i < m_ports.size(); ++i) {
        const Port wanted = CLayoutBuilder::withoutEmptyGroups(data.layout.ports.at(i));
        const Port shown = record(*m_ports.at(i));
        if (wanted == shown)
            continue;
        m_ports.at(i)->setState(wanted);
        if (!LayoutData::comparePortData(wanted, shown, true))
            changed << qMakePair(m_ports.at(i), wanted);
    }
    for (const auto &port : qAsConst(changed))
        CGroupEditing(recorder).empty(*port.first);
    for (const auto &port : qAsConst(changed))
        add(*port.first, port.second, recorder);
}

QVector<CGraphicsItemBase *>
CSceneContent::add(CGraphicsPortItem &port, const CabinetLayout::CabinetPort &record, CUndoRecorder &recorder)
{
    CRecordedEntry entry(recorder);
    CLayoutBuilder builder(*this, entry, m_nextOrdinal);
    const QVector<CGraphicsItemBase *> items = builder.fill(port, record);
    m_nextOrdinal = builder.nextOrdinal();
    return items;
}

void CSceneContent::replace(const QVector<Port> &records)
{
    QVector<QUuid> highlighted;
    for (const Port &record : records) { // all before the first is built: a cabinet may have changed its port
        CGraphicsPortItem *port = portItem(record.index);
        if (!port)
            continue;
        for (const CGraphicsCabinetItem *cabinet : port->cabinets(nullptr)) {
            if (cabinet->isHighlighted())
                highlighted << cabinet->uuid();
        }
        empty(*port);
    }
    CDirectEntry entry;
    CLayoutBuilder builder(*this, entry, m_nextOrdinal);
    for (const Port &record : records) {
        if (CGraphicsPortItem *port = portItem(record.index)) {
            builder.fill(*port, CLayoutBuilder::withoutEmptyGroups(record));
            port->noteChanged();
        }
    }
    m_nextOrdinal = builder.nextOrdinal();
    for (const QUuid &cabinet : qAsConst(highlighted)) {
        CGraphicsItemBase *item = editedItem(cabinet);
        if (item && item->type() == CabinetItemKind)
            static_cast<CGraphicsCabinetItem *>(item)->setHighlighted(true);
    }
}

void CSceneContent::empty(CGraphicsPortItem &port)
{
    const QVector<CGraphicsCabinetItem *> chain = port.chain().order();
    for (auto cabinet = chain.rbegin(); cabinet != chain.rend(); ++cabinet)
        port.chain().unlink(**cabinet, true);
    for (CGraphicsGroupItem *group : port.groups(false))
        leaveEdited(*group);
    for (CGraphicsCabinetItem *cabinet : port.cabinets(nullptr))
        leaveEdited(*cabinet);
    for (CGraphicsItemBase *item : port.topItems()) {
        m_scene.removeItem(item);
        delete item;
    }
}

QVector<CGraphicsPortItem *> CSceneContent::itemsOf(const QVector<int> &ports) const
{
    QVector<CGraphicsPortItem *> items;
    for (const int index : ports) {
        if (CGraphicsPortItem *item = portItem(index))
            items << item;
    }
    return items;
}

CRecordOrder::Ordinals CSceneContent::ordinals(const QVector<int> &ports) const
{
    return CRecordOrder::of(itemsOf(ports));
}

void CSceneContent::setOrdinals(const QVector<int> &ports, const CRecordOrder::Ordinals &ordinals)
{
    CRecordOrder::apply(ordinals, itemsOf(ports));
}

void CSceneContent::clear()
{
    m_order.remember(m_processor, m_ports);
    m_records.clear();
    m_held.clear();
    m_ports.clear();
    m_cabinetCount = 0;
    m_processor = QUuid();
    m_canvas = QSize();
    m_scene.forgetItems();
    m_scene.clear();
}

void CSceneContent::read(CabinetLayout &layout, const QUuid &processor) const
{
    layout = CabinetLayout();
    if (processor != m_processor)
        return;
    layout.processor = m_processor;
    layout.ports.reserve(m_ports.size());
    for (const CGraphicsPortItem *item : m_ports)
        layout.ports << record(*item);
}

const CabinetLayout::CabinetPort &CSceneContent::record(const CGraphicsPortItem &port) const
{
    const auto known = m_records.find(port.port());
    if (known != m_records.end())
        return *known;
    const auto held = m_held.find(port.port());
    if (held == m_held.end())
        return *m_records.insert(port.port(), CLayoutReader::read(port));
    Port asHeld = port.state();
    asHeld.groups = *held;
    return *m_records.insert(port.port(), asHeld);
}

void CSceneContent::holdCabinets(const QList<int> &ports)
{
    for (const int index : ports) {
        if (const CGraphicsPortItem *item = portItem(index))
            m_held.insert(index, record(*item).groups);
    }
}

QVector<QRectF> CSceneContent::heldAreas() const
{
    QVector<QRectF> areas;
    for (auto held = m_held.keyBegin(); held != m_held.keyEnd(); ++held) {
        if (const CGraphicsPortItem *item = portItem(*held))
            areas << item->bounds();
    }
    return areas;
}

CGraphicsPortItem *CSceneContent::portItem(int index) const
{
    const auto found =
        std::lower_bound(m_ports.begin(), m_ports.end(), index,
                         [](const CGraphicsPortItem *item, int wanted) { return item->port() < wanted; });
    return found == m_ports.end() || (*found)->port() != index ? nullptr : *found;
}

CGraphicsItemBase *CSceneContent::editedItem(const QUuid &uuid) const
{
    return static_cast<CGraphicsItemBase *>(m_scene.itemOf(uuid)); // only cabinets and groups are registered
}

void CSceneContent::enterEdited(CGraphicsItemBase &item)
{
    if (m_scene.enterItem(item.uuid(), item) && item.type() == CabinetItemKind)
        ++m_cabinetCount;
}

void CSceneContent::enterNew(CGraphicsItemBase &item)
{
    while (!m_scene.enterNewItem(item.uuid(), item))
        item.setUuid(QUuid::createUuid());
    if (item.type() == CabinetItemKind)
        ++m_cabinetCount;
}

void CSceneContent::leaveEdited(CGraphicsItemBase &item)
{
    item.setSelected(false); // otherwise Qt deselects it without a signal
    if (item.type() == CabinetItemKind) {
        static_cast<CGraphicsCabinetItem &>(item).setHighlighted(false);
        m_cabinetCount -= editedItem(item.uuid()) == &item ? 1 : 0;
    }
    m_scene.leaveItem(item.uuid());
}

void CSceneContent::pointOut(int port)
{
    m_pointedOut = port;
    m_scene.updateViews();
}

QRectF CSceneContent::bounds() const
{
    QRectF bounds(QPointF(0, 0), QSizeF(m_canvas));
    for (const CGraphicsPortItem *item : m_ports)
        bounds |= item->boundingRect();
    return bounds;
}

QRect CSceneContent::wall() const
{
    QRectF wall;
    for (const CGraphicsPortItem *item : m_ports)
        wall |= item->wall();
    return CCabinetRect::toRecord(wall);
}
