// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPolygonF>
#include <QUuid>
#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsPortItem;
class CUndoRecorder;
class IEditorScene;

/// A stroke of the pen tool through the cabinets of one port. It begins at a cabinet: one of the chain goes
/// on from its place, an unwired one continues the chain at its end. Each further cabinet that the stroke
/// enters follows the one before it, wherever it was wired; going back over a cabinet of the same stroke has
/// no effect.
class CPenStroke final
{
public:
    CPenStroke(IEditorScene &scene, CGraphicsPortItem &port, const CGraphicsCabinetItem &first);

    int port() const { return m_port; }
    /// Adds a cabinet that the stroke has entered; cabinets of other ports are passed over.
    void enter(const CGraphicsCabinetItem &cabinet);
    /// The chain that the stroke makes of the port's present one.
    QVector<CGraphicsCabinetItem *> chain() const;
    /// The way of the stroke so far, through the middles of its cabinets, in scene coordinates.
    QPolygonF path() const;
    /// Records the new chain; nothing when it is the present one.
    void finish(CUndoRecorder &recorder) const;

private:
    QVector<CGraphicsCabinetItem *> drawnCabinets() const;

    IEditorScene &m_scene;
    int m_port;
    QVector<QUuid> m_stroke;
};
