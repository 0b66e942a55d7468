// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QIcon>
#include <QStyledItemDelegate>

class CBackupTableView;

/// Draws the cells of a table of pairs, and in the row under the mouse a button that empties the row. GUI
/// thread.
class CBackupDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// For @p view, which must outlive the delegate.
    explicit CBackupDelegate(CBackupTableView &view);

    /// Where the button of a row is, given the rectangle of its last cell.
    static QRect buttonRect(const QRect &cell);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

Q_SIGNALS:
    /// The button of the row of @p index was clicked.
    void notifyDeleteClicked(const QModelIndex &index);

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    bool hasButton(const QModelIndex &index) const;

    CBackupTableView &m_view;
    const QIcon m_normal;
    const QIcon m_hover;
    const QIcon m_pressed;
    int m_pressedRow = -1;
};
