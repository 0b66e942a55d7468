// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CItemDrag.h"

#include "layout/api/records/LayoutLimits.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditing.h"
#include "layout/editor/items/IItemIndex.h"
#include "layout/editor/recording/CAreaRecorder.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/undo/CMoveCommand.h"
#include "layout/editor/undo/CReszieCommand.h"
#include "layout/geometry/CEdgeSnap.h"
#include "layout/geometry/CReceiverAreas.h"
#include "layout/geometry/CResizeHandles.h"

#include <algorithm>
#include <cmath>

namespace {

QPointF wholePixels(const QPointF &delta)
{
    return QPointF(std::round(delta.x()), std::round(delta.y()));
}

/// The largest frame in which no cabinet exceeds its maximum size.
QSizeF largestFrame(const QVector<CGraphicsCabinetItem *> &cabinets, const QSizeF &frame)
{
    QSizeF largestPart(1, 1);
    for (const CGraphicsCabinetItem *cabinet : cabinets)
        largestPart = largestPart.expandedTo(cabinet->rect().size());
    const qreal side = LayoutLimits::LargestSide;
    return QSizeF(std::floor(frame.width() * side / largestPart.width()),
                  std::floor(frame.height() * side / largestPart.height()));
}

/// The smallest frame in which every receiver keeps at least one pixel.
QSizeF smallestFrame(const QVector<CGraphicsCabinetItem *> &cabinets, const QSizeF &frame)
{
    QSizeF smallest(LayoutLimits::SmallestSide, LayoutLimits::SmallestSide);
    for (const CGraphicsCabinetItem *cabinet : cabinets) {
        const QSizeF size = cabinet->rect().size();
        const QSize least = CReceiverAreas::smallest(cabinet->cabinet(), size.toSize());
        smallest = smallest.expandedTo(QSizeF(std::ceil(frame.width() * least.width() / size.width()),
                                              std::ceil(frame.height() * least.height() / size.height())));
    }
    return smallest;
}

} // namespace

CItemDrag::CItemDrag(IEditing &editing, const IItemIndex &index, const QVector<CGraphicsItemBase *> &items,
                     const QPointF &scenePos)
    : m_editing(editing)
    , m_index(index)
    , m_operation(Move)
    , m_press(scenePos)
{
    m_starts.reserve(items.size());
    for (CGraphicsItemBase *item : items)
        remember(*item);
}

CItemDrag::CItemDrag(IEditing &editing, const IItemIndex &index, CGraphicsItemBase &item, int handle,
                     const QPointF &scenePos)
    : m_editing(editing)
    , m_index(index)
    , m_operation(Scale)
    , m_handle(handle)
    , m_press(scenePos)
    , m_frame(item.mapRectToScene(item.rect()))
{
    const QVector<CGraphicsCabinetItem *> concerned = item.concernedCabinets();
    m_smallest = smallestFrame(concerned, m_frame.size());
    m_largest = largestFrame(concerned, m_frame.size());
    for (CGraphicsCabinetItem *cabinet : concerned)
        remember(*cabinet);
}

void CItemDrag::remember(CGraphicsItemBase &item)
{
    m_starts << SStart{item.uuid(), item.scenePos(), item.rect().size(),
                       m_operation == Scale ? item.cabinet() : CGraphicsItemBase::Cabinet()};
    m_frame |= QRectF(item.scenePos(), item.rect().size());
    m_placed = m_frame.toRect();
    m_ports.insert(item.port());
}

void CItemDrag::setRaised(bool raised)
{
    for (const int index : qAsConst(m_ports)) {
        if (CGraphicsPortItem *port = m_index.portItem(index))
            port->setZValue(raised ? DraggedPortHeight : SelectedPortHeight);
    }
}

QVector<QRectF> CItemDrag::rectsAt(const QPointF &delta)
{
    const QRectF frame = m_operation == Scale
                             ? CResizeHandles::resized(m_frame, m_handle, delta, m_smallest, m_largest)
                             : m_frame.translated(delta);
    m_placed = frame.toRect();
    QVector<QRectF> rects;
    rects.reserve(m_starts.size());
    for (const SStart &start : m_starts) {
        const QRectF rect(start.scenePos, start.size);
        rects << (m_operation == Move ? rect.translated(delta)
                                      : CResizeHandles::mapped(rect, m_frame, frame));
    }
    return rects;
}

