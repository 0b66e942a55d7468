// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/history/CPortDelta.h"

#include <memory>
#include <vector>

/// A step of the history as values: its text, and what it changed of each output port. GUI thread.
class CStepValues final
{
public:
    explicit CStepValues(const SEditStep &step);
    explicit CStepValues(const SKeptStep &step);

    const QString &text() const { return m_text; }
    const std::vector<CPortDelta> &deltas() const { return m_deltas; }
    QVector<int> ports() const;

    /// Makes a later change part of the step.
    void merge(const SEditStep &later);

    /// Compacts the next port. Returns false if there is none.
    bool compactNext();
    qint64 bytes() const;

private:
    QString m_text;
    std::vector<CPortDelta> m_deltas;
    size_t m_compacted = 0; // that many deltas are compact
};
