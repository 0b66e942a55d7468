// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/WarningSign.h"

#include "platform/widgets/ThemeColors.h"

#include <QPainter>

void WarningSign::paint(QPainter &painter, const QPointF &middle, const QColor &color, const QColor &rim)
{
    const QPointF corners[] = {middle + QPointF(0, -6), middle + QPointF(6.5, 5), middle + QPointF(-6.5, 5)};
    painter.setPen(QPen(rim, 1.5));
    painter.setBrush(color);
    painter.drawPolygon(corners, 3);
    painter.setPen(QPen(QColor(ThemeColors::DarkText), 1.5));
    painter.drawLine(middle + QPointF(0, -2), middle + QPointF(0, 1));
    painter.drawPoint(middle + QPointF(0, 3.25));
}
