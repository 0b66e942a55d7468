// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/summary/CSummaryGraphicsView.h"

#include "layout/api/records/LayoutLimits.h"
#include "layout/summary/CGraphicsProcessorItem.h"
#include "layout/summary/CProcessorMove.h"
#include "layout/summary/CSummaryPainter.h"
#include "platform/graphics/CGraphicsScene.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr int CatchReach = 10; // pixels of the screen
constexpr int VisibleMargin = 8;

ProcessorOffsets offsetsOf(const QVector<SSummaryProcessor> &processors)
{
    ProcessorOffsets offsets;
    for (const SSummaryProcessor &processor : processors)
        offsets.insert(processor.uuid, processor.offset);
    return offsets;
}

template <typename Items>
QRect outlineOf(const Items &items)
{
    QRect outline;
    for (const CGraphicsProcessorItem *item : items)
        outline |= item->place();
    return outline;
}

} // namespace

CSummaryGraphicsView::CSummaryGraphicsView(QWidget *parent)
    : CGraphicsView(parent)
    , m_scene(new CGraphicsScene(this))
{
    setScene(m_scene);
    setDragMode(RubberBandDrag);
    setViewportUpdateMode(FullViewportUpdate); // frames and lines extend beyond the items
    setAccessibleName(tr("Processors on the shared canvas"));
    connect(m_scene, &QGraphicsScene::selectionChanged, this, &CSummaryGraphicsView::announceSelection);
}

CSummaryGraphicsView::~CSummaryGraphicsView()
{
    disconnect(m_scene, nullptr, this, nullptr); // deleting items deselects them
}

void CSummaryGraphicsView::setProcessors(const QVector<SSummaryProcessor> &processors)
{
    if (processors == m_processors)
        return;
    cancelMove();
    const QList<QUuid> before = offsets().keys();
    QList<QUuid> selected;
    for (const CGraphicsProcessorItem *item : selectedItems())
        selected << item->processor();
    m_processors = processors;
    const bool others = before != offsets().keys();
    if (others)
        selected = processors.isEmpty() ? QList<QUuid>() : QList<QUuid>{processors.first().uuid};
    fill(selected);
    if (others)
        fitContent();
}

void CSummaryGraphicsView::fill(const QList<QUuid> &selected)
{
    m_selecting = true;
    m_items.clear();
    m_scene->clear();
    for (const SSummaryProcessor &processor : qAsConst(m_processors))
        addItem(processor);
    m_selecting = false;
    updateContent();
    select(selected);
}

void CSummaryGraphicsView::addItem(const SSummaryProcessor &processor)
{
    auto *item =
        new CGraphicsProcessorItem(processor.uuid, processor.text, QRect(QPoint(0, 0), processor.area));
    item->setOnline(processor.online);
    item->setPos(processor.offset);
    // So that a small area above a large one can be clicked.
    item->setZValue(-double(processor.area.width()) * processor.area.height());
    m_scene->addItem(item);
    m_items << item;
    connect(item, &CGraphicsProcessorItem::geometryChanged, this, [this, item] {
        if (item->isSelected())
            announceGeometry();
    });
    connect(item, &CGraphicsProcessorItem::offsetChanged, this, [this, item] {
        if (item->isSelected())
            announceOffset();
    });
}

void CSummaryGraphicsView::updateContent()
{
    m_scene->setContentRect(outlineOf(m_items));
    m_scene->updateViews();
}

ProcessorOffsets CSummaryGraphicsView::offsets() const
{
    return offsetsOf(m_processors);
}

void CSummaryGraphicsView::setOffsets(const ProcessorOffsets &offsets)
{
    cancelMove();
    for (int i = 0; i < m_items.size(); ++i) {
        SSummaryProcessor &processor = m_processors[i];
        processor.offset = offsets.value(processor.uuid, processor.offset);
        m_items.at(i)->setPos(processor.offset);
    }
    updateContent();
    describeSelection();
}

QVector<SSummaryProcessor> CSummaryGraphicsView::selection() const
{
    QVector<SSummaryProcessor> selection;
    for (int i = 0; i < m_items.size(); ++i) {
        if (m_items.at(i)->isSelected())
            selection << m_processors.at(i);
    }
    return selection;
}

CSummaryGraphicsView::Items CSummaryGraphicsView::selectedItems() const
{
    Items selected;
    std::copy_if(m_items.begin(), m_items.end(), std::back_inserter(selected),
                 [](const CGraphicsProcessorItem *item) { return item->isSelected(); });
    return selected;
}

