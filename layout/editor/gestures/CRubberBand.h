// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QPointF>
#include <QRectF>
#include <QSet>
#include <QUuid>

class CGraphicsItemBase;
class IEditorScene;
class QGraphicsScene;

/// The rubber band: selects the outermost groups and ungrouped cabinets of which it touches a cabinet. Each
/// step looks only at what has entered or left.
class CRubberBand final
{
public:
    /// @p keepSelection adds to what is selected; otherwise the selection has been cleared by the caller.
    CRubberBand(IEditorScene &editor, QGraphicsScene &scene, const QPointF &scenePos, bool keepSelection);

    const QRectF &rect() const { return m_rect; }
    void moveTo(const QPointF &scenePos);

private:
    void visit(const QRectF &strip, const QRectF &before, const QRectF &after);
    void count(CGraphicsItemBase &cabinet, int amount);
    void restore(CGraphicsItemBase &outermost);

    IEditorScene &m_editor;
    QGraphicsScene &m_scene;
    QPointF m_press;
    QRectF m_rect;
    QSet<QUuid> m_touched;      // cabinets
    QHash<QUuid, int> m_counts; // of touched cabinets, by what is selected with them
    QSet<QUuid> m_kept;         // selected before the band
};
