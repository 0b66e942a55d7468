// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPair>
#include <QRect>
#include <QUuid>
#include <QVector>

/// The scan lines of wiring as they are told: a strip for each line, and whatever it touches first belongs to
/// it.
class CPlainSnake final
{
public:
    using Cells = QVector<QPair<QUuid, QRect>>;

    /// Pattern 0..7 as the tool bar numbers them.
    static CPlainSnake ofPattern(int pattern);
    /// Runs on from @p tail into @p block: away from it, beginning at the corner nearest to it.
    static CPlainSnake runningOn(const QRect &tail, const QRect &block);
    /// Begins in the corner of @p block in which @p first lies, and runs along rows.
    static CPlainSnake beginningAt(const QRect &first, const QRect &block);

    /// Of equally small cells the first one sets the pitch.
    QVector<QUuid> order(const Cells &cells) const;

private:
    CPlainSnake(bool rows, bool firstForward, bool advanceForward)
        : m_rows(rows)
        , m_firstForward(firstForward)
        , m_advanceForward(advanceForward)
    {
    }

    bool m_rows;           // lines run along rows, not columns
    bool m_firstForward;   // the first line runs to the right or down
    bool m_advanceForward; // lines follow each other downward or to the right
};