CSummaryGraphicsView::Items CSummaryGraphicsView::movedItems() const
{
    Items moved;
    for (CGraphicsProcessorItem *item : selectedItems()) {
        if (item->isOnline() && !m_blocked)
            moved << item;
    }
    return moved;
}

void CSummaryGraphicsView::setEditingBlocked(bool blocked)
{
    if (blocked)
        cancelMove();
    m_blocked = blocked;
}

void CSummaryGraphicsView::onItemOffsetChanged(const QPoint &offset)
{
    endGesture();
    const Items selected = selectedItems();
    if (selected.isEmpty() || !beginMove())
        return;
    // The rectangle of an item in the scene begins where its area begins, not where it has its origin.
    const CGraphicsProcessorItem &first = *selected.first();
    const QPoint origin =
        selected.size() == 1 ? first.mapRectToScene(first.rect()).topLeft().toPoint() - first.area().topLeft()
                             : outlineOf(selected).topLeft();
    const auto within = [](int value) {
        return qBound(-LayoutLimits::LargestOffset, value, LayoutLimits::LargestOffset);
    };
    m_move->moveTo(QPoint(within(offset.x()), within(offset.y())) - origin, 0);
    endMove();
    ensureVisible(outlineOf(selectedItems()), VisibleMargin, VisibleMargin);
}

void CSummaryGraphicsView::endGesture()
{
    if (m_pressed)
        cancelMove();
    else
        endMove();
}

bool CSummaryGraphicsView::beginMove()
{
    const Items moved = movedItems();
    if (moved.isEmpty())
        return false;
    Items others;
    for (CGraphicsProcessorItem *item : qAsConst(m_items)) {
        if (!moved.contains(item))
            others << item;
    }
    m_move = std::make_unique<CProcessorMove>(moved, others);
    return true;
}

void CSummaryGraphicsView::dragTo(const QPoint &position, bool catching)
{
    const QPointF way = mapToScene(position) - m_pressPlace;
    m_move->moveTo(way.toPoint(), catching ? qRound(CatchReach / scaleFactor()) : 0);
}

/// Begins or continues a move by the arrow keys. Returns whether the event is for an arrow key.
bool CSummaryGraphicsView::stepBy(const QKeyEvent &event)
{
    const QPoint step = CProcessorMove::stepOf(event);
    if (step.isNull() || m_pressed || (!m_move && !beginMove()))
        return false;
    m_move->moveTo(m_move->distance() + step, 0);
    return true;
}

void CSummaryGraphicsView::endMove()
{
    if (!m_move)
        return;
    const ProcessorOffsets before = m_move->begin();
    const ProcessorOffsets after = m_move->offsets();
    m_move.reset();
    viewport()->update(); // removes the snap lines
    if (after == before)
        return;
    setOffsets(after);
    Q_EMIT notifyMoved(before, after);
}

void CSummaryGraphicsView::cancelMove()
{
    m_pressed = nullptr;
    if (!m_move)
        return;
    m_move->moveTo({0, 0}, 0);
    m_move.reset();
    viewport()->update();
}

CGraphicsProcessorItem *CSummaryGraphicsView::itemUnder(const QPoint &position) const
{
    return dynamic_cast<CGraphicsProcessorItem *>(itemAt(position));
}

void CSummaryGraphicsView::mousePressEvent(QMouseEvent *event)
{
    CGraphicsProcessorItem *item = event->button() == Qt::LeftButton ? itemUnder(event->pos()) : nullptr;
    if (!item) {
        CGraphicsView::mousePressEvent(event); // the rubber band, or the pan
        return;
    }
    endGesture();
    if (event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier))
        item->setSelected(!item->isSelected());
    else if (!item->isSelected())
        select({item->processor()});
    if (!item->isSelected())
        return;
    m_pressed = item;
    m_pressPosition = event->pos();
    m_pressPlace = mapToScene(event->pos());
}

void CSummaryGraphicsView::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_pressed) {
        CGraphicsView::mouseMoveEvent(event);
        return;
    }
    const int way = (event->pos() - m_pressPosition).manhattanLength();
    if (m_move || (way >= QApplication::startDragDistance() && beginMove()))
        dragTo(event->pos(), !(event->modifiers() & Qt::AltModifier));
}

