// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <QRectF>

/// Converts between a cabinet's rectangle on the canvas and in its record: whole pixels, right and bottom
/// inclusive.
class CCabinetRect final
{
public:
    /// Left and top are rounded; right and bottom are the rounded far edges minus one. Halves are rounded
    /// towards +infinity.
    static QRect toRecord(const QRectF &sceneRect)
    {
        return QRect(QPoint(qRound(sceneRect.x()), qRound(sceneRect.y())),
                     QPoint(qRound(sceneRect.x() + sceneRect.width()) - 1,
                            qRound(sceneRect.y() + sceneRect.height()) - 1));
    }

    /// @p record with sides of at least one pixel, which all arithmetic of sizes relies on.
    static QRect mended(const QRect &record) { return {record.topLeft(), record.size().expandedTo({1, 1})}; }

    static QRectF fromRecord(const QRect &record)
    {
        return QRectF(record.x(), record.y(), record.width(), record.height());
    }
};
