// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPair>
#include <QRect>
#include <QUuid>
#include <QVector>

/// Which cabinets a straight line enters, found piece by piece.
class CPlainStroke final
{
public:
    using Cells = QVector<QPair<QUuid, QRect>>;

    /// In the order in which the way enters them, one more than once where it leaves and comes back; of those
    /// that it enters at once the upper, then the left one first.
    static QVector<QUuid> crossed(const Cells &cells, const QPointF &from, const QPointF &to);
};
