// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/operations/CSelectionShape.h"

#include "layout/api/records/LayoutLimits.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CRefusal.h"
#include "layout/editor/items/IEditing.h"
#include "layout/editor/recording/CAreaRecorder.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/undo/CChangeCabinetTypeCommand.h"
#include "layout/editor/undo/CMoveCommand.h"
#include "layout/editor/undo/CReszieCommand.h"
#include "layout/geometry/CReceiverAreas.h"
#include "layout/geometry/CResizeHandles.h"

#include <algorithm>
#include <tuple>

namespace {

QRectF placeOf(const CGraphicsItemBase &item)
{
    return item.mapRectToScene(item.rect());
}

bool isResizable(const CGraphicsItemBase &item)
{
    return item.type() == CabinetItemKind && !item.isGrouped();
}

} // namespace

void CSelectionShape::move(CGraphicsItemBase &item, const QPointF &target)
{
    if (item.scenePos() != target)
        m_recorder.record<CMoveCommand>(item, item.scenePos(), target);
}

void CSelectionShape::moveTo(const QPoint &corner)
{
    m_editing.cancelGesture();
    if (m_selection.isEmpty() || CRefusal::isTold(m_editing, m_selection.closedPort()))
        return;
    const QVector<CGraphicsItemBase *> items = m_selection.sorted();
    QRectF extent;
    for (const CGraphicsItemBase *item : items)
        extent |= placeOf(*item);
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, QStringLiteral("ChangePosition"));
    for (CGraphicsItemBase *item : items)
        move(*item, item->scenePos() + corner - extent.topLeft());
}

void CSelectionShape::resizeTo(const QSize &size)
{
    m_editing.cancelGesture();
    if (m_selection.isEmpty() || size.isEmpty() || CRefusal::isTold(m_editing, m_selection.closedPort()))
        return;
    const QVector<CGraphicsItemBase *> items = m_selection.sorted();
    QRectF extent;
    for (const CGraphicsItemBase *item : items)
        extent |= placeOf(*item);
    const auto targetOf = [&extent, &size](const CGraphicsItemBase &item) {
        return CResizeHandles::mapped(placeOf(item), extent, QRectF(extent.topLeft(), size)).toRect();
    };
    const auto holdsReceivers = [&targetOf](const CGraphicsItemBase *item) {
        const QSize target = targetOf(*item).size();
        return !isResizable(*item) ||
               target ==
                   target.expandedTo(CReceiverAreas::smallest(item->cabinet(), item->rect().size().toSize()));
    };
    const bool allowed = std::all_of(items.begin(), items.end(), [&targetOf](const CGraphicsItemBase *item) {
        return !isResizable(*item) || LayoutLimits::isCabinetSize(targetOf(*item).size());
    });
    if (!allowed) {
        m_editing.tell(tr("A cabinet has %1 to %2 pixels on each side.")
                           .arg(LayoutLimits::SmallestSide)
                           .arg(LayoutLimits::LargestSide));
        return;
    }
    if (!std::all_of(items.begin(), items.end(), holdsReceivers)) {
        m_editing.tell(tr("Each receiver needs a pixel in both directions."));
        return;
    }
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, QStringLiteral("ChangeSize"));
    for (CGraphicsItemBase *item : items) {
        const QRect target = targetOf(*item);
        move(*item, target.topLeft());
        if (isResizable(*item))
            resize(*item, target.size());
    }
}

void CSelectionShape::resize(CGraphicsItemBase &item, const QSize &size)
{
    const QSizeF before = item.rect().size();
    if (before == QSizeF(size))
        return;
    m_recorder.record<CReszieCommand>(item, before, QSizeF(size));
    CAreaRecorder::scale(m_recorder, item, before, size);
}

void CSelectionShape::arrange(const QSize &rank)
{
    m_editing.cancelGesture();
    if (rank.isEmpty() || m_selection.isEmpty() || CRefusal::isTold(m_editing, m_selection.closedPort()))
        return;
    QVector<CGraphicsItemBase *> items = m_selection.sorted();
    QRectF extent;
    QSizeF pitch;
    for (const CGraphicsItemBase *item : qAsConst(items)) {
        extent |= placeOf(*item);
        pitch = pitch.expandedTo(item->rect().size());
    }
    const int columns = rank.width();
    const int rows = rank.height();
    const bool byColumns = (items.size() + columns - 1) / columns != rows;
    const auto order = [byColumns](const CGraphicsItemBase &item) {
        const QPointF place = item.scenePos();
        return byColumns ? std::make_tuple(place.x(), place.y()) : std::make_tuple(place.y(), place.x());
    };
    std::stable_sort(
        items.begin(), items.end(),
        [&order](const CGraphicsItemBase *a, const CGraphicsItemBase *b) { return order(*a) < order(*b); });
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, QStringLiteral("ChangeRank"));
    for (int i = 0; i < items.size(); ++i) {
        const int column = byColumns ? i / rows : i % columns;
        const int row = byColumns ? i % rows : i / columns;
        const QPointF offset(column * pitch.width(), row * pitch.height());
        move(*items.at(i), extent.topLeft() + offset);
    }
}

void CSelectionShape::applyType(const TypeInfo &type)
{
    m_editing.cancelGesture();
    if (!type.isValid() || !LayoutLimits::isCabinetSize(QSize(type.width, type.height)) ||
        CRefusal::isTold(m_editing, m_selection.closedPort()))
        return;
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, QStringLiteral("Change cabinet type"));
    for (CGraphicsCabinetItem *cabinet : m_selection.cabinets()) {
        auto record = cabinet->cabinet();
        record.type = type.key;
        record.rects = type.receivers;
        record.blanks.clear();
        record.original.reset();
        record.rect.setSize(QSize(type.width, type.height));
        if (record == cabinet->cabinet())
            continue;
        m_recorder.record<CChangeCabinetTypeCommand>(*cabinet, QVariant::fromValue(cabinet->cabinet()),
                                                     QVariant::fromValue(record));
    }
}