void CItemDrag::apply(const QVector<QRectF> &rects)
{
    const CEditBatch batch(m_editing);
    for (int i = 0; i < m_starts.size(); ++i) {
        CGraphicsItemBase *item = m_index.editedItem(m_starts.at(i).uuid);
        if (!item)
            continue;
        {
            const CItemChangeBlocker blocker(*item);
            if (m_operation == Scale)
                scale(*item, m_starts.at(i), rects.at(i).size());
            item->setPos(item->mapToParent(item->mapFromScene(rects.at(i).topLeft())));
        }
        item->followGeometry();
    }
}

/// The receivers are seen to follow; what they become is recorded at the end.
void CItemDrag::scale(CGraphicsItemBase &item, const SStart &start, const QSizeF &size)
{
    item.setSize(size);
    auto areas = start.cabinet;
    CReceiverAreas::resize(areas, start.size.toSize(), size.toSize());
    static_cast<CGraphicsCabinetItem &>(item).setAreas(areas); // only cabinets are scaled
}

void CItemDrag::catchAt(const Neighbours &neighbours, int reach)
{
    m_neighbours = neighbours;
    m_reach = qMin(reach, qRound(qMin(m_frame.width(), m_frame.height()) / 2));
}

QPointF CItemDrag::caught(const QPointF &delta, Qt::KeyboardModifiers keys)
{
    m_guides.clear();
    if (m_operation != Move)
        return delta;
    const bool oneAxis = keys & Qt::ShiftModifier;
    const bool across = std::abs(delta.x()) >= std::abs(delta.y());
    const QPointF wanted = !oneAxis ? delta : across ? QPointF(delta.x(), 0) : QPointF(0, delta.y());
    if (keys & Qt::AltModifier || !m_neighbours)
        return wanted;
    const QRect frame = m_frame.translated(wanted).toRect();
    const QVector<QRect> near = m_neighbours(frame, m_reach);
    QRect placed = CEdgeSnap::snapped(frame, near, m_reach);
    if (oneAxis)
        placed.moveTopLeft(across ? QPoint(placed.left(), frame.top()) : QPoint(frame.left(), placed.top()));
    m_guides = CEdgeSnap::guides(placed, near);
    return wanted + QPointF(placed.topLeft() - frame.topLeft());
}

void CItemDrag::moveTo(const QPointF &scenePos, Qt::KeyboardModifiers keys)
{
    const QPointF delta = caught(wholePixels(scenePos - m_press), keys);
    if (!m_moved && delta.isNull())
        return;
    m_moved = true;
    setRaised(true);
    apply(rectsAt(delta));
}

QString CItemDrag::note() const
{
    if (!m_moved)
        return {};
    if (m_operation == Scale)
        return QStringLiteral("%1 \u00d7 %2").arg(m_placed.width()).arg(m_placed.height());
    const auto figure = [](int number, const QString &plus = {}) {
        return (number < 0 ? QString(QChar(0x2212)) : plus) + QString::number(qAbs(number));
    };
    const QPoint offset = m_placed.topLeft() - m_frame.topLeft().toPoint();
    const QString plus = QStringLiteral("+");
    return QStringLiteral("%1, %2  (%3, %4)")
        .arg(figure(m_placed.left()), figure(m_placed.top()), figure(offset.x(), plus),
             figure(offset.y(), plus));
}

void CItemDrag::cancel()
{
    if (!m_moved)
        return;
    QVector<QRectF> rects;
    for (const SStart &start : qAsConst(m_starts))
        rects << QRectF(start.scenePos, start.size);
    apply(rects);
    setRaised(false);
}

bool CItemDrag::finish(CUndoRecorder &recorder)
{
    if (!m_moved)
        return false;
    setRaised(false);
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(
        recorder, m_operation == Move ? QStringLiteral("ChangePosition") : QStringLiteral("ChangeSize"),
        m_operation == Move ? QStringLiteral("Move") : QStringLiteral("Scale"));
    for (const SStart &start : qAsConst(m_starts))
        recordItem(recorder, start);
    return true;
}

void CItemDrag::recordItem(CUndoRecorder &recorder, const SStart &start)
{
    CGraphicsItemBase *item = m_index.editedItem(start.uuid);
    if (!item)
        return;
    const QSizeF size = item->rect().size();
    if (m_operation == Scale)
        static_cast<CGraphicsCabinetItem *>(item)->setAreas(start.cabinet);
    if (size != start.size)
        recorder.record<CReszieCommand>(*item, start.size, size);
    if (item->scenePos() != start.scenePos)
        recorder.record<CMoveCommand>(*item, start.scenePos, item->scenePos());
    CAreaRecorder::scale(recorder, *item, start.size, size);
}
