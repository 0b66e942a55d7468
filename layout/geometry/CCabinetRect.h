// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <QRectF>

/// How a cabinet's place on the canvas is kept in its record: in whole pixels, right and bottom inclusive.
class CCabinetRect final
{
public:
    /// Left and top are rounded, right and bottom are the rounded far edges less one; halves go towards
    /// +infinity.
    static QRect toRecord(const QRectF &sceneRect)
    {
        return QRect(QPoint(qRound(sceneRect.x()), qRound(sceneRect.y())),
                     QPoint(qRound(sceneRect.x() + sceneRect.width()) - 1,
                            qRound(sceneRect.y() + sceneRect.height()) - 1));
    }

    static QRectF fromRecord(const QRect &record)
    {
        return QRectF(record.x(), record.y(), record.width(), record.height());
    }
};
