// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/CBackupDelegate.h"

#include "layout/redundancy/CBackupTableView.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace {

constexpr int ButtonSide = 16;
constexpr int ButtonMargin = 8;

QIcon deleteIcon(const char *state)
{
    return QIcon(QStringLiteral(":/Image/OperateButton/delete_%1.svg").arg(QLatin1String(state)));
}

} // namespace

CBackupDelegate::CBackupDelegate(CBackupTableView &view)
    : QStyledItemDelegate(&view)
    , m_view(view)
    , m_normal(deleteIcon("normal"))
    , m_hover(deleteIcon("hover"))
    , m_pressed(deleteIcon("pressed"))
{
}

QRect CBackupDelegate::buttonRect(const QRect &cell)
{
    return {cell.right() + 1 - ButtonMargin - ButtonSide, cell.center().y() + 1 - ButtonSide / 2, ButtonSide,
            ButtonSide};
}

bool CBackupDelegate::hasButton(const QModelIndex &index) const
{
    if (index.column() != index.model()->columnCount() - 1 || index.row() != m_view.hoveredRow())
        return false;
    for (int column = 0; column <= index.column(); ++column) {
        if (!index.sibling(index.row(), column).data(CBackupTableView::KeyRole).toUuid().isNull())
            return true;
    }
    return false;
}

void CBackupDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (hasButton(index)) // the text ends before the button
        option->text = option->fontMetrics.elidedText(option->text, Qt::ElideMiddle,
                                                      option->rect.width() - option->decorationSize.width() -
                                                          ButtonSide - 3 * ButtonMargin);
}

void CBackupDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (!hasButton(index))
        return;
    const QRect button = buttonRect(option.rect);
    const bool hovered = button.contains(m_view.viewport()->mapFromGlobal(QCursor::pos()));
    const QIcon &icon = m_pressedRow == index.row() ? m_pressed : hovered ? m_hover : m_normal;
    icon.paint(painter, button);
}

bool CBackupDelegate::editorEvent(QEvent *event, QAbstractItemModel *model,
                                  const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const bool press = event->type() == QEvent::MouseButtonPress;
    if (!press && event->type() != QEvent::MouseButtonRelease)
        return QStyledItemDelegate::editorEvent(event, model, option, index);
    const auto *mouse = static_cast<QMouseEvent *>(event);
    const bool inside = mouse->button() == Qt::LeftButton && hasButton(index) &&
                        buttonRect(option.rect).contains(mouse->pos());
    const int pressed = std::exchange(m_pressedRow, press && inside ? index.row() : -1);
    m_view.viewport()->update(option.rect);
    if (!press && inside && pressed == index.row())
        Q_EMIT notifyDeleteClicked(index);
    return inside;
}

bool CBackupDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (!index.isValid() || !hasButton(index) || !buttonRect(option.rect).contains(event->pos()))
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), tr("Delete"), view);
    return true;
}
