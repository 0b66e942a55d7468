// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/placing/CScenePlacing.h"

#include "layout/api/access/IPortStates.h"
#include "layout/api/records/EditRefusal.h"
#include "layout/api/records/LayoutLimits.h"
#include "layout/drawing/CGesturePainter.h"
#include "layout/editor/content/CNeighbours.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/CRefusal.h"
#include "layout/editor/items/IEditing.h"
#include "layout/editor/items/ViewScale.h"
#include "layout/editor/operations/CSceneOperations.h"
#include "layout/editor/placing/CCopyMime.h"
#include "layout/editor/placing/CPasteContent.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/geometry/CAppendPlan.h"
#include "layout/geometry/CEdgeSnap.h"
#include "layout/geometry/CSnakeOrder.h"
#include "platform/graphics/CGraphicsScene.h"
#include "platform/widgets/CMessageBox.h"

#include <QClipboard>
#include <QCursor>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace {

constexpr char PendingType[] = "pendingAppendCabinet";
constexpr char PendingPort[] = "pendingAppendCabinetPort";
constexpr char PendingSize[] = "pendingAppendCabinetSize";
const QString TypeKey = QStringLiteral("rcvTypeInfo");

QPointF underCursor(const QGraphicsScene &scene)
{
    QPointF position;
    for (const QGraphicsView *view : scene.views())
        position = view->mapToScene(view->viewport()->mapFromGlobal(QCursor::pos()));
    return position;
}

bool isCursorOver(const QGraphicsScene &scene)
{
    const QList<QGraphicsView *> views = scene.views();
    return std::any_of(views.begin(), views.end(), [](const QGraphicsView *view) {
        return view->viewport()->rect().contains(view->viewport()->mapFromGlobal(QCursor::pos()));
    });
}

bool isFree(const QGraphicsScene &scene, const QRect &place)
{
    const QList<QGraphicsItem *> there = scene.items(QRectF(place).adjusted(1, 1, -1, -1));
    return std::none_of(there.begin(), there.end(),
                        [](const QGraphicsItem *item) { return item->type() == CabinetItemKind; });
}

bool isOutside(const QRect &cell)
{
    return cell.left() < 0 || cell.top() < 0;
}

} // namespace

CScenePlacing::CScenePlacing(CGraphicsScene &scene, IEditing &editing, const IPortStates &states,
                             CSceneContent &content, const CSceneSelection &selection,
                             CUndoRecorder &recorder)
    : m_scene(scene)
    , m_editing(editing)
    , m_states(states)
    , m_content(content)
    , m_selection(selection)
    , m_recorder(recorder)
{
}

void CScenePlacing::copy()
{
    if (m_selection.isEmpty())
        return;
    m_cache = CPasteContent::copyOf(m_selection);
    QGuiApplication::clipboard()->setMimeData(new CCopyMime(m_cache, m_states));
}

void CScenePlacing::cut(CSceneOperations &operations)
{
    m_editing.cancelGesture();
    if (CRefusal::isTold(m_editing, m_selection.closedPort()))
        return;
    copy();
    operations.remove();
}

void CScenePlacing::paste(const QPointF &position, QWidget *parent)
{
    if (!position.isNull())
        pasteAt(position, parent);
    else if (isCursorOver(m_scene) || m_scene.views().isEmpty())
        pasteAt(underCursor(m_scene), parent);
    else
        pasteAtLast(parent);
}

void CScenePlacing::pasteAtLast(QWidget *parent)
{
    const QRect target = placeAtLast(m_states.currentPort(), CPasteContent::extent(m_cache).size());
    if (!pasteAt(target.topLeft(), parent))
        return;
    for (QGraphicsView *view : m_scene.views())
        view->ensureVisible(target, 0, 0);
}

/// Returns whether it was not refused.
bool CScenePlacing::pasteAt(const QPointF &corner, QWidget *parent)
{
    m_editing.cancelGesture();
    CGraphicsPortItem *port = m_content.portItem(m_states.currentPort());
    if (m_states.currentPort() < 0)
        m_cache = PasteCache(); // there is nothing to paste it into
    if (!port || m_cache.isEmpty() || CRefusal::isTold(m_editing, port))
        return false;
    if (port->cabinets(nullptr).size() + CPasteContent::cabinetCount(m_cache) >
        LayoutLimits::CabinetsPerPort) {
        CMessageBox::information(parent,
                                 tr("The number of receivers in a single output port can not be over %1.")
                                     .arg(LayoutLimits::CabinetsPerPort));
        return false;
    }
    place(*port, CPasteContent::placed(m_cache, corner.toPoint()), QStringLiteral("Paste"));
    return true;
}

