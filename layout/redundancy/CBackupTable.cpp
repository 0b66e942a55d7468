// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/CBackupTable.h"

#include "layout/redundancy/CBackupDelegate.h"
#include "layout/redundancy/CBackupTableView.h"

#include <QScrollBar>
#include <QStandardItemModel>
#include <QVBoxLayout>

namespace {
constexpr int ColumnCount = 2;
constexpr int KeyRole = CBackupTableView::KeyRole;
} // namespace

CBackupTable::CBackupTable(const std::function<CBackupDelegate *(CBackupTableView &)> &delegate,
                           const QString &emptyText, QWidget *parent)
    : QWidget(parent)
    , m_view(new CBackupTableView(this))
    , m_model(new QStandardItemModel(0, ColumnCount, this))
    , m_emptyText(emptyText)
{
    buildUi();
    CBackupDelegate *made = delegate(*m_view);
    m_view->setItemDelegate(made);
    connectSignals(*made);
}

void CBackupTable::buildUi()
{
    m_model->setHorizontalHeaderLabels({tr("Primary"), tr("Redundancy")});
    m_view->setModel(m_model);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_view);
    setFocusProxy(m_view);
}

void CBackupTable::connectSignals(CBackupDelegate &delegate)
{
    connect(m_view, &CBackupTableView::notifyProcessorDroped, this, &CBackupTable::onNotifyProcessorDroped);
    connect(m_view, &CBackupTableView::notifyViewProcessorDroped, this,
            &CBackupTable::onNotifyViewProcessorDroped);
    connect(m_view, &CBackupTableView::notifyEmptyAsked, this,
            [this](const QModelIndex &index) { put(index, QUuid()); });
    connect(m_view, &CBackupTableView::notifyFillAsked, this, &CBackupTable::notifyFillAsked);
    connect(m_view->verticalScrollBar(), &QScrollBar::rangeChanged, this,
            &CBackupTable::onScrollBarRangeChanged);
    connect(&delegate, &CBackupDelegate::notifyDeleteClicked, this, &CBackupTable::emptyRow);
}

void CBackupTable::setEntries(const QList<SBackupEntry> &entries)
{
    m_entries = entries;
    m_places.clear();
    for (int i = 0; i < entries.size(); ++i)
        m_places.insert(entries.at(i).key, i);
    m_model->setRowCount(entries.size());
    clearRows();
}

void CBackupTable::setRows(const QList<SBackupPair> &rows)
{
    const QModelIndex current = m_view->currentIndex();
    if (rows.size() > m_model->rowCount())
        m_model->setRowCount(rows.size());
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const SBackupPair pair = rows.value(row);
        m_model->setItem(row, 0, itemOf(pair.first));
        m_model->setItem(row, 1, itemOf(pair.second));
    }
    m_view->setCurrentIndex(current.isValid() ? m_model->index(current.row(), current.column())
                                              : m_model->index(0, 0));
    Q_EMIT notifyRowsChanged();
}

QList<SBackupPair> CBackupTable::rows() const
{
    QList<SBackupPair> rows;
    for (int row = 0; row < m_model->rowCount(); ++row)
        rows << SBackupPair(keyAt(row, 0), keyAt(row, 1));
    while (!rows.isEmpty() && rows.last() == SBackupPair())
        rows.removeLast();
    return rows;
}

void CBackupTable::putIntoCurrent(const QUuid &key)
{
    const QModelIndex index = m_view->currentIndex();
    if (!index.isValid() || key.isNull())
        return;
    onNotifyProcessorDroped(index, key);
    const int next = index.row() * ColumnCount + index.column() + 1;
    if (keyAt(index.row(), index.column()) == key && next < m_model->rowCount() * ColumnCount)
        m_view->setCurrentIndex(m_model->index(next / ColumnCount, next % ColumnCount));
}

void CBackupTable::autoMatch()
{
    QList<QUuid> free;
    for (const SBackupEntry &entry : qAsConst(m_entries)) {
        if (entry.refusal.isEmpty())
            free << entry.key;
    }
    QList<SBackupPair> all = rows();
    while (all.size() < m_model->rowCount())
        all << SBackupPair();
    setRows(BackupMatch::completed(all, free, [this](const QUuid &primary, const QUuid &redundancy) {
        return fitness(primary, redundancy);
    }));
}

void CBackupTable::onNotifyProcessorDroped(const QModelIndex &index, const QUuid &processor)
{
    if (!processor.isNull() && !(m_refusal && m_refusal()))
        put(index, processor);
}

void CBackupTable::onNotifyViewProcessorDroped(const QModelIndex &index, const QUuid &processor)
{
    onNotifyProcessorDroped(index, processor); // a drop from the table is handled the same way
}

/// The scroll bar is shown only if the rows do not fit; otherwise the columns use the whole width.
void CBackupTable::onScrollBarRangeChanged(int min, int max)
{
    m_view->setVerticalScrollBarPolicy(max > min ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
}

QStandardItem *CBackupTable::itemOf(const QUuid &key) const
{
    const SBackupEntry entry = m_entries.value(m_places.value(key, -1));
    auto *item = new QStandardItem(entry.text);
    item->setEditable(false);
    item->setToolTip(entry.text);
    if (entry.key.isNull())
        item->setData(m_emptyText, Qt::AccessibleTextRole);
    else
        item->setIcon(QIcon(entry.icon));
    item->setData(entry.key, KeyRole);
    return item;
}

QUuid CBackupTable::keyAt(int row, int column) const
{
    return m_model->index(row, column).data(KeyRole).toUuid();
}

QModelIndex CBackupTable::cellOf(const QUuid &key) const
{
    for (int row = 0; row < m_model->rowCount(); ++row) {
        for (int column = 0; column < ColumnCount; ++column) {
            if (keyAt(row, column) == key)
                return m_model->index(row, column);
        }
    }
    return {};
}

/// Puts @p key into a cell; the cell that held it before gets the target's previous content.
void CBackupTable::put(const QModelIndex &index, const QUuid &key)
{
    if (!index.isValid() || (!key.isNull() && !m_places.contains(key)))
        return;
    const QUuid before = keyAt(index.row(), index.column());
    const QModelIndex found = key.isNull() ? QModelIndex() : cellOf(key);
    if (before == key)
        return;
    if (found.isValid())
        m_model->setItem(found.row(), found.column(), itemOf(before));
    m_model->setItem(index.row(), index.column(), itemOf(key));
    m_view->setCurrentIndex(m_model->index(index.row(), index.column()));
    Q_EMIT notifyRowsChanged();
}

void CBackupTable::emptyRow(const QModelIndex &index)
{
    for (int column = 0; column < ColumnCount; ++column)
        m_model->setItem(index.row(), column, itemOf(QUuid()));
    Q_EMIT notifyRowsChanged();
}
