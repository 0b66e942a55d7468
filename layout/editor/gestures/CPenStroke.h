// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QPolygonF>
#include <QUuid>
#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsPortItem;
class CUndoRecorder;
class IEditing;
class IItemIndex;
class QLineF;

/// A stroke of the pen tool through the cabinets of one port. It begins at a cabinet. If that cabinet is
/// wired, the stroke continues from its place in the chain; otherwise from the end of the chain. Each further
/// cabinet that the stroke enters is wired next, wherever it was wired before. Entering a cabinet of the same
/// stroke again has no effect.
class CPenStroke final
{
    Q_DECLARE_TR_FUNCTIONS(CPenStroke)

public:
    /// Begins on @p first, at @p scenePos.
    CPenStroke(IEditing &editing, const IItemIndex &index, CGraphicsPortItem &port,
               const CGraphicsCabinetItem &first, const QPointF &scenePos);

    int port() const { return m_port; }
    /// Adds the cabinets on the straight line to @p scenePos, in the order in which the line enters them;
    /// where it enters several at once, upper before lower, then left before right. Skips cabinets of other
    /// ports.
    void moveTo(const QPointF &scenePos);
    /// The port's chain as it will be after the stroke.
    QVector<CGraphicsCabinetItem *> chain() const;
    /// The path of the stroke so far, through the centres of its cabinets, in scene coordinates.
    QPolygonF path() const;
    /// Records the new chain, unless it equals the current one. Tells if cabinets of other ports were
    /// skipped.
    void finish(CUndoRecorder &recorder) const;

private:
    bool entersOther(const QLineF &way) const;
    QVector<CGraphicsCabinetItem *> drawnCabinets() const;

    IEditing &m_editing;
    const IItemIndex &m_index;
    int m_port;
    QPointF m_place;
    QVector<QUuid> m_stroke;
    bool m_passedOthers = false;
};
