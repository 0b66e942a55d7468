// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/summary/SSummaryProcessor.h"

#include <QRect>
#include <QVector>

class CGraphicsProcessorItem;
class QKeyEvent;

/// Moves processors together on the shared canvas, relative to where the move began. The items must outlive
/// it.
class CProcessorMove final
{
public:
    using Items = QVector<CGraphicsProcessorItem *>;

    static bool isArrow(int key);
    /// The step of an arrow key, a large one with Shift; null for any other key.
    static QPoint stepOf(const QKeyEvent &event);

    /// Moves @p moved; they snap to the edges of @p others.
    CProcessorMove(const Items &moved, const Items &others);

    /// Moves all to @p distance from where they began. Their common outline snaps to edges within @p reach;
    /// 0: no snapping.
    void moveTo(const QPoint &distance, int reach);
    QPoint distance() const { return m_distance; } ///< the current one
    const ProcessorOffsets &begin() const { return m_begin; }
    ProcessorOffsets offsets() const; ///< the current ones

    /// The positions of others' edges aligned with an edge of the moved ones: left and right edges, then top
    /// and bottom edges.
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
