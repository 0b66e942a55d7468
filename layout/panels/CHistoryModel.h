// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractListModel>
#include <QPointer>
#include <QSet>
#include <QUndoStack>

/// The steps of an undo stack as a list: the first row is the beginning, row n the n-th step. Undone steps
/// are dimmed, rows at which the layout is as it was saved say so. GUI thread.
class CHistoryModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit CHistoryModel(QObject *parent = nullptr)
        : QAbstractListModel(parent)
    {
    }

    /// Shows @p stack; null: nothing. @p beginning is the text of the first row. The stack may go first.
    void show(const QUndoStack *stack, const QString &beginning, const QSet<int> &savedRows);
    int currentRow() const; ///< the last step that is done; -1 if nothing is shown

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

Q_SIGNALS:
    void notifyCurrentRowChanged();

private:
    void update();
    QString text(int row) const;

    QPointer<const QUndoStack> m_stack;
    QString m_beginning;
    QSet<int> m_savedRows;
    int m_rows = 0;
};
