// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPair>
#include <QRect>
#include <QUuid>
#include <QVector>

/// Finds which cabinets a straight line enters, in small steps.
class CPlainStroke final
{
public:
    using Cells = QVector<QPair<QUuid, QRect>>;

    /// In the order in which the line enters them, repeatedly if it leaves and returns; where it enters
    /// several at once, upper before lower, then left before right.
    static QVector<QUuid> crossed(const Cells &cells, const QPointF &from, const QPointF &to);
};
