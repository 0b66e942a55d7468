// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/history/CStepValues.h"

#include <algorithm>

CStepValues::CStepValues(const SEditStep &step)
    : m_text(step.text)
    , m_deltas(step.ports.begin(), step.ports.end())
{
}

CStepValues::CStepValues(const SKeptStep &step)
    : m_text(step.text)
    , m_deltas(step.changes.begin(), step.changes.end())
{
}

QVector<int> CStepValues::ports() const
{
    QVector<int> ports;
    for (const CPortDelta &delta : m_deltas)
        ports << delta.port();
    return ports;
}

void CStepValues::merge(const SEditStep &later)
{
    for (SEditStep::SPort port : later.ports) {
        const auto known = std::find_if(m_deltas.begin(), m_deltas.end(), [&port](const CPortDelta &delta) {
            return delta.port() == port.after.index;
        });
        if (known == m_deltas.end()) {
            m_deltas.emplace_back(port);
            continue;
        }
        port.before.groups =
            known->groups(CPortDelta::Before, port.before.groups).value_or(port.before.groups);
        *known = CPortDelta(port);
    }
    m_compacted = 0;
}

bool CStepValues::compactNext()
{
    if (m_compacted == m_deltas.size())
        return false;
    m_deltas[m_compacted++].compact();
    return true;
}

qint64 CStepValues::bytes() const
{
    qint64 bytes = qint64(sizeof(*this)) + m_text.size() * qint64(sizeof(QChar));
    for (const CPortDelta &delta : m_deltas)
        bytes += delta.bytes();
    return bytes;
}
