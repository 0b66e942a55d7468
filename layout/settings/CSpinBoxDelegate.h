// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

/// Edits the cells of the table of port areas, each in a spin box that keeps the area within the largest
/// coordinate. GUI thread.
class CSpinBoxDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Takes what is typed in an open editor, and closes it.
    void commitOpenEditor();

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

private:
    mutable QPointer<QWidget> m_open; // the view asks for editors through const functions
};
