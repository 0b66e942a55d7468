// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/history/CSavedRows.h"

#include <utility>

void CSavedRows::take(int row, const SUnsavedEdits &edits)
{
    m_settingsDiffer = edits.settings;
    const bool savedAgain = std::exchange(m_saved, edits.saved) != edits.saved;
    if (savedAgain && (edits.cabinets || !m_rows.contains(row)))
        m_rows.clear(); // else the same was saved as before
    if (edits.cabinets)
        m_rows.remove(row);
    else
        m_rows.insert(row);
}

void CSavedRows::forgetFrom(int first)
{
    QSet<int> kept;
    for (const int row : qAsConst(m_rows)) {
        if (row < first)
            kept << row;
    }
    m_rows = kept;
}

void CSavedRows::dropFirst(int rows)
{
    QSet<int> kept;
    for (const int row : qAsConst(m_rows)) {
        if (row >= rows)
            kept << row - rows;
    }
    m_rows = kept;
}

void CSavedRows::restart(int row)
{
    m_rows.clear();
    if (row >= 0)
        m_rows << row;
}
