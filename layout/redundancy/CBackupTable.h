// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/redundancy/BackupMatch.h"

#include <QHash>
#include <QModelIndex>
#include <QWidget>

#include <functional>

class CBackupDelegate;
class CBackupTableView;
class QStandardItem;
class QStandardItemModel;

/// A table of pairs: two columns, "Primary" and "Redundancy", whose cells hold one entry or nothing. No entry
/// stands twice in it. GUI thread.
class CBackupTable : public QWidget
{
    Q_OBJECT

public:
    CBackupTableView &view() const { return *m_view; }

    /// What may stand in the table; there is a row for each, so that an empty one is always left. Empties it.
    void setEntries(const QList<SBackupEntry> &entries);
    /// Fills the rows from the first; what is no entry counts as empty.
    void setRows(const QList<SBackupPair> &rows);
    QList<SBackupPair> rows() const; ///< from the first to the last that is not empty
    /// Asked before a drop; true: it does nothing.
    void setRefusal(std::function<bool()> refusal) { m_refusal = std::move(refusal); }
    /// Puts an entry into the current cell, and makes the next one current.
    void putIntoCurrent(const QUuid &key);
    /// Pairs of the entries what fits, beside the rows that are whole.
    void autoMatch();
    void clearRows() { setRows({}); }

public Q_SLOTS:
    void onNotifyProcessorDroped(const QModelIndex &index, const QUuid &processor);
    void onNotifyViewProcessorDroped(const QModelIndex &index, const QUuid &processor);
    void onScrollBarRangeChanged(int min, int max);

Q_SIGNALS:
    void notifyRowsChanged();
    /// Enter or Space was pressed in the table: the list's entry is wanted in the current cell.
    void notifyFillAsked();

protected:
    /// @p delegate makes the delegate of a view; @p emptyText is what a screen reader says of an empty cell.
    CBackupTable(const std::function<CBackupDelegate *(CBackupTableView &)> &delegate,
                 const QString &emptyText, QWidget *parent);

    /// See BackupMatch::Fitness.
    virtual int fitness(const QUuid &primary, const QUuid &redundancy) const = 0;

private:
    void buildUi();
    void connectSignals(CBackupDelegate &delegate);
    QStandardItem *itemOf(const QUuid &key) const;
    QUuid keyAt(int row, int column) const;
    QModelIndex cellOf(const QUuid &key) const;
    void put(const QModelIndex &index, const QUuid &key);
    void emptyRow(const QModelIndex &index);

    CBackupTableView *m_view = nullptr;
    QStandardItemModel *m_model = nullptr;
    QList<SBackupEntry> m_entries;
    QHash<QUuid, int> m_places; ///< of the entries in the list of them
    std::function<bool()> m_refusal;
    const QString m_emptyText;
};
