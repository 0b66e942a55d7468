// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CFlowListView.h"

#include <QKeyEvent>

CFlowListView::CFlowListView(const QSize &cell, int spacing, QWidget *parent)
    : CScrollArea(parent)
    , m_cell(cell)
    , m_spacing(spacing)
    , m_sheet(new QWidget)
{
    setWidget(m_sheet);
    setFocusPolicy(Qt::NoFocus);
}

void CFlowListView::setItems(const QVector<QWidget *> &items)
{
    for (QWidget *item : qAsConst(m_items)) {
        if (!items.contains(item)) {
            item->removeEventFilter(this);
            item->hide();
        }
    }
    for (QWidget *item : items) {
        if (m_items.contains(item))
            continue;
        item->setParent(m_sheet);
        item->setFocusPolicy(Qt::ClickFocus);
        item->installEventFilter(this);
        item->show();
    }
    m_items = items;
    for (int i = 1; i < items.size(); ++i)
        QWidget::setTabOrder(items.at(i - 1), items.at(i));
    if (!m_items.contains(m_tabStop))
        setTabStop(m_items.value(0));
    arrange();
}

int CFlowListView::columns() const
{
    return qMax(1, (viewport()->width() + m_spacing) / (m_cell.width() + m_spacing));
}

void CFlowListView::arrange()
{
    const int perRow = columns();
    for (int i = 0; i < m_items.size(); ++i)
        m_items.at(i)->setGeometry(QRect(QPoint(i % perRow * (m_cell.width() + m_spacing),
                                                m_spacing + i / perRow * (m_cell.height() + m_spacing)),
                                         m_cell));
    m_sheet->setMinimumHeight(heightOfRows((m_items.size() + perRow - 1) / perRow));
}

void CFlowListView::resizeEvent(QResizeEvent *event)
{
    CScrollArea::resizeEvent(event);
    arrange();
}

bool CFlowListView::eventFilter(QObject *watched, QEvent *event)
{
    auto *item = qobject_cast<QWidget *>(watched);
    const int place = m_items.indexOf(item);
    if (place >= 0 && event->type() == QEvent::FocusIn) {
        setTabStop(item);
        if (static_cast<QFocusEvent *>(event)->reason() != Qt::MouseFocusReason)
            ensureWidgetVisible(item, m_spacing, m_spacing);
    }
    if (place >= 0 && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const auto plain = key->modifiers() & ~(Qt::KeypadModifier | Qt::ControlModifier);
        if (plain == Qt::NoModifier && moveFocus(place, key->key()))
            return true;
    }
    return CScrollArea::eventFilter(watched, event);
}

/// Returns whether @p key is one that goes from item to item.
bool CFlowListView::moveFocus(int from, int key)
{
    int to = from;
    switch (key) {
    case Qt::Key_Left:
        to = from - 1;
        break;
    case Qt::Key_Right:
        to = from + 1;
        break;
    case Qt::Key_Up:
        to = from - columns();
        break;
    case Qt::Key_Down:
        to = from + columns();
        break;
    case Qt::Key_Home:
        to = 0;
        break;
    case Qt::Key_End:
        to = m_items.size() - 1;
        break;
    default:
        return false;
    }
    if (QWidget *item = m_items.value(to))
        item->setFocus(Qt::TabFocusReason);
    return true;
}

void CFlowListView::setTabStop(QWidget *item)
{
    if (m_tabStop == item)
        return;
    if (m_tabStop)
        m_tabStop->setFocusPolicy(Qt::ClickFocus);
    m_tabStop = item;
    if (item)
        item->setFocusPolicy(Qt::StrongFocus);
}
