// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CSceneContent.h"

#include "layout/editor/CLayoutBuilder.h"
#include "layout/editor/CLayoutReader.h"
#include "layout/editor/CLayoutRebuild.h"
#include "layout/editor/CUndoRecorder.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditorScene.h"

#include <QGraphicsScene>

#include <algorithm>

void CSceneContent::build(const LayoutData &data)
{
    m_processor = data.processor;
    m_canvas = data.canvas;
    m_mappingIndices.reset();
    CLayoutBuilder builder(m_editor, m_states, m_nextOrdinal);
    for (const CabinetLayout::CabinetPort &record : data.layout.ports) {
        CGraphicsPortItem *item = builder.build(record);
        m_ports << item;
        m_scene.addItem(item);
    }
    std::stable_sort(
        m_ports.begin(), m_ports.end(),
        [](const CGraphicsPortItem *a, const CGraphicsPortItem *b) { return a->port() < b->port(); });
    m_nextOrdinal = builder.nextOrdinal();
    for (CGraphicsPortItem *item : qAsConst(m_ports))
        item->takeNote(); // what is shown anew is no edit
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
    const CUndoMacro macro(recorder, QStringLiteral("Reset"), QStringLiteral("Reset"));
    CLayoutRebuild rebuild(m_editor, recorder, m_nextOrdinal);
    for (CGraphicsPortItem *item : qAsConst(m_ports))
        rebuild.empty(*item);
    for (int i = 0; i < m_ports.size(); ++i) {
        const CabinetLayout::CabinetPort &record = data.layout.ports.at(i);
        m_ports.at(i)->setState(record);
        rebuild.fill(*m_ports.at(i), record);
    }
    m_nextOrdinal = rebuild.nextOrdinal();
    takeMappingIndices(data.layout); // also of what undo of the reset brings back
}

void CSceneContent::takeMappingIndices(const CabinetLayout &mapping)
{
    m_mappingIndices.emplace();
    for (const CabinetLayout::CabinetPort &port : mapping.ports) {
        for (const CabinetLayout::CabinetPort::Cabinet &cabinet : port.getAllCabinets())
            m_mappingIndices->insert(cabinet.uuid, cabinet.mappingIndex);
    }
    for (CGraphicsPortItem *port : qAsConst(m_ports)) {
        for (CGraphicsCabinetItem *cabinet : port->cabinets(nullptr)) {
            const int before = cabinet->cabinet().mappingIndex;
            updateMappingIndex(*cabinet);
            if (cabinet->cabinet().mappingIndex != before)
                m_records.remove(port->port());
        }
    }
}

void CSceneContent::updateMappingIndex(CGraphicsItemBase &item) const
{
    if (m_mappingIndices && item.type() == CabinetItemKind)
        static_cast<CGraphicsCabinetItem &>(item).setMappingIndex(m_mappingIndices->value(item.uuid(), -1));
}

void CSceneContent::clear()
{
    m_records.clear();
    m_ports.clear();
    m_processor = QUuid();
    m_canvas = QSize();
}

void CSceneContent::read(CabinetLayout &layout, const QUuid &processor) const
{
    layout = CabinetLayout();
    if (processor != m_processor)
        return;
    layout.processor = m_processor;
    layout.ports.reserve(m_ports.size());
    for (const CGraphicsPortItem *item : m_ports) {
        auto record = m_records.find(item->port());
        if (record == m_records.end())
            record = m_records.insert(item->port(), CLayoutReader::read(*item));
        layout.ports << *record;
    }
}

CGraphicsPortItem *CSceneContent::port(int index) const
{
    const auto found =
        std::lower_bound(m_ports.begin(), m_ports.end(), index,
                         [](const CGraphicsPortItem *item, int wanted) { return item->port() < wanted; });
    return found == m_ports.end() || (*found)->port() != index ? nullptr : *found;
}

QRectF CSceneContent::bounds() const
{
    QRectF bounds(QPointF(0, 0), QSizeF(m_canvas));
    for (const CGraphicsPortItem *item : m_ports)
        bounds |= item->boundingRect();
    return bounds;
}
