// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QLine>
#include <QPointF>
#include <QRectF>
#include <QSet>
#include <QString>
#include <QUuid>
#include <QVector>

#include <functional>

class CGraphicsItemBase;
class CUndoRecorder;
class IEditing;
class IItemIndex;

/// A drag in progress: moves the selected items, or resizes one by a handle, and records it when the mouse is
/// released. Keeps identities, not pointers, because items may be deleted meanwhile.
class CItemDrag final
{
public:
    enum EOperation { Move, Scale };

    /// Moves @p items, none of which is inside another selected group.
    CItemDrag(IEditing &editing, const IItemIndex &index, const QVector<CGraphicsItemBase *> &items,
              const QPointF &scenePos);
    /// Resizes @p item, a cabinet or a group with all its cabinets, by @p handle.
    CItemDrag(IEditing &editing, const IItemIndex &index, CGraphicsItemBase &item, int handle,
              const QPointF &scenePos);

    /// Finds the rectangles within a distance of the edges of another one; canvas pixels.
    using Neighbours = std::function<QVector<QRect>(const QRect &rect, int reach)>;

    /// From now on a move snaps to edges of @p neighbours that are at most @p reach canvas pixels away.
    void catchAt(const Neighbours &neighbours, int reach);
    void moveTo(const QPointF &scenePos, Qt::KeyboardModifiers keys);
    /// Lines along the edges that the move has snapped to.
    const QVector<QLine> &guides() const { return m_guides; }
    /// The position and distance, or the size, for the user; empty before the first move.
    QString note() const;
    /// Puts everything back where it was.
    void cancel();
    /// Records what has changed. Returns whether the mouse has moved at all.
    bool finish(CUndoRecorder &recorder);

private:
    struct SStart
    {
        QUuid uuid;
        QPointF scenePos;
        QSizeF size;
        CabinetLayout::CabinetPort::Cabinet cabinet; // while scaling
    };

    void remember(CGraphicsItemBase &item);
    /// Raises the ports concerned above the others, or lowers them again.
    void setRaised(bool raised);
    static void scale(CGraphicsItemBase &item, const SStart &start, const QSizeF &size);
    void apply(const QVector<QRectF> &rects);
    QPointF caught(const QPointF &delta, Qt::KeyboardModifiers keys);
    QVector<QRectF> rectsAt(const QPointF &delta);
    void recordItem(CUndoRecorder &recorder, const SStart &start);

    IEditing &m_editing;
    const IItemIndex &m_index;
    EOperation m_operation;
    int m_handle = -1;
    QPointF m_press;
    QRectF m_frame;    // around everything dragged, at the start
    QRect m_placed;    // the same, now
    QSizeF m_smallest; // allowed
    QSizeF m_largest;
    QVector<SStart> m_starts;
    Neighbours m_neighbours;
    int m_reach = 0;
    QVector<QLine> m_guides;
    QSet<int> m_ports;
    bool m_moved = false;
};
