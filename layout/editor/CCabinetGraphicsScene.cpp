// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CCabinetGraphicsScene.h"

#include "layout/drawing/CLayoutPainter.h"
#include "layout/editor/CLayoutBuilder.h"
#include "layout/editor/CLayoutReader.h"
#include "layout/editor/items/CGraphicsItemBase.h"
#include "layout/editor/items/CGraphicsPortItem.h"

#include <QPainter>

#include <algorithm>

CCabinetGraphicsScene::CCabinetGraphicsScene(const IPortStates &ports, QObject *parent)
    : CGraphicsScene(parent)
    , m_portStates(ports)
{
}

CCabinetGraphicsScene::~CCabinetGraphicsScene()
{
    clearLayout();
}

void CCabinetGraphicsScene::setLayoutData(const ProcessorTree::ProcessorNode &processor,
                                          const LayoutData &data, const QList<QUuid> &selected)
{
    if (processor.uuid.isNull() || data.processor != processor.uuid)
        return;
    clearLayout();
    m_processor = data.processor;
    m_canvas = data.canvas;
    m_index.reserve(data.layout.cabinetCount());

    const QSet<QUuid> toSelect(selected.begin(), selected.end());
    CLayoutBuilder builder(m_index, toSelect);
    for (const CabinetLayout::CabinetPort &record : data.layout.ports) {
        CGraphicsPortItem *port = builder.build(record, m_portStates);
        m_ports << port;
        addItem(port);
    }
    std::stable_sort(
        m_ports.begin(), m_ports.end(),
        [](const CGraphicsPortItem *a, const CGraphicsPortItem *b) { return a->port() < b->port(); });
    updateContentRect();
    for (CGraphicsItemBase *item : builder.toSelect())
        item->setSelected(true);
}

void CCabinetGraphicsScene::clearLayout()
{
    clearSelection(); // items that die selected would each announce it
    m_index.clear();
    m_records.clear();
    m_ports.clear();
    m_processor = QUuid();
    m_canvas = QSize();
    clear();
    updateContentRect();
}

void CCabinetGraphicsScene::getLayoutData(CabinetLayout &layout, const QUuid &processor) const
{
    layout = CabinetLayout();
    if (processor != m_processor)
        return;
    layout.processor = m_processor;
    layout.ports.reserve(m_ports.size());
    for (const CGraphicsPortItem *port : m_ports) {
        auto record = m_records.find(port->port());
        if (record == m_records.end())
            record = m_records.insert(port->port(), CLayoutReader::read(*port));
        layout.ports << *record;
    }
}

CGraphicsPortItem *CCabinetGraphicsScene::portItem(int port) const
{
    const auto found = std::find_if(m_ports.begin(), m_ports.end(),
                                    [port](const CGraphicsPortItem *item) { return item->port() == port; });
    return found == m_ports.end() ? nullptr : *found;
}

void CCabinetGraphicsScene::setCabinetLocked(int port, bool locked)
{
    if (CGraphicsPortItem *item = portItem(port)) {
        item->setShownLocked(locked);
        m_records.remove(port);
        update(item->boundingRect());
    }
}

void CCabinetGraphicsScene::setCanvasSize(const QSize &size)
{
    m_canvas = size;
    updateContentRect();
    update();
}

void CCabinetGraphicsScene::onNotifyProcessorStateChanged()
{
    for (CGraphicsPortItem *port : qAsConst(m_ports))
        port->refreshState();
    m_records.clear();
    update();
}

void CCabinetGraphicsScene::onNotifyCabinetColorChanged(int port, const QColor &color)
{
    if (CGraphicsPortItem *item = portItem(port)) {
        item->setColor(color);
        m_records.remove(port);
        update(item->boundingRect());
    }
}

void CCabinetGraphicsScene::updateContentRect()
{
    QRectF content(QPointF(0, 0), QSizeF(m_canvas));
    for (const CGraphicsPortItem *port : qAsConst(m_ports))
        content |= port->boundingRect();
    setContentRect(content);
}

void CCabinetGraphicsScene::drawBackground(QPainter *painter, const QRectF &rect)
{
    painter->fillRect(rect, CLayoutPainter::surroundings());
    if (m_canvas.isEmpty())
        return;
    CLayoutPainter::paintCanvas(*painter, QRectF(QPointF(0, 0), QSizeF(m_canvas)));
}
