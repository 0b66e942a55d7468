// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SHostRecords.h"

#include <QSet>

/// At which rows of a history, by number of done steps, the layout equals what was saved: as far as the host
/// was asked while the layout was as in that row.
class CSavedRows final
{
public:
    /// What the host says while the layout is as in @p row.
    void take(int row, const SUnsavedEdits &edits);
    /// The rows from @p first on have another layout now.
    void forgetFrom(int first);
    /// The first @p rows of the history are gone.
    void dropFirst(int rows);
    /// Starts again, with one row whose cabinets are known to be as saved; below 0: none.
    void restart(int row);

    /// Whether the cabinets are as they were saved; anything else may differ.
    bool haveSavedCabinets(int row) const { return m_rows.contains(row); }
    /// Where nothing differs.
    QSet<int> rows() const { return m_settingsDiffer ? QSet<int>() : m_rows; }

private:
    QSet<int> m_rows;
    bool m_settingsDiffer = false; // they are the same in all rows
    quint64 m_saved = 0;
};
