// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/redundancy/SBackupEntry.h"

#include <QListWidget>

/// The list of entries that can be paired. Entries are dragged into the table, or put into the table's
/// current cell by Enter, Space or a double click. GUI thread.
class CBackupList final : public QListWidget
{
    Q_OBJECT

public:
    explicit CBackupList(QWidget *parent = nullptr);

    void setEntries(const QList<SBackupEntry> &entries);
    QUuid currentKey() const; ///< null: no selectable entry is current

    /// The drag data of the entry with that key; see keyOf().
    static QMimeData *dataOf(const QUuid &key);
    /// The key in drag data; null: it is something else.
    static QUuid keyOf(const QMimeData &data);

Q_SIGNALS:
    void notifyChosen(const QUuid &key);

protected:
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QList<QListWidgetItem *> items) const override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void choose();
};
