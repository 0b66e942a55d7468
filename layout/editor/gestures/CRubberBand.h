// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/CPortOverview.h"
#include "layout/editor/items/IEditing.h"

#include <QHash>
#include <QPointF>
#include <QRectF>
#include <QSet>
#include <QUuid>
#include <QVector>

class CGraphicsItemBase;
class CGraphicsScene;
class IItemIndex;

/// The rubber band: selects ungrouped cabinets that it touches, and outermost groups with a cabinet that it
/// touches. Each step changes only what has entered or left; the consequences of the selection follow once,
/// when the band ends.
class CRubberBand final
{
public:
    /// @p before was selected before the band. With @p keepSelection the band adds to it; without, the caller
    /// has already cleared the selection.
    CRubberBand(IEditing &editing, const IItemIndex &index, CGraphicsScene &scene, const QPointF &scenePos,
                const QSet<QUuid> &before, bool keepSelection);

    const QRectF &rect() const { return m_rect; }
    /// What rect() is after moveTo().
    QRectF rectTo(const QPointF &scenePos) const { return QRectF(m_press, scenePos).normalized(); }
    void moveTo(const QPointF &scenePos);
    /// Restores the selection from before the band.
    void cancel();

private:
    using Places = QVector<const CPortOverview::SPlace *>;

    static QVector<QRectF> areasOf(const QRectF &before, const QRectF &after, const Places &places);
    void change(const CPortOverview::SPlace &place, bool touched);
    void restore(CGraphicsItemBase &outermost);

    CEditBatch m_batch;
    const IItemIndex &m_index;
    CGraphicsScene &m_scene;
    QPointF m_press;
    QRectF m_rect;
    QHash<QUuid, int> m_counts; // numbers of touched cabinets, by outermost group
    QSet<QUuid> m_before;       // selected before the band
    QSet<QUuid> m_kept;         // those of them that stay selected in addition
};
