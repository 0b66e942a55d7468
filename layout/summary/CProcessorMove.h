// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/summary/SSummaryProcessor.h"

#include <QRect>
#include <QVector>

class CGraphicsProcessorItem;
class QKeyEvent;

/// Moves processors together on the shared canvas, from where they lay when the move began. The items must
/// outlive it.
class CProcessorMove final
{
public:
    using Items = QVector<CGraphicsProcessorItem *>;

    static bool isArrow(int key);
    /// The step that an arrow key stands for, with Shift a large one; null for any other key.
    static QPoint stepOf(const QKeyEvent &event);

    /// Moves @p moved; @p others are those at whose edges they catch.
    CProcessorMove(const Items &moved, const Items &others);

    /// Brings all as far from where they began as @p distance tells. Their common outline catches at edges
    /// within @p reach; 0: at none.
    void moveTo(const QPoint &distance, int reach);
    QPoint distance() const { return m_distance; } ///< as far as they are now
    const ProcessorOffsets &begin() const { return m_begin; }
    ProcessorOffsets offsets() const; ///< where they are now

    /// The edges of others in line with those of the moved, left and right, then top and bottom.
    QVector<int> linesAcross() const;
    QVector<int> linesDown() const;

private:
    QPoint bounded(const QPoint &distance) const;

    Items m_moved;
    ProcessorOffsets m_begin;
    QRect m_outline; // around the moved, where they began
    QVector<QRect> m_others;
    QPoint m_distance;
};
