// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPolygonF>
#include <QUuid>
#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsPortItem;
class CUndoRecorder;
class IEditing;
class IItemIndex;

/// A stroke of the pen tool through the cabinets of one port. It begins at a cabinet: one of the chain goes
/// on from its place, an unwired one continues the chain at its end. Each further cabinet that the stroke
/// enters follows the one before it, wherever it was wired; going back over a cabinet of the same stroke has
/// no effect.
class CPenStroke final
{
public:
    /// Begins at @p scenePos on @p first.
    CPenStroke(IEditing &editing, const IItemIndex &index, CGraphicsPortItem &port,
               const CGraphicsCabinetItem &first, const QPointF &scenePos);

    int port() const { return m_port; }
    /// Adds the cabinets that lie on the straight way to @p scenePos, in the order in which it enters them;
    /// of those that it enters at once, the upper, then the left one first. Those of other ports are passed
    /// over.
    void moveTo(const QPointF &scenePos);
    /// The chain that the stroke makes of the port's present one.
    QVector<CGraphicsCabinetItem *> chain() const;
    /// The way of the stroke so far, through the middles of its cabinets, in scene coordinates.
    QPolygonF path() const;
    /// Records the new chain; nothing when it is the present one.
    void finish(CUndoRecorder &recorder) const;

private:
    QVector<CGraphicsCabinetItem *> drawnCabinets() const;

    IEditing &m_editing;
    const IItemIndex &m_index;
    int m_port;
    QPointF m_place;
    QVector<QUuid> m_stroke;
};
