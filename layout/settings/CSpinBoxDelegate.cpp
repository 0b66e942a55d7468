// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CSpinBoxDelegate.h"

#include "layout/settings/COutPortTable.h"
#include "platform/widgets/input/CClampedSpinBox.h"

void CSpinBoxDelegate::commitOpenEditor()
{
    if (!m_open)
        return;
    Q_EMIT commitData(m_open);
    Q_EMIT closeEditor(m_open);
}

QWidget *CSpinBoxDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                        const QModelIndex &index) const
{
    const int partner = index.siblingAtColumn(COutPortTable::partnerOf(index.column())).data().toInt();
    auto *editor = new CSpinBox(parent);
    editor->setRange(0, COutPortTable::LargestCoordinate - partner);
    editor->setSingleStep(1);
    editor->setFrame(false);
    m_open = editor;
    return editor;
}

void CSpinBoxDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *field = static_cast<QSpinBox *>(editor);
    field->setValue(index.data().toInt());
    field->selectAll();
}

void CSpinBoxDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                    const QModelIndex &index) const
{
    auto *field = static_cast<QSpinBox *>(editor);
    field->interpretText();
    model->setData(index, QString::number(field->value()));
}