/// Adds new cabinets and groups to a port; afterwards only they are selected.
void CScenePlacing::place(CGraphicsPortItem &port, const Port &record, const QString &text)
{
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, text);
    m_scene.clearSelection();
    const QVector<CGraphicsItemBase *> placed = m_content.add(port, record, m_recorder);
    m_scene.clearSelection(); // commands select what they create, including members of groups
    for (CGraphicsItemBase *item : placed)
        item->setSelected(true);
}

bool CScenePlacing::isAppending() const
{
    return m_scene.property(PendingType).isValid();
}

int CScenePlacing::pendingPort() const
{
    return m_scene.property(PendingPort).toInt();
}

QString CScenePlacing::appendRefusal(int port) const
{
    const CGraphicsPortItem *item = m_content.portItem(port);
    if (!item)
        return tr("No output port is chosen.");
    return item->isClosed() ? CRefusal::reason(item) : EditRefusal::fullPort(item->cabinets(nullptr).size());
}

void CScenePlacing::beginAppend(const TypeInfo &type, int port, const QSize &size)
{
    m_editing.cancelGesture();
    const QString refused = appendRefusal(port);
    if (!refused.isEmpty())
        m_editing.tell(refused);
    if (!refused.isEmpty() || !LayoutLimits::isCabinetSize(size))
        return;
    m_scene.setProperty(PendingType, QVariantMap{{TypeKey, QVariant::fromValue(type)}});
    m_scene.setProperty(PendingPort, port);
    m_scene.setProperty(PendingSize, size);
    m_byKeys = !isCursorOver(m_scene);
    if (!m_scene.views().isEmpty())
        showCells({m_byKeys ? placeAtLast(port, size) : ghostAt(underCursor(m_scene))});
}

void CScenePlacing::moveAppendTo(int port)
{
    if (!isAppending())
        return;
    const auto type = m_scene.property(PendingType).toMap().value(TypeKey).value<TypeInfo>();
    const QSize size = m_scene.property(PendingSize).toSize();
    endAppend();
    beginAppend(type, port, size);
}

void CScenePlacing::endAppend()
{
    if (!isAppending())
        return;
    for (const char *property : {PendingType, PendingPort, PendingSize})
        m_scene.setProperty(property, QVariant());
    m_pressed = false;
    showCells({});
}

void CScenePlacing::cancelPress()
{
    if (std::exchange(m_pressed, false))
        showCells({m_cells.first()});
}

/// The rectangle of a single cabinet with its centre at @p scenePos: on the canvas, snapped to its
/// neighbours.
QRect CScenePlacing::ghostAt(const QPointF &scenePos) const
{
    const QSize size = m_scene.property(PendingSize).toSize();
    QRect ghost(QPoint(), size);
    ghost.moveTopLeft((scenePos - QPointF(size.width() / 2.0, size.height() / 2.0)).toPoint());
    const int reach =
        qMin(qRound(CEdgeSnap::ScreenReach / viewScale(m_scene)), qMin(size.width(), size.height()) / 2);
    ghost = CEdgeSnap::snapped(ghost, neighboursOf(ghost, reach), reach);
    ghost.moveTopLeft(QPoint(qMax(ghost.left(), 0), qMax(ghost.top(), 0)));
    return ghost;
}

QVector<QRect> CScenePlacing::neighboursOf(const QRect &rect, int reach) const
{
    return CNeighbours::of(rect, reach, m_scene, m_content.canvas(), CNeighbours::WithSelected);
}

QRect CScenePlacing::block() const
{
    QRect block;
    for (const QRect &cell : m_cells)
        block |= cell;
    return block;
}

void CScenePlacing::showCells(const QVector<QRect> &cells)
{
    m_cells = cells;
    m_scene.updateViews();
}

void CScenePlacing::press(const QGraphicsSceneMouseEvent &event)
{
    m_cursor = event.scenePos();
    m_byKeys = false;
    showCells({ghostAt(event.scenePos())});
    m_pressed = true;
}

void CScenePlacing::move(const QGraphicsSceneMouseEvent &event)
{
    if (m_byKeys && event.screenPos() == event.lastScreenPos())
        return; // only what is below the mouse has moved
    m_byKeys = false;
    m_cursor = event.scenePos();
    if (!m_pressed) {
        showCells({ghostAt(event.scenePos())});
        return;
    }
    showCells(cellsTo(event.scenePos().toPoint()));
}

/// The grid of cells from the first one to that which contains @p corner, as far as it is allowed.
QVector<QRect> CScenePlacing::cellsTo(const QPoint &corner) const
{
    const CGraphicsPortItem *port = m_content.portItem(pendingPort());
    const int room = port ? LayoutLimits::CabinetsPerPort - port->cabinets(nullptr).size() : 1;
    QVector<QRect> cells = CAppendPlan::cells(m_cells.first(), corner, room);
    cells.erase(std::remove_if(cells.begin(), cells.end(), isOutside), cells.end());
    return cells;
}