void CSummaryGraphicsView::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_pressed || event->button() != Qt::LeftButton) {
        CGraphicsView::mouseReleaseEvent(event);
        return;
    }
    const QUuid processor = std::exchange(m_pressed, nullptr)->processor();
    if (!m_move && event->modifiers() == Qt::NoModifier && selectedItems().size() > 1)
        select({processor}); // out of several
    endMove();
}

void CSummaryGraphicsView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && (m_move || m_pressed)) {
        cancelMove();
    } else if (event->matches(QKeySequence::SelectAll)) {
        select(offsets().keys());
    } else if (!stepBy(*event)) {
        CGraphicsView::keyPressEvent(event);
    }
}

void CSummaryGraphicsView::keyReleaseEvent(QKeyEvent *event)
{
    if (!event->isAutoRepeat() && !m_pressed && CProcessorMove::isArrow(event->key()))
        endMove(); // one move, however long the key was held
    CGraphicsView::keyReleaseEvent(event);
}

void CSummaryGraphicsView::focusInEvent(QFocusEvent *event)
{
    CGraphicsView::focusInEvent(event);
    const bool byTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (byTab && selectedItems().isEmpty() && !m_items.isEmpty())
        select({(event->reason() == Qt::TabFocusReason ? m_items.first() : m_items.last())->processor()});
    viewport()->update();
}

void CSummaryGraphicsView::focusOutEvent(QFocusEvent *event)
{
    endGesture();
    CGraphicsView::focusOutEvent(event);
    viewport()->update();
}

/// Tab goes from processor to processor, and after the last one to the next widget.
bool CSummaryGraphicsView::focusNextPrevChild(bool next)
{
    endGesture();
    const Items selected = selectedItems();
    const int from = selected.isEmpty() ? (next ? -1 : m_items.size())
                                        : m_items.indexOf(next ? selected.last() : selected.first());
    const int to = from + (next ? 1 : -1);
    if (to < 0 || to >= m_items.size())
        return CGraphicsView::focusNextPrevChild(next);
    select({m_items.at(to)->processor()});
    ensureVisible(m_items.at(to), VisibleMargin, VisibleMargin);
    return true;
}

void CSummaryGraphicsView::select(const QList<QUuid> &processors)
{
    m_selecting = true; // announced once, at the end
    for (CGraphicsProcessorItem *item : qAsConst(m_items))
        item->setSelected(processors.contains(item->processor()));
    m_selecting = false;
    announceSelection();
}

void CSummaryGraphicsView::announceSelection()
{
    if (m_selecting)
        return;
    const Items selected = selectedItems();
    Q_EMIT selectionChanged(selected.isEmpty() ? QUuid() : selected.first()->processor());
    announceGeometry();
    announceOffset();
    describeSelection();
}

void CSummaryGraphicsView::announceGeometry()
{
    const Items selected = selectedItems();
    if (!selected.isEmpty())
        Q_EMIT itemGeometryChanged(outlineOf(selected));
}

void CSummaryGraphicsView::announceOffset()
{
    const Items selected = selectedItems();
    if (!selected.isEmpty())
        Q_EMIT itemOffsetChanged(selected.size() == 1 ? selected.first()->offset()
                                                      : outlineOf(selected).topLeft());
}

/// For screen readers.
void CSummaryGraphicsView::describeSelection()
{
    QStringList lines;
    for (const SSummaryProcessor &processor : selection()) {
        const QString line = tr("%1, %2 by %3 pixels at X %4, Y %5")
                                 .arg(processor.text)
                                 .arg(processor.area.width())
                                 .arg(processor.area.height())
                                 .arg(processor.offset.x())
                                 .arg(processor.offset.y());
        lines << (processor.online ? line : tr("%1, offline").arg(line));
    }
    setAccessibleDescription(lines.isEmpty() ? tr("No processor selected") : lines.join(QLatin1Char('\n')));
}

void CSummaryGraphicsView::drawBackground(QPainter *painter, const QRectF &rect)
{
    CSummaryPainter::paintBackground(*painter, rect);
}

void CSummaryGraphicsView::drawForeground(QPainter *painter, const QRectF &rect)
{
    QVector<QRectF> selected;
    for (const CGraphicsProcessorItem *item : selectedItems())
        selected << item->sceneBoundingRect();
    CSummaryPainter::paintFrames(*painter, selected, hasFocus());
    if (m_move && m_pressed)
        CSummaryPainter::paintEdges(*painter, rect, m_move->linesAcross(), m_move->linesDown());
}
