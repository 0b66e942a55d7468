// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/CBareScene.h"

#include <QGraphicsLineItem>
#include <QGraphicsRectItem>

void CBareScene::build(const CabinetLayout &layout)
{
    clear();
    setSceneRect(layout.boundingRect()); // left to grow it would rebuild its index again and again
    for (const CabinetLayout::CabinetPort &port : layout.ports)
        buildPort(port);
}

void CBareScene::buildPort(const CabinetLayout::CabinetPort &port)
{
    auto *parent = new QGraphicsRectItem;
    parent->setFlag(QGraphicsItem::ItemHasNoContents);
    parent->setPen(Qt::NoPen);
    const QBrush fill(port.color);
    const QPen hairline(Qt::black, 0);
    const QVector<CabinetLayout::CabinetPort::Cabinet> cabinets = port.getAllCabinets();
    const QRect *previous = nullptr;
    for (const auto &cabinet : cabinets) {
        auto *item = new QGraphicsRectItem(QRectF(QPointF(), QSizeF(cabinet.rect.size())), parent);
        item->setPos(cabinet.rect.topLeft());
        item->setPen(m_outlines == Outlined ? QPen() : QPen(Qt::NoPen));
        item->setBrush(fill);
        item->setFlags(QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable);
        item->setData(0, cabinet.uuid);
        if (previous) {
            const QLineF wire(previous->center(), cabinet.rect.center());
            (new QGraphicsLineItem(wire, parent))->setPen(hairline);
        }
        previous = &cabinet.rect;
    }
    if (m_ports == ContainedPorts) {
        parent->setRect(parent->childrenBoundingRect());
        parent->setFlag(QGraphicsItem::ItemContainsChildrenInShape);
    }
    addItem(parent);
}
