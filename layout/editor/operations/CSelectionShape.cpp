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

} // namespace

void CSelectionShape::move(CGraphicsItemBase &item, const QPointF &target)
{
    if (item.scenePos() != target)
        m_recorder.record<CMoveCommand>(item, item.scenePos(), target);
}

void CSelectionShape::moveTo(const QPoint &wanted)
{
    m_editing.cancelGesture();
    if (m_selection.isEmpty() || CRefusal::isTold(m_editing, m_selection.closedPort()))
        return;
    const QVector<CGraphicsItemBase *> items = m_selection.sorted();
    QRectF extent;
    for (const CGraphicsItemBase *item : items)
        extent |= placeOf(*item);
    const int most = LayoutLimits::LargestOffset;
    const auto bounded = [most](int place, qreal now) { // a file may hold one beyond
        return place == qRound(now) ? place : qBound(-most, place, most);
    };
    const QPoint corner(bounded(wanted.x(), extent.left()), bounded(wanted.y(), extent.top()));
    if (corner != wanted)
        m_editing.tell(tr("X and Y reach from \u2212%1 to %1.").arg(most));
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
    QVector<STarget> targets;
    for (CGraphicsItemBase *item : items) {
        if (!item->canResize()) {
            m_editing.tell(tr("Cabinets of a group, and groups that do not tile a rectangle with one type, "
                              "cannot be resized."));
            return;
        }
        extent |= placeOf(*item);
        for (CGraphicsCabinetItem *cabinet : item->concernedCabinets())
            targets << STarget{cabinet, {}};
    }
    for (STarget &target : targets)
        target.place =
            CResizeHandles::mapped(placeOf(*target.cabinet), extent, QRectF(extent.topLeft(), size)).toRect();
    const QString obstacle = obstacleTo(targets);
    if (!obstacle.isEmpty()) {
        m_editing.tell(obstacle);
        return;
    }
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, QStringLiteral("ChangeSize"));
    for (const STarget &target : qAsConst(targets)) {
        move(*target.cabinet, target.place.topLeft());
        resize(*target.cabinet, target.place.size());
    }
}

QString CSelectionShape::obstacleTo(const QVector<STarget> &targets)
{
    const bool allowed = std::all_of(targets.begin(), targets.end(), [](const STarget &target) {
        return LayoutLimits::isCabinetSize(target.place.size());
    });
    if (!allowed)
        return tr("A cabinet has %1 to %2 pixels on each side.")
            .arg(LayoutLimits::SmallestSide)
            .arg(LayoutLimits::LargestSide);
    const bool holdReceivers = std::all_of(targets.begin(), targets.end(), [](const STarget &target) {
        const QSize before = target.cabinet->rect().size().toSize();
        const QSize least = CReceiverAreas::smallest(target.cabinet->cabinet(), before);
        return target.place.size() == target.place.size().expandedTo(least);
    });
    return holdReceivers ? QString() : tr("Each receiver needs a pixel in both directions.");
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
