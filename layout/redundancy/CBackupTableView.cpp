// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/CBackupTableView.h"

#include "layout/redundancy/CBackupList.h"

#include <QDrag>
#include <QDropEvent>
#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QMimeData>

namespace {
constexpr int RowHeight = 28;
constexpr QSize CellIcon(16, 16);
} // namespace

CBackupTableView::CBackupTableView(QWidget *parent)
    : QTableView(parent)
{
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDropIndicatorShown(false);
    setTabKeyNavigation(false);
    setIconSize(CellIcon);
    setTextElideMode(Qt::ElideMiddle);
    setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    verticalHeader()->setDefaultSectionSize(RowHeight);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setSectionsClickable(false);
    verticalHeader()->setHighlightSections(false);
    verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
}

void CBackupTableView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        Q_EMIT notifyEmptyAsked(currentIndex());
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        Q_EMIT notifyFillAsked(currentIndex()); // the dialog's default button does not get the key
        break;
    default:
        QTableView::keyPressEvent(event);
    }
}

void CBackupTableView::dragEnterEvent(QDragEnterEvent *event)
{
    if (CBackupList::keyOf(*event->mimeData()).isNull())
        event->ignore();
    else
        event->acceptProposedAction();
}

void CBackupTableView::dragMoveEvent(QDragMoveEvent *event)
{
    const QModelIndex target = indexAt(event->pos());
    if (!target.isValid() || CBackupList::keyOf(*event->mimeData()).isNull()) {
        event->ignore();
        return;
    }
    setCurrentIndex(target); // shows where the drop goes
    event->acceptProposedAction();
}

void CBackupTableView::dropEvent(QDropEvent *event)
{
    const QModelIndex target = indexAt(event->pos());
    const QUuid key = CBackupList::keyOf(*event->mimeData());
    if (!target.isValid() || key.isNull()) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction); // so that the source changes nothing itself
    event->accept();
    if (event->source() == this)
        Q_EMIT notifyViewProcessorDroped(target, key);
    else
        Q_EMIT notifyProcessorDroped(target, key);
}

void CBackupTableView::startDrag(Qt::DropActions)
{
    const QModelIndex index = currentIndex();
    const QUuid key = index.data(KeyRole).toUuid();
    if (key.isNull())
        return;
    auto *drag = new QDrag(this);
    drag->setMimeData(CBackupList::dataOf(key));
    drag->setPixmap(
        index.data(Qt::DecorationRole).value<QIcon>().pixmap(window()->windowHandle(), iconSize()));
    drag->exec(Qt::CopyAction);
}

void CBackupTableView::mouseMoveEvent(QMouseEvent *event)
{
    setHoveredRow(rowAt(event->pos().y()));
    QTableView::mouseMoveEvent(event);
}

bool CBackupTableView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::Leave)
        setHoveredRow(-1);
    return QTableView::viewportEvent(event);
}

void CBackupTableView::setHoveredRow(int row)
{
    if (row != m_hoveredRow)
        updateRow(std::exchange(m_hoveredRow, row));
    updateRow(row); // the mouse may now be over its button
}

void CBackupTableView::updateRow(int row)
{
    if (model() && row >= 0)
        viewport()->update(visualRect(model()->index(row, 0)) |
                           visualRect(model()->index(row, model()->columnCount() - 1)));
}
