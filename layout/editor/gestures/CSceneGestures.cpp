// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CSceneGestures.h"

#include "layout/drawing/CGesturePainter.h"
#include "layout/editor/content/CNeighbours.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/gestures/CItemDrag.h"
#include "layout/editor/gestures/CPenStroke.h"
#include "layout/editor/gestures/CRubberBand.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/CRefusal.h"
#include "layout/editor/items/ViewScale.h"
#include "layout/geometry/CEdgeSnap.h"
#include "layout/geometry/CResizeHandles.h"
#include "platform/graphics/CGraphicsScene.h"

#include <QApplication>
#include <QPainter>

#include <utility>

CSceneGestures::CSceneGestures(CGraphicsScene &scene, IEditing &editing, CSceneContent &content,
                               const CSceneSelection &selection, CUndoRecorder &recorder)
    : m_scene(scene)
    , m_editing(editing)
    , m_content(content)
    , m_selection(selection)
    , m_recorder(recorder)
{
}

CSceneGestures::~CSceneGestures() = default;

void CSceneGestures::cancel()
{
    if (m_drag) {
        const QVector<QRectF> shown = dragAreas() + m_content.heldAreas();
        m_drag->cancel();
        m_drag.reset();
        invalidate(shown + m_content.heldAreas());
        m_content.releaseCabinets();
        m_dragCancelled = true;
    }
    if (std::exchange(m_press, std::nullopt))
        m_dragCancelled = true;
    m_stroke.reset();
    if (m_band) {
        const QVector<QRectF> shown = bandAreas(m_band->rect());
        m_band->cancel();
        invalidate(shown);
    }
    endBand();
}

void CSceneGestures::beginMove(const QPointF &scenePos, const CGraphicsItemBase *joining)
{
    m_keys = {};
    m_press = SPress{scenePos, joining ? joining->uuid() : QUuid(), CGraphicsItemBase::NoHandle};
}

void CSceneGestures::beginScale(CGraphicsItemBase &item, int handle, const QPointF &scenePos)
{
    m_keys = {};
    m_press = SPress{scenePos, item.uuid(), handle};
}

void CSceneGestures::beginDrag(const SPress &press)
{
    CGraphicsItemBase *item = m_content.editedItem(press.item);
    if (press.handle != CGraphicsItemBase::NoHandle) {
        if (!item || !item->canResize())
            return;
        m_drag = std::make_unique<CItemDrag>(m_editing, m_content, *item, press.handle, press.place);
        m_content.holdCabinets({item->port()});
        return;
    }
    const CGraphicsPortItem *joined = item ? item->portItem() : nullptr;
    if (CRefusal::isTold(m_editing, m_selection.closedPort()) || CRefusal::isTold(m_editing, joined))
        return;
    if (item) {
        const CEditBatch batch(m_editing);
        item->selectOutermost(true);
    }
    if (m_selection.isEmpty())
        return;
    m_drag = std::make_unique<CItemDrag>(m_editing, m_content, m_selection.sorted(), press.place);
    m_drag->catchAt(
        [this](const QRect &rect, int reach) {
            return CNeighbours::of(rect, reach, m_scene, m_content.canvas(), CNeighbours::WithoutSelected);
        },
        qRound(CEdgeSnap::ScreenReach / viewScale(m_scene)));
    m_content.holdCabinets(m_selection.ports());
}

bool CSceneGestures::isBeyondClick(const QPointF &from, const QPointF &to) const
{
    return ((to - from) * viewScale(m_scene)).manhattanLength() >= QApplication::startDragDistance();
}

void CSceneGestures::continueDrag(const QPointF &scenePos, Qt::KeyboardModifiers keys)
{
    m_keys = keys;
    const bool begins = m_press.has_value();
    if (m_press) {
        if (!isBeyondClick(m_press->place, scenePos))
            return;
        beginDrag(*std::exchange(m_press, std::nullopt));
    }
    if (!m_drag)
        return;
    const QVector<QRectF> before = dragAreas();
    m_drag->moveTo(scenePos, keys);
    m_cursor = scenePos;
    invalidate(before + dragAreas());
    if (begins) // ports have no edges while they are dragged
        invalidate(m_content.heldAreas());
}

QVector<QRectF> CSceneGestures::dragAreas() const
{
    const qreal scale = viewScale(m_scene);
    const QSizeF reach = CGesturePainter::noteReach() / scale;
    QVector<QRectF> areas = {
        QRectF(m_cursor, QSizeF()).adjusted(-reach.width(), -reach.height(), reach.width(), reach.height())};
    const qreal edge = 2 / scale;
    for (const QLine &line : m_drag->guides())
        areas << QRectF(line.p1(), line.p2()).adjusted(-edge, -edge, edge, edge);
    return areas;
}

