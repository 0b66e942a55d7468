// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CRubberBand.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/IEditorScene.h"

#include <QGraphicsScene>

namespace {

/// The parts of @p whole outside @p hole: at most four rectangles around it.
QVector<QRectF> partsOutside(const QRectF &whole, const QRectF &hole)
{
    const QRectF inner = whole & hole;
    if (inner.isEmpty())
        return {whole};
    return {QRectF(whole.topLeft(), QPointF(whole.right(), inner.top())),
            QRectF(QPointF(whole.left(), inner.bottom()), whole.bottomRight()),
            QRectF(QPointF(whole.left(), inner.top()), QPointF(inner.left(), inner.bottom())),
            QRectF(QPointF(inner.right(), inner.top()), QPointF(whole.right(), inner.bottom()))};
}

} // namespace

CRubberBand::CRubberBand(IEditorScene &editor, QGraphicsScene &scene, const QPointF &scenePos,
                         bool keepSelection)
    : m_editor(editor)
    , m_scene(scene)
    , m_press(scenePos)
    , m_rect(scenePos, QSizeF())
{
    if (!keepSelection)
        return;
    const QList<QGraphicsItem *> selected = scene.selectedItems();
    for (const QGraphicsItem *item : selected)
        m_kept.insert(item->data(IdentityRole).toUuid());
}

void CRubberBand::moveTo(const QPointF &scenePos)
{
    const QRectF before = m_rect;
    const QRectF after = QRectF(m_press, scenePos).normalized();
    m_rect = after;
    const CEditBatch batch(m_editor);
    for (const QRectF &strip : partsOutside(after, before))
        visit(strip, before, after);
    for (const QRectF &strip : partsOutside(before, after))
        visit(strip, before, after);
}

void CRubberBand::visit(const QRectF &strip, const QRectF &before, const QRectF &after)
{
    if (strip.isEmpty() && strip != before && strip != after)
        return;
    const QList<QGraphicsItem *> items = m_scene.items(strip, Qt::IntersectsItemBoundingRect);
    for (QGraphicsItem *item : items) {
        if (item->type() != CabinetItemKind)
            continue;
        auto &cabinet = static_cast<CGraphicsItemBase &>(*item);
        const bool touches = cabinet.mapRectToScene(cabinet.rect()).intersects(after);
        const bool touched = m_touched.contains(cabinet.uuid());
        if (touches != touched)
            count(cabinet, touches ? 1 : -1);
    }
}

void CRubberBand::count(CGraphicsItemBase &cabinet, int amount)
{
    if (amount > 0)
        m_touched.insert(cabinet.uuid());
    else
        m_touched.remove(cabinet.uuid());
    CGraphicsItemBase &outermost = cabinet.outermost();
    int &touched = m_counts[outermost.uuid()];
    touched += amount;
    if (touched == 0)
        restore(outermost);
    else if (touched == 1 && amount > 0)
        outermost.setSelected(true);
}

void CRubberBand::restore(CGraphicsItemBase &outermost)
{
    outermost.setSelected(m_kept.contains(outermost.uuid()));
    if (m_kept.isEmpty() || outermost.isSelected())
        return;
    // A member that was selected alone gave way to its group.
    for (CGraphicsCabinetItem *member : outermost.concernedCabinets()) {
        const CItemChangeBlocker blocker(*member); // or the band would select the group again
        if (m_kept.contains(member->uuid()))
            member->setSelected(true);
    }
}
