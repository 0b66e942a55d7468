// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QLineF>
#include <QRectF>
#include <QVector>
#include <QWidget>

class QPainter;

/// The least that drawing a wall costs: all cabinets in one call and all wires in another.
class CPainterReference final : public QWidget
{
    Q_OBJECT

public:
    explicit CPainterReference(const CabinetLayout &layout);

    void draw(QPainter &painter, const QSizeF &room) const; ///< the wall fitted into @p room

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVector<QRectF> m_cabinets;
    QVector<QLineF> m_wires;
    QRectF m_extent;
};
