// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/journal/SJournalStep.h"

#include <utility>

/// What a step changed of one port, as the journal holds it: one change or several, one after the other.
class CPortChange final : public IPortChange
{
public:
    /// @p deltas, of one port and at least one, in the order in which they happened.
    explicit CPortChange(QVector<SPortDelta> deltas)
        : m_deltas(std::move(deltas))
    {
    }
    static SPortDelta between(int port, const Groups &before, const Groups &after);

    int port() const override { return m_deltas.first().port; }
    std::optional<Groups> groups(ESide side, const Groups &other) const override;
    quint64 digest(ESide side) const override;
    quint64 digestOf(const Groups &groups) const override;
    qint64 bytes() const override;

private:
    const QVector<SPortDelta> m_deltas;
};