QRect CScenePlacing::lastCabinet(int port) const
{
    const CGraphicsPortItem *item = m_content.portItem(port);
    if (!item)
        return {};
    const QVector<CGraphicsCabinetItem *> chain = item->chain().order();
    const QVector<CGraphicsCabinetItem *> cabinets = chain.isEmpty() ? item->cabinets(nullptr) : chain;
    return cabinets.isEmpty() ? QRect() : cabinets.last()->mapRectToScene(cabinets.last()->rect()).toRect();
}

/// The first side of the port's last cabinet on which there is room on the canvas, else its right one; of the
/// whole wall if the port is empty.
QRect CScenePlacing::placeAtLast(int port, const QSize &size) const
{
    const QRect last = lastCabinet(port);
    const QRect beside = last.isEmpty() ? m_content.wall() : last;
    if (beside.isEmpty())
        return {QPoint(), size};
    const QPoint corners[] = {{beside.right() + 1, beside.top()},
                              {beside.left(), beside.bottom() + 1},
                              {beside.left() - size.width(), beside.top()},
                              {beside.left(), beside.top() - size.height()}};
    for (const QPoint &corner : corners) {
        const QRect place(corner, size);
        if (QRect(QPoint(), m_content.canvas()).contains(place) && isFree(m_scene, place))
            return place;
    }
    return {QPoint(qMax(corners[0].x(), 0), qMax(corners[0].y(), 0)), size};
}

void CScenePlacing::step(const QPoint &direction, bool grows)
{
    if (!isAppending() || m_pressed || m_cells.isEmpty())
        return;
    m_byKeys = true;
    const QRect first = m_cells.first();
    if (grows) {
        const QPoint step(direction.x() * first.width(), direction.y() * first.height());
        showCells(cellsTo(m_cells.last().center() + step));
        return;
    }
    const QRect last = lastCabinet(pendingPort());
    const QPoint origin = last.isEmpty() ? first.topLeft() : QPoint(last.right() + 1, last.top());
    const QPoint distance = CAppendPlan::nextCorner(first, origin, direction) - first.topLeft();
    QVector<QRect> cells = m_cells;
    for (QRect &cell : cells)
        cell.translate(distance);
    if (std::none_of(cells.begin(), cells.end(), isOutside))
        showCells(cells);
}

bool CScenePlacing::release(const QGraphicsSceneMouseEvent &event)
{
    if (!m_pressed)
        return false;
    placeHere(event.widget());
    return true;
}

void CScenePlacing::placeHere(QWidget *parent)
{
    if (!isAppending() || m_cells.isEmpty())
        return;
    CGraphicsPortItem *port = m_content.portItem(pendingPort());
    if (port && !CRefusal::isTold(m_editing, port)) {
        const QString refused = EditRefusal::fullPort(port->cabinets(nullptr).size(), m_cells.size());
        if (refused.isEmpty())
            place(*port, recordOf(m_cells, *port), QStringLiteral("Append"));
        else
            CMessageBox::information(parent, refused);
    }
    endAppend();
}

CScenePlacing::Port CScenePlacing::recordOf(const QVector<QRect> &cells, const CGraphicsPortItem &port) const
{
    const TypeInfo type = m_scene.property(PendingType).toMap().value(TypeKey).value<TypeInfo>();
    const QVector<CGraphicsCabinetItem *> chain = port.chain().order();
    const QRect tail = chain.isEmpty() ? QRect() : chain.last()->cabinet().rect;
    Port::CabinetGroup loose;
    QVector<CSnakeOrder::SCell> places;
    for (const QRect &cell : cells) {
        Port::Cabinet cabinet;
        cabinet.rect = cell;
        cabinet.type = type.key;
        if (cell.size() == QSize(type.width, type.height))
            cabinet.rects = type.receivers;
        loose.cabinets << cabinet;
        places << CSnakeOrder::SCell{QRectF(cell), QUuid()};
    }
    int rank = 0;
    for (const int index : CSnakeOrder::order(places, CAppendPlan::patternAfter(tail, cells)))
        loose.cabinets[index].rank = rank++;
    Port record;
    record.groups << loose;
    return record;
}

void CScenePlacing::paint(QPainter &painter) const
{
    if (!isAppending() || m_cells.isEmpty())
        return;
    CGesturePainter::paintGhosts(painter, m_cells, m_states.portColor(pendingPort()));
    const QRect all = block();
    CGesturePainter::paintGuides(painter, CEdgeSnap::guides(all, neighboursOf(all, 1)));
    const QSize cell = m_cells.first().size();
    if (m_pressed || m_cells.size() > 1)
        CGesturePainter::paintNote(
            painter, m_byKeys ? QRectF(all).center() : m_cursor,
            QStringLiteral("%1 \u00d7 %2").arg(all.width() / cell.width()).arg(all.height() / cell.height()));
}
