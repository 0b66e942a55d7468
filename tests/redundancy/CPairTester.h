// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/redundancy/CBackupDialog.h"
#include "layout/redundancy/CBackupList.h"
#include "layout/redundancy/CBackupTable.h"
#include "layout/redundancy/CBackupTableView.h"
#include "tests/harness/DialogUser.h"

#include <QDropEvent>
#include <QMimeData>

#include <memory>

/// Uses a dialog of pairs as a user does; reads list and table as texts.
class CPairTester final
{
public:
    explicit CPairTester(CBackupDialog &dialog)
        : m_dialog(dialog)
    {
    }

    CBackupTableView &view() const { return m_dialog.table().view(); }
    CBackupList &list() const { return *m_dialog.findChild<CBackupList *>(); }
    QPushButton *apply() const { return m_dialog.buttonBox()->button(QDialogButtonBox::Apply); }
    QAbstractButton *tool(const char *name) const { return named<QAbstractButton>(m_dialog, name); }
    QModelIndex cell(int row, int column) const { return view().model()->index(row, column); }

    /// The filled rows: "A>B|C>".
    QString rows() const
    {
        QStringList rows;
        for (int row = 0; row < view().model()->rowCount(); ++row)
            rows << cell(row, 0).data().toString() + QLatin1Char('>') + cell(row, 1).data().toString();
        while (!rows.isEmpty() && rows.last() == QLatin1String(">"))
            rows.removeLast();
        return rows.join(QLatin1Char('|'));
    }

    /// Drops an entry of the list, or the content of another cell, on a cell.
    void drop(const QUuid &key, int row, int column, bool fromTable = false)
    {
        const std::unique_ptr<QMimeData> data(dragged(key));
        const QPoint place = view().visualRect(cell(row, column)).center();
        QDragEnterEvent enter(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view().viewport(), &enter);
        QVERIFY(enter.isAccepted());
        QDragMoveEvent move(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view().viewport(), &move);
        QVERIFY(move.isAccepted());
        // Which widget a drag comes from, only a real one knows: its signal is sent in its place.
        if (fromTable) {
            Q_EMIT view().notifyViewProcessorDroped(cell(row, column), key);
            return;
        }
        QDropEvent event(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view().viewport(), &event);
    }

private:
    /// What a drag of the list's entry carries; that of a cell's content if the list has none.
    QMimeData *dragged(const QUuid &key) const
    {
        const QAbstractItemModel &entries = *list().model();
        const QModelIndexList found =
            entries.match(entries.index(0, 0), Qt::UserRole + 1, key, 1, Qt::MatchExactly);
        return found.isEmpty() ? CBackupList::dataOf(key) : entries.mimeData(found);
    }

    CBackupDialog &m_dialog;
};
