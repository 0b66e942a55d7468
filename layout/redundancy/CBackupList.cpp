// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/CBackupList.h"

#include <QIcon>
#include <QKeyEvent>
#include <QMimeData>

namespace {
const QString BackupMimeType = QStringLiteral("application/x-orvo-redundancy");
constexpr QSize EntryIcon(16, 16);
} // namespace

CBackupList::CBackupList(QWidget *parent)
    : QListWidget(parent)
{
    setDragDropMode(QAbstractItemView::DragOnly);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setIconSize(EntryIcon);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListWidget::itemDoubleClicked, this, &CBackupList::choose);
}

void CBackupList::setEntries(const QList<SBackupEntry> &entries)
{
    const int row = currentRow();
    clear();
    for (const SBackupEntry &entry : entries) {
        auto *item = new QListWidgetItem(QIcon(entry.icon), entry.text, this);
        item->setData(Qt::UserRole + 1, entry.key);
        item->setToolTip(entry.refusal.isEmpty() ? entry.text
                                                 : entry.text + QLatin1Char('\n') + entry.refusal);
        item->setData(Qt::AccessibleDescriptionRole, entry.refusal);
        if (!entry.refusal.isEmpty())
            item->setFlags(Qt::NoItemFlags);
    }
    setCurrentRow(row < 0 || row >= count() ? 0 : row);
}

QUuid CBackupList::currentKey() const
{
    const QListWidgetItem *item = currentItem();
    return item && item->flags() & Qt::ItemIsEnabled ? item->data(Qt::UserRole + 1).toUuid() : QUuid();
}

QMimeData *CBackupList::dataOf(const QUuid &key)
{
    auto *data = new QMimeData;
    data->setData(BackupMimeType, key.toRfc4122());
    return data;
}

QUuid CBackupList::keyOf(const QMimeData &data)
{
    return QUuid::fromRfc4122(data.data(BackupMimeType));
}

QStringList CBackupList::mimeTypes() const
{
    return {BackupMimeType};
}

QMimeData *CBackupList::mimeData(const QList<QListWidgetItem *> items) const
{
    return items.isEmpty() ? nullptr : dataOf(items.first()->data(Qt::UserRole + 1).toUuid());
}

void CBackupList::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        choose(); // the dialog's default button does not get the key
        break;
    default:
        QListWidget::keyPressEvent(event);
    }
}

void CBackupList::choose()
{
    const QUuid key = currentKey();
    if (!key.isNull())
        Q_EMIT notifyChosen(key);
}
