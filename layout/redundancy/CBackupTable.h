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

/// A table of pairs with two columns, "Primary" and "Redundancy"; each cell holds one entry or nothing. No
/// entry is in it twice. GUI thread.
class CBackupTable : public QWidget
{
    Q_OBJECT

public:
    CBackupTableView &view() const { return *m_view; }

    /// Sets the possible entries and empties the table. There is one row per entry, so that an empty row is
    /// always left.
    void setEntries(const QList<SBackupEntry> &entries);
    /// Fills the rows, beginning with the first; unknown keys count as empty.
    void setRows(const QList<SBackupPair> &rows);
    QList<SBackupPair> rows() const; ///< up to the last row that is not empty
    /// Sets the function called before each drop; if it returns true, the drop is ignored.
    void setRefusal(std::function<bool()> refusal) { m_refusal = std::move(refusal); }
    /// Puts an entry into the current cell and makes the next cell current.
    void putIntoCurrent(const QUuid &key);
    /// Pairs fitting entries; complete rows stay.
    void autoMatch();
    void clearRows() { setRows({}); }

public Q_SLOTS:
    void onNotifyProcessorDroped(const QModelIndex &index, const QUuid &processor);
    void onNotifyViewProcessorDroped(const QModelIndex &index, const QUuid &processor);
    void onScrollBarRangeChanged(int min, int max);

Q_SIGNALS:
    void notifyRowsChanged();
    /// Enter or Space was pressed in the table: put the list's entry into the current cell.
    void notifyFillAsked();

protected:
    /// @p delegate creates the delegate of a view; @p emptyText is what a screen reader says for an empty
    /// cell.
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
    QHash<QUuid, int> m_places; ///< index of each entry in m_entries
    std::function<bool()> m_refusal;
    const QString m_emptyText;
};
