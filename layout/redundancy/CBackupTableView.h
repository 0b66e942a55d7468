// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QTableView>
#include <QUuid>

/// The view of a table of pairs: cells are dragged within it, and entries of the list are dropped on it. It
/// only reports drops and keys; its owner decides what happens. GUI thread.
class CBackupTableView final : public QTableView
{
    Q_OBJECT

public:
    /// The data role of the key in a cell.
    static constexpr int KeyRole = Qt::UserRole + 1;

    explicit CBackupTableView(QWidget *parent = nullptr);

    /// The row under the mouse; -1: none.
    int hoveredRow() const { return m_hoveredRow; }

Q_SIGNALS:
    /// An entry of the list was dropped on a cell.
    void notifyProcessorDroped(const QModelIndex &index, const QUuid &processor);
    /// The entry of another cell was dropped on a cell.
    void notifyViewProcessorDroped(const QModelIndex &index, const QUuid &processor);
    void notifyEmptyAsked(const QModelIndex &index); ///< by the Delete key
    void notifyFillAsked(const QModelIndex &index);  ///< by Enter or Space

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    void setHoveredRow(int row);
    void updateRow(int row);

    int m_hoveredRow = -1;
};
