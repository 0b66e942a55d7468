// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/CPainterReference.h"

#include <QPainter>

CPainterReference::CPainterReference(const CabinetLayout &layout)
    : m_extent(layout.boundingRect())
{
    for (const CabinetLayout::CabinetPort &port : layout.ports) {
        const QVector<CabinetLayout::CabinetPort::Cabinet> cabinets = port.getAllCabinets();
        for (int i = 0; i < cabinets.size(); ++i) {
            m_cabinets << cabinets.at(i).rect;
            if (i > 0)
                m_wires << QLineF(cabinets.at(i - 1).rect.center(), cabinets.at(i).rect.center());
        }
    }
}

void CPainterReference::draw(QPainter &painter, const QSizeF &room) const
{
    const qreal scale = qMin(room.width() / m_extent.width(), room.height() / m_extent.height());
    QPen pen(Qt::black);
    pen.setCosmetic(true);
    painter.save();
    painter.scale(scale, scale);
    painter.translate(-m_extent.topLeft());
    painter.setPen(pen);
    painter.setBrush(Qt::darkCyan);
    painter.drawRects(m_cabinets);
    painter.drawLines(m_wires);
    painter.restore();
}

void CPainterReference::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    draw(painter, size());
}
