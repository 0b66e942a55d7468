// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/widgets/CScrollArea.h"

#include <QPointer>
#include <QVector>

/// Lays widgets of one size out in rows, as many a row as fit, and scrolls them vertically. The list is one
/// stop of the Tab key; the arrow keys, Home and End go from widget to widget. GUI thread.
class CFlowListView final : public CScrollArea
{
    Q_OBJECT

public:
    /// Items have the size @p cell, with @p spacing pixels between, above and below them.
    CFlowListView(const QSize &cell, int spacing, QWidget *parent = nullptr);

    /// Shows @p items in this order, and becomes their parent. Items that were shown before and are not among
    /// them stay its hidden children until the caller deletes them.
    void setItems(const QVector<QWidget *> &items);
    const QVector<QWidget *> &items() const { return m_items; }
    /// The height that shows @p rows rows.
    int heightOfRows(int rows) const { return rows * (m_cell.height() + m_spacing) + m_spacing; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    int columns() const;
    void arrange();
    bool moveFocus(int from, int key);
    void setTabStop(QWidget *item);

    QSize m_cell;
    int m_spacing;
    QWidget *m_sheet;
    QVector<QWidget *> m_items;
    QPointer<QWidget> m_tabStop; ///< the one that Tab goes to: the one that had the focus last
};
