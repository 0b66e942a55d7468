// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/drawing/CLayoutPainter.h"

#include <QImage>
#include <QSize>
#include <QTransform>

/// Draws rows of cabinets from afar. A row that looks like an earlier one is copied from its picture, which
/// takes a fraction of filling every cabinet. Lives for one frame. GUI thread.
class CRowStamps final
{
public:
    /// @p scale is in device pixels per unit of the painter's coordinates.
    CRowStamps(QPainter &painter, qreal scale);

    /// @p row is what CLayoutPainter::paintRowFromAfar() draws, in either direction.
    void paint(const QVector<QRectF> &row, const SCabinetColors &colors);

private:
    struct SStamp
    {
        QVector<QRectF> row;
        SCabinetColors colors;
        QSize size;
        QImage picture; ///< null until a second row needs it

        bool fits(const QVector<QRectF> &other) const;
    };

    SStamp &stampFor(const QVector<QRectF> &row, const SCabinetColors &colors, const QSize &size);
    QImage pictureOf(const QVector<QRectF> &row, const SCabinetColors &colors, const QRect &onScreen) const;

    QPainter &m_painter;
    QTransform m_canvas;
    qreal m_scale;
    bool m_copies;
    QVector<SStamp> m_stamps;
    int m_next = 0; ///< the oldest stamp, once there are as many as are kept
};