/// To be called after items have moved: views repaint in the order of requests, and with a frame in between
/// they would forget where the items were.
void CSceneGestures::invalidate(const QVector<QRectF> &areas)
{
    for (const QRectF &area : areas)
        m_scene.update(area);
}

bool CSceneGestures::endDrag(const QPointF &scenePos)
{
    if (!isDragging())
        return std::exchange(m_dragCancelled, false);
    continueDrag(scenePos, m_keys);
    m_press.reset();
    if (!m_drag)
        return false;
    const QVector<QRectF> shown = dragAreas() + m_content.heldAreas();
    m_content.releaseCabinets();
    const std::unique_ptr<CItemDrag> drag = std::move(m_drag);
    const bool moved = drag->finish(m_recorder);
    invalidate(shown);
    return moved;
}

void CSceneGestures::beginStroke(CGraphicsCabinetItem &cabinet, const QPointF &scenePos)
{
    CGraphicsPortItem *port = cabinet.portItem();
    m_scene.clearSelection();
    if (!port || CRefusal::isTold(m_editing, port))
        return;
    m_stroke = std::make_unique<CPenStroke>(m_editing, m_content, *port, cabinet, scenePos);
    m_strokePress = scenePos;
}

void CSceneGestures::continueStroke(const QPointF &scenePos)
{
    if (!m_stroke || (m_strokePress && !isBeyondClick(*m_strokePress, scenePos)))
        return;
    m_strokePress.reset();
    m_stroke->moveTo(scenePos);
    m_scene.updateViews();
}

void CSceneGestures::endStroke(const QPointF &scenePos)
{
    continueStroke(scenePos);
    if (const std::unique_ptr<CPenStroke> stroke = std::move(m_stroke))
        stroke->finish(m_recorder);
}

void CSceneGestures::beginBand(const QPointF &scenePos, bool keepSelection)
{
    const QVector<QUuid> selected = m_selection.uuids();
    if (!keepSelection)
        m_scene.clearSelection();
    m_band = std::make_unique<CRubberBand>(m_editing, m_content, m_scene, scenePos,
                                           QSet<QUuid>(selected.begin(), selected.end()), keepSelection);
}

void CSceneGestures::continueBand(const QPointF &scenePos)
{
    // Before the band selects: if it selects many, views paint at once.
    invalidate(bandAreas(m_band->rect()) + bandAreas(m_band->rectTo(scenePos)));
    m_band->moveTo(scenePos);
    invalidate(handleAreas());
}

void CSceneGestures::endBand()
{
    if (!m_band)
        return;
    const QVector<QRectF> shown = bandAreas(m_band->rect());
    m_band.reset();
    invalidate(shown);
}

QVector<QRectF> CSceneGestures::bandAreas(const QRectF &band) const
{
    const qreal edge = 4 / viewScale(m_scene);
    const QPointF half(edge / 2, edge / 2);
    const QSizeF across(band.width() + edge, edge);
    const QSizeF down(edge, band.height() + edge);
    return handleAreas() +
           QVector<QRectF>{QRectF(band.topLeft() - half, across), QRectF(band.bottomLeft() - half, across),
                           QRectF(band.topLeft() - half, down), QRectF(band.topRight() - half, down)};
}

/// A single selected item has handles, whoever joins it or leaves.
QVector<QRectF> CSceneGestures::handleAreas() const
{
    if (m_selection.count() != 1)
        return {};
    return {(*m_selection.items().begin())->placement()};
}

void CSceneGestures::paintHandles(QPainter &painter) const
{
    const CGraphicsItemBase &item = **m_selection.items().begin();
    if (!item.canResize())
        return;
    const qreal side = CResizeHandles::ScreenSide / painter.worldTransform().m11();
    CGesturePainter::paintHandles(painter, CResizeHandles::marks(item.mapRectToScene(item.rect()), side));
}

void CSceneGestures::paint(QPainter &painter) const
{
    if (m_drag) {
        CGesturePainter::paintGuides(painter, m_drag->guides());
        CGesturePainter::paintNote(painter, m_cursor, m_drag->note());
    }
    if (m_band)
        CGesturePainter::paintBand(painter, m_band->rect());
    if (m_stroke)
        CGesturePainter::paintStroke(painter, m_stroke->path());
}
